#include "components/rule_table.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "components/design_rows.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

/// Positions of the columns, looked up once for all rows; -1 for a column that the table lacks.
struct Columns {
  explicit Columns(const RecordSet& rows)
      : calculate(rows.fieldIndex("Calculate")),
        multiple(rows.fieldIndex("Multiple")),
        input(rows.fieldIndex("Input")),
        target(rows.fieldIndex("Target")),
        config(rows.fieldIndex("Config")),
        function(rows.fieldIndex("Function")),
        functionisvar(rows.fieldIndex("functionisvar")),
        set_value_directly(rows.fieldIndex("SetValueDirectly")) {
    int position = rows.fieldIndex("V0");
    while (position >= 0) {
      parameters.push_back(position);
      position = rows.fieldIndex("V" + std::to_string(parameters.size()));
    }
  }

  int calculate, multiple, input, target, config, function, functionisvar, set_value_directly;
  std::vector<int> parameters;
};

const Variant& cell(const RecordSet& rows, int position) {
  static const Variant none;
  return position < 0 ? none : rows.at(static_cast<std::size_t>(position));
}

std::string cell_text(const RecordSet& rows, int position) {
  return NullToText(cell(rows, position));
}

RuleRow read_rule(const RecordSet& rows, const Columns& columns) {
  RuleRow rule;
  const Variant& calculate = cell(rows, columns.calculate);
  rule.calculate = calculate.is_null() ? std::string() : to_text(calculate);
  rule.variables = entries_of(rule.calculate, ',');
  rule.multiple = flag_value(cell(rows, columns.multiple));
  rule.input = cell_text(rows, columns.input);
  rule.target = cell_text(rows, columns.target);
  rule.config = cell_text(rows, columns.config);
  rule.function = cell_text(rows, columns.function);
  rule.functionisvar = flag_value(cell(rows, columns.functionisvar));
  rule.set_value_directly = flag_value(cell(rows, columns.set_value_directly));
  for (const int position : columns.parameters) {
    std::string parameter = cell_text(rows, position);
    if (parameter.empty()) break;
    rule.parameters.push_back(std::move(parameter));
  }
  return rule;
}

}  // namespace

bool RuleRow::interpolates() const { return lower(function) == "interpolatevalue"; }

std::string comma_list(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + text;
  return result;
}

RuleTable::RuleTable(RecordSet& rows) {
  const Columns columns(rows);
  for (rows.MoveFirst(); adoaccess_class::RSOK(rows); rows.MoveNext()) {
    const std::size_t place = rules_.size();
    const RuleRow& rule = rules_.emplace_back(read_rule(rows, columns));
    if (rule.multiple) {
      multiples_.push_back(place);
    } else {
      by_name_[rule.calculate].push_back(place);
    }
  }
}

RuleCursor RuleTable::find(std::string_view name) const {
  static const std::vector<std::size_t> none;
  const auto found = by_name_.find(std::string(name));
  const std::vector<std::size_t>& own = found == by_name_.end() ? none : found->second;
  std::vector<std::size_t> places;
  std::merge(own.begin(), own.end(), multiples_.begin(), multiples_.end(),
             std::back_inserter(places));
  std::vector<const RuleRow*> rows;
  rows.reserve(places.size());
  for (const std::size_t place : places) rows.push_back(&rules_[place]);
  return RuleCursor(std::move(rows));
}

}  // namespace vantrel
