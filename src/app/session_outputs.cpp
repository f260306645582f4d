// The output windows of a session: what they need of the other parts, and when they open.

#include <array>

#include "app/print_jobs.h"
#include "app/session.h"

namespace vantrel {

BillHooks Session::billHooks() {
  BillHooks hooks;
  hooks.targetName = [this] { return to_text(details_.TargetDetails(kTargetName)); };
  hooks.calculate_simple = [this] { return simple_.calculate_simple(true, true, true, true); };
  hooks.highlight = [this](const std::vector<std::string>& references) {
    if (images_.isSchematicDisplayed()) images_.StartHighlight(references);
  };
  hooks.print = [this](const TableGrid& grid) { printing_.print_table(grid, bill_.caption()); };
  return hooks;
}

ImageHooks Session::imageHooks() {
  ImageHooks hooks;
  hooks.targetName = [this] { return to_text(details_.TargetDetails(kTargetName)); };
  hooks.configName = [this] { return details_.ConfigDetails(kConfigShortCode); };
  hooks.calculate_simple = [this] { return simple_.calculate_simple(true, true, true, true); };
  hooks.print = [this](const Picture& picture) { printing_.print_picture(picture); };
  hooks.export_gerber = [this] { board_.export_gerber(); };
  hooks.export_layers = [this] { board_.export_layers(); };
  hooks.writePicture = [this](const auto& file, const Picture& picture) {
    return writePicture(file, picture);
  };
  hooks.makeTimer = ports_.makeTimer;
  hooks.clock = &ports_.clock;
  return hooks;
}

ValidateHooks Session::validateHooks() {
  ValidateHooks hooks;
  hooks.isSchematicDisplayed = [this] { return images_.isSchematicDisplayed(); };
  hooks.schematicFile = [this] { return images_.schematicFile(); };
  hooks.targetName = [this] { return to_text(details_.TargetDetails(kTargetName)); };
  hooks.inputName = [this] { return to_text(advanced_.field("line_input_schematic").value()); };
  hooks.configName = [this] { return details_.ConfigDetails(kConfigShortCode); };
  hooks.isBillVisible = [this] { return bill_.visible(); };
  hooks.highlightOnSchematic = [this](const std::string& reference) {
    images_.StartHighlight(reference);
  };
  hooks.highlightInBill = [this](const std::string& reference) {
    call_view(views_.markInBill, reference);
  };
  return hooks;
}

void Session::printScreen(std::string_view screen) {
  if (const auto job = print_job(*this, screen)) printing_.output(*job);
}

void Session::showGraph() {
  drawGraph();
  graph_operating_points_.visible(true);
}

void Session::drawGraph() {
  graph_operating_points_.caption(graph_op_.caption());
  graph_operating_points_.notifyLayoutChanged();
}

void Session::showTimeDomain() {
  if (calculateUnlessBusy([this] { return time_domain_form_.Generate(); })) {
    time_domain_form_.DrawGraph();
  }
  graph_time_domain_.visible(true);
}

void Session::openFollowUps() {
  // A circuit without any component has nothing to show; its windows would ask to calculate again.
  if (bom_store_.isEmpty()) return;
  struct FollowUp {
    const char* option;
    std::function<void()> open;
  };
  const std::array<FollowUp, 6> follow_ups{{
      {"display_schematic", [this] { images_.show_schematic(); }},
      {"display_transformer", [this] { images_.show_transformer(); }},
      {"display_lres", [this] { images_.show_lres(); }},
      {"display_pfc",
       [this] {
         if (advanced_.says_yes("line_input_pfc")) {
           images_.show_pfc();
         } else if (images_.visible() && images_.shortName() == ImageDisplay::kPfc) {
           images_.visible(false);
         }
       }},
      {"display_bom", [this] { bill_.setup_bom(); }},
      {"display_graph_td_after_calculate", [this] { showTimeDomain(); }},
  }};
  for (const FollowUp& row : follow_ups) {
    if (options_.isChecked(row.option)) row.open();
  }
}

}  // namespace vantrel
