// The first sections of the design report: what was asked for and what came of it.

#include <algorithm>
#include <array>
#include <initializer_list>

#include "app/file_hash.h"
#include "app/report_sections.h"
#include "app/result_summary.h"
#include "app/selected_inputs.h"
#include "app/version.h"
#include "core/text_parsing.h"
#include "operating/advanced_fields.h"
#include "selection/slots.h"
#include "waveforms/operating_points_graph_inputs.h"

namespace vantrel {

namespace {

constexpr std::array<const char*, kSlotCount> kSlotTitles{"Control IC", "Line input", "Lamp",
                                                          "Configuration"};
constexpr const char* kDatabase = "\\Data\\VTL.mdb";

/// What a message says, without the question at its end, which the reader cannot answer.
std::string plain_text(const std::string& message) {
  std::string text = trimmed(with_line_breaks(message));
  if (text.ends_with('?')) text.resize(std::min(text.rfind("\n\n"), text.size()));
  return trimmed(text);
}

/// The label of a field with single blanks.
std::string label_of(const VTLValue& field) {
  std::string text = trimmed(field.ValueLabel());
  while (text.find("  ") != std::string::npos) text.erase(text.find("  "), 1);
  return text;
}

/// The numbers that tell a design; those of its magnetics where it has no operating points.
std::vector<KeyNumber> key_numbers(Session& session, const DesignStatus& status) {
  std::vector<KeyNumber> numbers = status.keyNumbers();
  if (!numbers.empty()) return numbers;
  for (const auto& column : result_numbers(session)) {
    numbers.insert(numbers.end(), column.begin(), column.end());
  }
  return numbers;
}

void add_outcome(ReportSection& section, const DesignStatus& status) {
  switch (status.state()) {
    case DesignStatus::State::Empty:
      section.add(
          ReportParagraph{"Nothing has been calculated for this selection: this report "
                          "holds the inputs alone.",
                          ReportTone::Warning});
      return;
    case DesignStatus::State::Failed:
      section.add(
          ReportParagraph{"The last calculation ended early, so this design is not complete.\n" +
                              plain_text(status.lastMessage()),
                          ReportTone::Warning});
      break;
    case DesignStatus::State::Stale:
      section.add(ReportParagraph{status.bannerText(), ReportTone::Warning});
      break;
    case DesignStatus::State::Current:
      break;
  }
  const bool told =
      status.state() == DesignStatus::State::Failed && status.warning() == status.lastMessage();
  if (!status.warning().empty() && !told) {
    section.add(ReportParagraph{plain_text(status.warning()), ReportTone::Warning});
  }
}

void add_margins(ReportSection& section, const std::vector<Margin>& margins) {
  if (margins.empty()) return;
  ReportTable table{"Margins", {report_columns({"Margin", ">Value", "Judgement"}), {}}};
  for (const Margin& margin : margins) {
    table.grid.rows.push_back(
        {margin.label, margin.text, margin.kept ? "\u2713 kept" : "\u2717 not kept"});
  }
  section.add(std::move(table));
}

bool all_kept(const std::vector<Margin>& margins) {
  for (const Margin& margin : margins) {
    if (!margin.kept) return false;
  }
  return true;
}

/// The margin that belongs to an operating point; empty when there is none.
std::string margin_of(const OperatingPointRow& point, const std::vector<Margin>& margins) {
  for (const Margin& margin : margins) {
    const bool is_run = margin.label.find(" above Ballast") != std::string::npos;
    const bool belongs = is_run ? point.name == "Run" || point.name.ends_with("%")
                                : margin.label.starts_with(point.name);
    if (belongs && (!is_run || point.name == "Run" || margin.label.starts_with(point.name))) {
      return margin.text + (margin.kept ? "" : " (not kept)");
    }
  }
  return "";
}

/// The results that the layout has, apart from those without a value.
ReportTable results_table(Advanced& advanced) {
  ReportTable table{"Results",
                    {report_columns({"Result", "Group", ">Value", "Unit", "Origin"}), {}}};
  for (const AdvancedFrame& frame : advanced_frames()) {
    if (frame.input || !advanced.isFrameInLayout(frame.name)) continue;
    for (const auto& field : advanced.fields()) {
      if (!equal_ignoring_case(field->FrameName(), frame.name)) continue;
      if (!field->Visible() || field->IsItEmpty()) continue;
      table.grid.rows.push_back({label_of(*field), frame.caption, field->DisplayText(),
                                 field->UnitText(),
                                 field->IsFixed() ? "fixed by the user" : "calculated"});
    }
  }
  return table;
}

}  // namespace

std::vector<TableColumn> report_columns(std::initializer_list<const char*> titles) {
  std::string format;
  for (const char* title : titles) format += (format.empty() ? "" : "|") + std::string(title);
  return table_columns(format);
}

std::string with_unit(const VTLValue& field) {
  return trimmed(field.DisplayText() + " " + field.UnitText());
}

std::vector<std::string> selected_names(Session& session) {
  std::vector<std::string> names;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    std::string name = session.selectionFullName(slot);
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

ReportSection summary_section(Session& session, const DesignStatus& status) {
  ReportSection section{"Summary", {}};
  add_outcome(section, status);
  if (status.state() == DesignStatus::State::Empty) return section;
  const std::vector<Margin> margins = status.margins();
  if (status.state() == DesignStatus::State::Current && status.warning().empty() &&
      all_kept(margins)) {
    section.add(
        ReportParagraph{"The calculation is complete, without a warning.", ReportTone::Good});
  }
  ReportPairs numbers;
  for (const KeyNumber& number : key_numbers(session, status)) {
    numbers.pairs.push_back({number.label, trimmed(number.value + " " + number.unit)});
  }
  const std::string count = status.componentCount();
  if (!count.empty()) numbers.pairs.push_back({"Bill of materials", count});
  if (session.advanced().says_yes("allow_inductor") && !count.empty()) {
    numbers.pairs.push_back(
        {"LRES core", shown_core(*session.inductor().findPullDown("ind_comboCore", 0))});
  }
  if (!numbers.pairs.empty()) section.add(std::move(numbers));
  add_margins(section, margins);
  return section;
}

ReportSection selection_section(Session& session) {
  ReportSection section{"Selection", {}};
  ReportPairs pairs;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const std::string name = session.selectionFullName(slot);
    pairs.pairs.push_back(
        {kSlotTitles[static_cast<std::size_t>(slot)], name.empty() ? "not applicable" : name});
  }
  section.add(std::move(pairs));
  return section;
}

ReportSection inputs_section(Session& session) {
  ReportSection section{"Inputs", {}};
  Advanced& advanced = session.advanced();
  const SelectedInputs selected(session);
  ReportTable table{"Inputs", {report_columns({"Input", "Group", ">Value", "Unit", "Origin"}), {}}};
  for (const AdvancedFrame& frame : advanced_frames()) {
    if (!frame.input || !advanced.isFrameInLayout(frame.name)) continue;
    for (const auto& field : advanced.fields()) {
      if (!equal_ignoring_case(field->FrameName(), frame.name) || !field->Visible()) continue;
      const std::string origin = selected.origin(*field);
      if (field->IsItEmpty() && origin == SelectedInputs::kDefault) continue;
      table.grid.rows.push_back({label_of(*field), frame.caption,
                                 field->IsItEmpty() ? "\u2013" : field->DisplayText(),
                                 field->UnitText(), origin});
    }
  }
  if (table.grid.rows.empty()) return section;
  section.add(ReportParagraph{
      "A default comes from the selected items. What differs from it was set by the user or "
      "adapted by the calculation.",
      ReportTone::Plain});
  section.add(std::move(table));
  return section;
}

ReportSection operating_points_section(Session& session, const DesignStatus& status) {
  ReportSection section{"Operating Points", {}};
  Advanced& advanced = session.advanced();
  const std::vector<OperatingPointRow> points = operating_point_rows(advanced);
  if (!points.empty()) {
    const std::vector<Margin> margins = status.margins();
    ReportTable table{"Operating points",
                      {report_columns({"Operating point", ">Frequency, KHz", ">Gain",
                                       ">Lamp voltage, Vpk", ">Margin"}),
                       {}}};
    for (const OperatingPointRow& point : points) {
      table.grid.rows.push_back(
          {point.name, point.frequency, point.gain, point.lamp_voltage, margin_of(point, margins)});
    }
    section.add(std::move(table));
    section.add(ReportParagraph{
        "Gain is lamp voltage over the half-bridge's first harmonic, whose peak is 2/\u03c0 of "
        "the DC bus. The margins are those of the summary.",
        ReportTone::Plain});
  }
  ReportTable results = results_table(advanced);
  if (!results.grid.rows.empty()) section.add(std::move(results));
  if (section.blocks.empty()) {
    section.add(ReportParagraph{"There are no operating points.", ReportTone::Note});
  }
  return section;
}

ReportSection versions_section(Session& session) {
  ReportSection section{"Versions", {}};
  const auto database = session.folder().find(kDatabase);
  const auto hash = database ? file_hash(*database) : std::nullopt;
  section.add(ReportPairs{{{"Program", "Vantrel " + std::string(kProgramVersion)},
                           {"Design database", name_without_path(kDatabase)},
                           {"SHA-256 of the database", hash.value_or("The file cannot be read")}}});
  return section;
}

}  // namespace vantrel
