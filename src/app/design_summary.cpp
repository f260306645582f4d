#include "app/design_summary.h"

#include <fmt/format.h>

#include <array>
#include <span>
#include <vector>

#include "core/text_parsing.h"
#include "selection/slots.h"

namespace vantrel {

namespace {

struct Section {
  const char* title;
  std::vector<const char*> frames;
};

const std::vector<Section>& sections() {
  static const std::vector<Section> table{
      {"Lamp", {"frame_run", "frame_dimming", "frame_preheat", "frame_ignition"}},
      {"Supply", {"frame_line_voltage", "frame_bus_voltage", "frame_frequency"}},
      {"Resonant tank", {"frame_tank_components"}},
      {"Operating points", {"frame_operating_points", "frame_phase_angle"}},
      {"PFC stage", {"frame_pfc_components", "frame_pfc_input_power", "frame_pfc_ontime"}},
  };
  return table;
}

std::string selection_lines(Session& session) {
  constexpr std::array<const char*, kSlotCount> labels{"Control IC", "Line input", "Lamp",
                                                       "Configuration"};
  std::string text = "Selection\n";
  for (int slot = 0; slot < kSlotCount; ++slot) {
    text += fmt::format("  {:<28}{}\n", labels[static_cast<std::size_t>(slot)],
                        session.selectionFullName(slot));
  }
  return text;
}

std::string section_lines(Session& session, const Section& section) {
  std::string lines;
  for (const char* frame : section.frames) {
    if (!session.advanced().isFrameInLayout(frame)) continue;
    for (const auto& field : session.advanced().fields()) {
      if (!equal_ignoring_case(field->FrameName(), frame)) continue;
      if (!field->Visible() || field->IsItEmpty()) continue;
      lines +=
          fmt::format("  {:<28}{:>10} {}{}\n", trimmed(field->ValueLabel()), field->DisplayText(),
                      field->UnitText(), field->IsFixed() ? "  (fixed)" : "");
    }
  }
  return lines.empty() ? lines : std::string("\n") + section.title + "\n" + lines;
}

}  // namespace

std::string design_summary(Session& session) {
  std::string text = selection_lines(session);
  for (const Section& section : sections()) text += section_lines(session, section);
  return text;
}

}  // namespace vantrel
