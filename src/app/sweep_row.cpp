#include "app/sweep_row.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "core/number_text.h"
#include "outputs/table_export.h"

namespace vantrel {

namespace {

struct ResultColumn {
  const char* title;
  const char* field;  ///< Of `Advanced`; a column is in the unit that the field is declared with.
};

constexpr ResultColumn kResults[] = {
    {"L (mH)", "LValue"},
    {"C (nF)", "CValue"},
    {"Run (Hz)", "run_frequency"},
    {"Preheat (Hz)", "preheat_frequency"},
    {"Ignition (Hz)", "ignition_frequency"},
    {"PFC inductor (mH)", "pfc_inductor"},
    {"PFC current (Apk)", "max_pfc_current"},
};

constexpr const char* kTitlesBefore[] = {"Key",           "IC",      "Line input", "Lamp",
                                         "Configuration", "Success", "Message"};
constexpr const char* kTitlesBehind[] = {"LRES core", "LPFC core", "Transformer core",
                                         "Components"};
constexpr const char* kTimeTitle = "Time (us)";

/// A row is one line, so that a file that was cut off can be mended.
std::string csv_line(std::vector<std::string> cells) {
  for (std::string& cell : cells) {
    std::ranges::replace_if(
        cell, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  }
  return table_row_text(cells, TableFileType::Csv);
}

std::string number_cell(const VTLValue& field) {
  return field.value().is_numeric() ? general_text(to_double(field.value())) : std::string();
}

}  // namespace

std::string sweep_header(bool timed) {
  std::vector<std::string> titles(std::begin(kTitlesBefore), std::end(kTitlesBefore));
  for (const ResultColumn& column : kResults) titles.emplace_back(column.title);
  titles.insert(titles.end(), std::begin(kTitlesBehind), std::end(kTitlesBehind));
  if (timed) titles.emplace_back(kTimeTitle);
  return csv_line(std::move(titles));
}

SweepDesigner::SweepDesigner(Session& session, const SweepPlan& plan, bool timed)
    : session_(session), plan_(plan), timed_(timed) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    start_[static_cast<std::size_t>(slot)] = session_.browser().GetInfo(slot);
  }
}

/// All four slots are selected in their order, so no slot needs to give up what another rules out.
bool SweepDesigner::select(const Combination& combination) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const std::int32_t id = combination[static_cast<std::size_t>(slot)];
    if (!session_.browser().ItemSelect(true, slot, id, false, false, true)) return false;
  }
  return true;
}

/// A chain that ends early leaves the designers behind it as they were.
void SweepDesigner::clearMagnetics() {
  Inductor& inductor = session_.inductor();
  for (int index = 0; index < kInductorCount; ++index) inductor.ClearInductorOutputs(index);
  show_core(*session_.transformer().findPullDown("tfr_ComboCore"), "");
}

bool SweepDesigner::design(const Combination& combination, std::int64_t& microseconds) {
  session_.messages().clear();
  session_.log().clearLines();
  clearMagnetics();
  if (!select(start_) || !select(combination)) {
    session_.messages().messageBox("", "The selection has been refused");
    return false;
  }
  const auto begin = std::chrono::steady_clock::now();
  const bool done = session_.simple().calculate_simple(true, true, true, true);
  const auto spent = std::chrono::steady_clock::now() - begin;
  microseconds = std::chrono::duration_cast<std::chrono::microseconds>(spent).count();
  return done;
}

std::string SweepDesigner::messages() const {
  std::string joined;
  for (const Message& message : session_.messages().shown()) {
    joined += (joined.empty() ? "" : " | ") + with_line_breaks(message.text);
  }
  return joined;
}

std::string SweepDesigner::row(const Combination& combination) {
  std::int64_t microseconds = 0;
  const bool done = design(combination, microseconds);
  std::vector<std::string> cells{combination_key(combination)};
  for (std::size_t slot = 0; slot < combination.size(); ++slot) {
    cells.push_back(plan_.names[slot].at(combination[slot]));
  }
  cells.emplace_back(done ? "yes" : "no");
  cells.push_back(messages());
  for (const ResultColumn& column : kResults) {
    cells.push_back(number_cell(session_.advanced().field(column.field)));
  }
  for (int index = 0; index < kInductorCount; ++index) {
    cells.push_back(shown_core(*session_.inductor().findPullDown("ind_comboCore", index)));
  }
  cells.push_back(shown_core(*session_.transformer().findPullDown("tfr_ComboCore")));
  cells.push_back(std::to_string(session_.bomStore().BomStages().size()));
  if (timed_) cells.push_back(std::to_string(microseconds));
  return csv_line(std::move(cells));
}

}  // namespace vantrel
