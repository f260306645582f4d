#include "calculator_fixture.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "operating/targets/component_entry.h"

namespace vantrel::test {

namespace {

std::string schema() {
  std::ifstream file(VANTREL_SCHEMA_FILE, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

double sum(double a, double b) { return a + b; }
double special_of_chip(double a) { return 7.0 * a / a; }
std::int32_t special_of_any(const Variant& /*a*/) { return 9; }
double divide(double a, double b) { return a / b; }
Variant full() { return Variant::Array{kTagValue, 3.3, kTagRating, "5 W", kTagTolerance, "1 %"}; }
Variant rate() { return rating_result("2 A"); }
Variant part() { return "Chip 7"; }
Variant tenth() { return 0.1F; }
Variant truth() { return true; }
Variant bad_rating() { return Variant::Array{kTagValue, 1.0, kTagRating, 5.0}; }
Variant bad_tolerance() { return Variant::Array{kTagTolerance, 5.0}; }
Variant bad_tag() { return Variant::Array{std::int16_t{3}, "x"}; }

constexpr ComponentEntry kChip[] = {trapped<sum>("chip_sum"), plain<special_of_chip>("special")};

constexpr ComponentEntry kAny[] = {
    trapped<special_of_any>("special"),
    trapped<divide>("divide"),
    trapped<full>("full"),
    trapped<rate>("rate"),
    trapped<part>("part"),
    trapped<tenth>("tenth"),
    trapped<truth>("truth"),
    trapped<bad_rating>("bad_rating"),
    trapped<bad_tolerance>("bad_tolerance"),
    trapped<bad_tag>("bad_tag"),
};

}  // namespace

CalculatorTest::CalculatorTest() : chip("Chip", {}, kChip), any("Any", {}, kAny) {
  // Nothing here outlives its test, so no write has to reach the disk.
  database.create_database(folder.path() / "VTL.mdb");
  database.execute("pragma synchronous = off");
  if (!database.execute_script(schema())) {
    throw std::runtime_error("no database: " + database.last_error());
  }
  insert("Target:Info", {{"TargetNo", 0}, {"target", "TV6101"}, {"BOMTable", "TV6101 BOM"}});
  insert("Target:Info",
         {{"TargetNo", 1}, {"target", "TV6103"}, {"BOMTable", "TV6103 BOM"}, {"IC", "IC:"}});
  state.CurrentTarget = 1;
  screens.add(advanced);
  screens.add(calculator);
  advanced.field("line_input_schematic").SetValue("ActivePFC");
  advanced.field("allow_cc").SetValue("yes");
  calculator.engine().useTargets(&chip, &any);
  log.keepLines(true);
}

void CalculatorTest::insert(const std::string& table, const Row& row) {
  std::string columns, marks;
  std::vector<Variant> values;
  for (const auto& [column, value] : row) {
    columns += (columns.empty() ? "[" : ", [") + column + "]";
    marks += marks.empty() ? "?" : ", ?";
    values.push_back(value);
  }
  std::int32_t affected = 0;
  database.execute("insert into [" + table + "] (" + columns + ") values (" + marks + ")", values,
                   &affected);
  ASSERT_EQ(affected, 1) << table << ": " << database.last_error();
}

void CalculatorTest::component(const std::string& references, Row row) {
  row.insert(row.begin(), {"RefDes", references});
  bool staged = false;
  for (const auto& [column, value] : row) staged = staged || column == "Stage";
  if (!staged) row.push_back({"Stage", "IC:TV6103"});
  insert("TV6103 BOM", row);
}

void CalculatorTest::describe(const std::string& reference, Row row) {
  row.insert(row.begin(), {"RefDes", reference});
  bool described = false;
  for (const auto& [column, value] : row) described = described || column == "description";
  if (!described) row.push_back({"description", "Resistor"});
  insert("ComponentDescriptions", row);
}

void CalculatorTest::rule(const std::string& variable, Row row) {
  row.insert(row.begin(), {"Calculate", variable});
  insert("CC:Calculations", row);
}

void CalculatorTest::callRule(const std::string& variable, const std::string& function,
                              const std::vector<std::string>& parameters, Row row) {
  row.push_back({"Function", function});
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    row.push_back({"V" + std::to_string(i), parameters[i]});
  }
  rule(variable, row);
}

void CalculatorTest::constant(const std::string& name, const std::string& value) {
  insert("CC:SourceVariables", {{"Variable", name}, {"Value", value}, {"ValueUnit", "V"}});
}

void CalculatorTest::target(const Row& row) {
  for (const auto& [column, value] : row) {
    database.execute("update [Target:Info] set [" + column + "] = ? where [TargetNo] = 1", {value});
  }
}

Texts CalculatorTest::logFrom(const std::string& from) const {
  const Texts& lines = log.lines();
  const auto first = std::find(lines.begin(), lines.end(), from);
  return {first, lines.end()};
}

bool CalculatorTest::logged(const std::string& line) const { return !logFrom(line).empty(); }

Texts CalculatorTest::takeMessages() {
  Texts result = texts(messages);
  messages.clear();
  return result;
}

VariableEntry CalculatorTest::variable(const std::string& name) {
  const VariableClass& variables = calculator.engine().variables();
  const std::int32_t index = variables.GetVariableEntryNumber(name);
  if (index >= 0) return variables.entries()[static_cast<std::size_t>(index)];
  ADD_FAILURE() << "no variable " << name;
  return {};
}

std::string CalculatorTest::value(const std::string& name) {
  const Variant found = variable(name).value;
  return found.is_empty() ? "Empty" : std::string(found.type_name()) + " " + to_text(found);
}

Texts CalculatorTest::names() {
  Texts result;
  for (const VariableEntry& entry : calculator.engine().variables().entries()) {
    result.push_back(entry.variablename);
  }
  return result;
}

}  // namespace vantrel::test
