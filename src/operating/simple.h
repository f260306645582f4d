#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "core/ports.h"
#include "core/screen.h"
#include "operating/advanced.h"
#include "selection/control_bar.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What the simple screen has done by other parts of the program. A step of the chain that is empty
/// succeeds; any other empty callable does nothing and answers no.
struct SimpleHooks {
  /// Opens the chooser of a slot under a title, at the item that is selected now.
  std::function<void(int slot, std::string_view title, std::int32_t current)> startBrowser;

  std::function<void()> configure_enforcesettings;
  std::function<bool()> calculateOperatingPoints;  ///< `Calculate` without results shown.
  std::function<bool()> calculateInductors;        ///< `Calculate` of the inductor designer.
  std::function<bool()> calculateTransformer;      ///< `Calculate` of the transformer designer.
  std::function<bool()> resetCalculator;           ///< `Calculator.Reset` with operating points.
  std::function<bool()> calculateComponents;       ///< `CalculateComponents`, the whole bill.

  std::function<void()> clearComputedComponents;
  std::function<void()> loadPictures;  ///< Loads the pictures of the bars.
  std::function<void()> refresh;       ///< Draws the screen anew.
  std::function<bool()> isBusy;        ///< While true, no button is taken.
  std::function<void(bool busy)> setBusy;
  /// A walk through all combinations begins, or goes on after one of them.
  std::function<void()> startTest, stillTesting, finishTest;

  std::function<void()> saveWindowPosition;
  std::function<void()> closeConnection;
  std::function<void()> unloadOtherScreens;
  std::function<void()> stopProcess;
};

/// The main screen for the occasional user: four buttons choose the items of a design, the fifth
/// runs the whole chain of calculations.
class Simple : public Screen {
 public:
  static constexpr int kCalculateButton = kSlotCount;

  /// `bar` is this screen's own bar. All arguments must outlive the screen.
  Simple(FieldContext& context, SysMsg& messages, Advanced& advanced, control_bar& bar,
         EventPump& pump, SimpleHooks hooks);

  /// Prepares the screen before it is shown first: clears the computed lists, loads the pictures
  /// and fills its bar with commands, status and internet links.
  void load(std::span<const BarLink> links);
  /// Ends the run: saves the window's position, closes the database, unloads the other screens and
  /// hides this one.
  void unload();
  /// `unload`, then stops the process at once.
  void emergency_quit();

  /// Index 0 to 3 opens the chooser of that slot, 4 runs the chain. Any other index and a disabled
  /// button are ignored.
  void MainButton_Click(int index);
  /// Enables or disables a button; an unknown index is left alone.
  void enableMainButton(int index, bool enabled);

  /// Applies the options, then runs the chosen steps in this order, each only after the one before
  /// has succeeded. Without permission to calculate components the chain ends in front of them.
  /// The result is the success of the last step reached.
  bool calculate_simple(bool operating_points, bool inductors, bool transformer, bool components);
  /// True while a step of the chain runs that follows another one of the same run.
  bool isContinuing() const { return steps_begun_ > 1; }

  /// Runs the chain for every combination of what may be selected: the IC changes slowest, the lamp
  /// configuration fastest. A failure is shown and the walk goes on. False when it was cancelled,
  /// otherwise its end has been shown.
  bool TestAllCalculations();
  /// Ends a walk through all combinations after the calculation under way.
  void CancelTest() { test_cancelled_ = true; }
  /// A walk goes on; nobody answers what its calculations ask.
  bool isTesting() const { return testing_ && !test_cancelled_; }
  /// Called after each combination of a walk with the success of its chain.
  std::function<void(bool succeeded)> onTested;

  /// Shows `Advanced` and hides this screen.
  void ShowAdvancedScreen();
  /// Shows this screen and hides `Advanced`.
  void ShowSimpleScreen();

 private:
  bool step(bool wanted, const std::function<bool()>& hook);
  bool runChain(bool operating_points, bool inductors, bool transformer, bool components);
  bool walkCombinations();
  bool selectFrom(int slot, int position);
  bool advanceSelection();

  SysMsg& messages_;
  Advanced& advanced_;
  control_bar& bar_;
  EventPump& pump_;
  SimpleHooks hooks_;
  std::array<int, kSlotCount> walk_{};  ///< Place in the list of each slot.
  bool testing_ = false;
  bool test_cancelled_ = false;
  int steps_begun_ = 0;  ///< Of the run under way, 0 outside one.
};

}  // namespace vantrel
