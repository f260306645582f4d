#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "operating/advanced.h"
#include "operating/operating_block.h"
#include "operating/tank_calculator.h"
#include "operating/tank_search.h"
#include "operating/targets/target.h"
#include "selection/missing_fields.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What the calculation has done by other parts of the program. An empty callable does nothing and
/// answers no; `powerFactor` must be given.
struct OperatingPointsHooks {
  std::function<void(bool busy)> waitPointer;  ///< Wait or normal pointer on both main screens.
  std::function<float()> powerFactor;          ///< See PfcStageContext.
  std::function<void()> refresh;               ///< Draws the screen anew.
  std::function<std::int32_t()> addCalculationRecord;  ///< Gives the number of the calculation.
  std::function<bool()> isGraphWanted;
  std::function<void()> drawGraph;
  std::function<bool()> isCompletionShown;  ///< display_calculation_complete_message
  /// Selects the voltage-mode sibling of the lamp configuration; false when it is not on offer.
  std::function<bool()> selectVoltageMode;
};

/// The calculation of a ballast's operating points from the fields of the design screen.
class OperatingPoints {
 public:
  OperatingPoints(Advanced& advanced, TargetFactory& targets, MissingFields& missing,
                  SysMsg& messages, OperatingPointsHooks hooks);

  /// Searches the tank (or takes the user's), writes every result to the screen, adds a record to
  /// the history and tells the outcome with all warnings. `show_results` is the user's own request;
  /// a chained run without it unticks L, C and the input power first and is silent unless there is
  /// a warning. True when the calculation ran to its end or the IC has no tank.
  bool Calculate(bool show_results);

  /// The tanks that the last search found.
  const std::vector<PossibleResult>& PossibleResults() const { return search_.PossibleResults(); }
  /// The numbers of the last calculation.
  const OperatingBlock& block() const { return block_; }
  /// The dispatcher of the tank formulas.
  TankCalculator& calculator() { return calculator_; }

 private:
  enum class Outcome { Done, Ended, Restart };

  Outcome pass(bool show_results);
  Outcome searchTank(std::size_t& chosen);
  bool readFixedTank(TankSearchSettings& settings);
  bool readFixed(const char* field, char quantity, double divisor, float& number, bool& fixed);
  bool raiseBus();
  Outcome handleNoCandidate();
  bool lowerPreheatCurrent(const PossibleResult& candidate, const TankSearchSettings& settings);
  void writeResults(const PossibleResult& chosen);
  Outcome tell(bool show_results, std::int32_t number);
  void setWaitPointer(bool busy) const;

  Advanced& advanced_;
  MissingFields& missing_;
  SysMsg& messages_;
  OperatingPointsHooks hooks_;
  TankCalculator calculator_;
  OperatingBlock block_;
  TankSearch search_;
  bool bus_raised_ = false;
};

}  // namespace vantrel
