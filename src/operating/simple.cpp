#include "operating/simple.h"

#include <cstddef>
#include <utility>

#include "selection/browser_view.h"

namespace vantrel {

namespace {

constexpr const char* kTitle = "Vantrel";
constexpr const char* kButton = "MainButton";
constexpr const char* kCalculateCaption = "Calculate";

void run(const std::function<void()>& hook) {
  if (hook) hook();
}

}  // namespace

Simple::Simple(FieldContext& context, SysMsg& messages, Advanced& advanced, control_bar& bar,
               EventPump& pump, SimpleHooks hooks)
    : Screen("Simple", kTitle, context),
      messages_(messages),
      advanced_(advanced),
      bar_(bar),
      pump_(pump),
      hooks_(std::move(hooks)) {
  for (int slot = 0; slot < kSlotCount; ++slot) addButton(kButton, ChooserCaption(slot), slot);
  addButton(kButton, kCalculateCaption, kCalculateButton);
}

void Simple::load(std::span<const BarLink> links) {
  run(hooks_.clearComputedComponents);
  run(hooks_.loadPictures);
  bar_.initialise_toolbar(kToolbarDesign, kToolbarShort);
  bar_.set_status("Ready");
  bar_.setweblinks("wwwlinks_bm", links);
  bar_.setmenu();
}

void Simple::unload() {
  run(hooks_.saveWindowPosition);
  run(hooks_.closeConnection);
  run(hooks_.unloadOtherScreens);
  visible(false);
}

void Simple::emergency_quit() {
  unload();
  run(hooks_.stopProcess);
}

void Simple::enableMainButton(int index, bool enabled) {
  CommandButton* button = index < 0 ? nullptr : findButton(kButton, index);
  if (button == nullptr) return;
  button->enabled = enabled;
  notifyLayoutChanged();
}

void Simple::MainButton_Click(int index) {
  const CommandButton* button = index < 0 ? nullptr : findButton(kButton, index);
  if (button == nullptr || !button->enabled) return;
  if (hooks_.isBusy && hooks_.isBusy()) return;
  if (index == kCalculateButton) {
    calculate_simple(true, true, true, true);
  } else if (hooks_.startBrowser) {
    hooks_.startBrowser(index, ChooserCaption(index), bar_.GetInfo(index));
  }
}

bool Simple::step(bool wanted, const std::function<bool()>& hook) {
  if (!wanted || !hook) return true;
  ++steps_begun_;
  return hook();
}

bool Simple::calculate_simple(bool operating_points, bool inductors, bool transformer,
                              bool components) {
  run(hooks_.configure_enforcesettings);
  steps_begun_ = 0;
  const bool succeeded = runChain(operating_points, inductors, transformer, components);
  steps_begun_ = 0;
  return succeeded;
}

bool Simple::runChain(bool operating_points, bool inductors, bool transformer, bool components) {
  if (!step(operating_points, hooks_.calculateOperatingPoints)) return false;
  if (!step(inductors, hooks_.calculateInductors)) return false;
  if (!step(transformer, hooks_.calculateTransformer)) return false;
  if (!components || !advanced_.says_yes("allow_cc")) return true;
  return step(true, hooks_.resetCalculator) && step(true, hooks_.calculateComponents);
}

void Simple::ShowAdvancedScreen() {
  advanced_.visible(true);
  visible(false);
}

void Simple::ShowSimpleScreen() {
  visible(true);
  advanced_.visible(false);
}

// The walk through all combinations

/// Selects the first item from `position` on that can be selected. The walk keeps its own place in
/// each list, since a calculation may select another configuration meanwhile.
bool Simple::selectFrom(int slot, int position) {
  bar_.RefreshSelector(slot);
  int& place = walk_[static_cast<std::size_t>(slot)];
  // A busy run takes no selection, this one included; nobody else gets a turn in between.
  if (hooks_.setBusy) hooks_.setBusy(false);
  bool selected = false;
  for (place = position; bar_.DetailsSetListIndex(place, slot); ++place) {
    selected = bar_.SelectItemFromPulldown(slot);
    if (selected) break;
  }
  if (hooks_.setBusy) hooks_.setBusy(true);
  return selected;
}

/// Moves the fastest slot that has a further item, and takes all faster ones back to their first. A
/// slot that has nothing to offer keeps what it has.
bool Simple::advanceSelection() {
  for (int slot = kSlotCount - 1; slot >= 0; --slot) {
    if (!selectFrom(slot, walk_[static_cast<std::size_t>(slot)] + 1)) continue;
    for (int faster = slot + 1; faster < kSlotCount; ++faster) selectFrom(faster, 0);
    return true;
  }
  return false;
}

bool Simple::walkCombinations() {
  for (int slot = 0; slot < kSlotCount; ++slot) selectFrom(slot, 0);
  do {
    const bool succeeded = calculate_simple(true, true, true, true);
    if (onTested) onTested(succeeded);
    run(hooks_.stillTesting);
    pump_.yield();
    if (test_cancelled_) return false;
    if (!succeeded) {
      messages_.messageBox(kTitle, "Failed calculation!", kSeverityWarning);
      run(hooks_.refresh);
    }
  } while (advanceSelection());
  return true;
}

bool Simple::TestAllCalculations() {
  test_cancelled_ = false;
  testing_ = true;
  if (hooks_.setBusy) hooks_.setBusy(true);
  run(hooks_.startTest);
  const bool finished = walkCombinations();
  run(hooks_.finishTest);
  if (hooks_.setBusy) hooks_.setBusy(false);
  testing_ = false;
  if (finished) messages_.messageBox(kTitle, "Finished test OK", kSeverityInformation);
  return finished;
}

}  // namespace vantrel
