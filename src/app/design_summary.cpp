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

struct Winding {
  const char* name;
  int index;
};

std::string field_text(Screen& screen, const char* name, int index) {
  const VTLValue& field = screen.field(name, index);
  return trimmed(field.DisplayText() + " " + field.UnitText());
}

std::string inductor_lines(Session& session) {
  Inductor& inductor = session.inductor();
  std::string lines;
  for (const Winding& winding : {Winding{"LRES", 0}, Winding{"LPFC", 1}}) {
    if (inductor.field("ind_numberofturns", winding.index).IsItEmpty()) continue;
    lines += fmt::format("  {:<6}{} on {}, gap {}, {} turns, wire {}, {}\n", winding.name,
                         field_text(inductor, "ind_inductance", winding.index),
                         shown_core(*inductor.findPullDown("ind_comboCore", winding.index)),
                         field_text(inductor, "ind_gapsize", winding.index),
                         field_text(inductor, "ind_numberofturns", winding.index),
                         field_text(inductor, "ind_primarydiameter", winding.index),
                         field_text(inductor, "ind_peakfluxdensity", winding.index));
  }
  return lines;
}

std::string transformer_lines(Session& session) {
  Transformer& transformer = session.transformer();
  if (transformer.field("tfr_primaryturns").IsItEmpty()) return {};
  return fmt::format("  TR    {} on {}, wire {} and {}\n",
                     transformer.field("tfr_BOMValue").DisplayText(),
                     shown_core(*transformer.findPullDown("tfr_ComboCore")),
                     field_text(transformer, "tfr_primarydiameter", -1),
                     field_text(transformer, "tfr_secondarydiameter", -1));
}

std::string magnetics_lines(Session& session) {
  const std::string lines = inductor_lines(session) + transformer_lines(session);
  return lines.empty() ? lines : "\nMagnetics\n" + lines;
}

/// Cuts a text that a column cannot hold.
std::string fitted(const std::string& text, std::size_t width) {
  return text.size() <= width ? text : text.substr(0, width - 2) + "..";
}

std::string bill_lines(Session& session) {
  const auto& records = session.bomStore().BomComponents();
  if (records.empty()) return {};
  std::string lines =
      fmt::format("\nBill of materials ({} components)\n", session.bomStore().BomStages().size());
  for (const BillRecord& record : records) {
    lines += fmt::format("  {:>2} {:<24}{:<14}{:<14}{}\n", record.qty, fitted(record.type, 23),
                         fitted(record.value, 13), fitted(record.rating, 13), record.reference);
  }
  return lines;
}

}  // namespace

std::string design_summary(Session& session) {
  std::string text = selection_lines(session);
  for (const Section& section : sections()) text += section_lines(session, section);
  return text + magnetics_lines(session) + bill_lines(session);
}

}  // namespace vantrel
