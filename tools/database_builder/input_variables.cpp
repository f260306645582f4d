#include "database_builder/input_variables.h"

#include <algorithm>
#include <array>

#include "core/text_parsing.h"

namespace vantrel::builder {

namespace {

constexpr std::string_view kDesignScreen = "Advanced";
constexpr std::string_view kCalculator = "Calculator";
/// Screens whose fields hold what a component calculation may need.
constexpr std::array<std::string_view, 4> kScreens{kDesignScreen, kCalculator, "Inductor",
                                                   "Transformer"};

bool is_screen(std::string_view name) {
  return std::ranges::any_of(
      kScreens, [&](std::string_view screen) { return equal_ignoring_case(screen, name); });
}

}  // namespace

InputVariables::InputVariables(const SourceTables& tables)
    : table_(tables.find("CC:SourceVariables")), loads_(tables.find("LoadInputs")) {
  if (table_ == nullptr) return;
  for (const SourceRow& row : table_->rows) {
    const auto parts = list_entries(table_->text(row, "Source"));
    Source source;
    if (parts.size() == 2) source = {parts[0], parts[1]};
    sources_.emplace(table_->text(row, "Variable"), source);
  }
}

bool InputVariables::filled(std::string_view name, const Combination& combination) const {
  const auto found = sources_.find(name);
  if (found == sources_.end()) return false;
  const Source& source = found->second;
  return !equal_ignoring_case(source.screen, kCalculator) || loaded(source.field, combination.ic);
}

bool InputVariables::loaded(const std::string& field, const std::string& ic) const {
  if (loads_ == nullptr) return false;
  return std::ranges::any_of(loads_->rows, [&](const SourceRow& row) {
    const auto targets = list_entries(loads_->text(row, "target"));
    return equal_ignoring_case(loads_->text(row, "Destination"), kCalculator) &&
           equal_ignoring_case(loads_->text(row, "DestinationField"), field) &&
           std::ranges::any_of(
               targets, [&](const std::string& entry) { return entry == "*" || entry == ic; });
  });
}

std::string InputVariables::fault(const SourceRow& row, const Vocabulary& vocabulary) const {
  const std::string text = table_->text(row, "Source");
  if (text.empty()) {
    return table_->text(row, "Value").empty() ? "has neither a source nor a value" : "";
  }
  const auto parts = list_entries(text);
  if (parts.size() != 2) return "Source '" + text + "' is not a screen and a field";
  if (!is_screen(parts[0])) return "Source '" + text + "' names no screen";
  if (equal_ignoring_case(parts[0], kDesignScreen) && vocabulary.field(parts[1]) == nullptr) {
    return "Source '" + text + "' names no field of the design screen";
  }
  return "";
}

void InputVariables::check(const Vocabulary& vocabulary, Problems& problems) const {
  if (table_ == nullptr) return;
  std::map<std::string, int> lines;
  for (const SourceRow& row : table_->rows) {
    const std::string name = table_->text(row, "Variable");
    const auto [earlier, is_new] = lines.emplace(name, row.line);
    if (!is_new) {
      problems.add(table_->file, row.line,
                   "variable '" + name + "' is given by line " + std::to_string(earlier->second));
    }
    const std::string text = fault(row, vocabulary);
    if (!text.empty()) problems.add(table_->file, row.line, text);
  }
}

}  // namespace vantrel::builder
