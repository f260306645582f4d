#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "components/calculator.h"
#include "core/plain_ports.h"
#include "support/fixtures.h"

namespace vantrel::test {

using Texts = std::vector<std::string>;
/// Columns of a row by name.
using Row = std::vector<std::pair<std::string, Variant>>;

/// A bill that keeps what it is given as "type | value | rating | tolerance | reference".
class RecordedBill : public BillStore {
 public:
  void clear() override {
    ++clears;
    lines.clear();
  }
  void add(std::string_view type, std::string_view value, std::string_view rating,
           std::string_view tolerance, std::string_view reference) override {
    std::string line(type);
    for (const std::string_view cell : {value, rating, tolerance, reference}) {
      line += " | " + std::string(cell);
    }
    lines.push_back(line);
  }
  int clears = 0;
  Texts lines;
};

/// The component calculator on a database of its own: the shipped schema, two ICs, and what a test
/// adds. Its target "Chip" and its generic target "Any" answer to functions of the tests alone, so
/// that every number can be worked out in the head:
///
///     on   function      result
///     Chip chip_sum(a,b) value a + b
///     Chip special(a)    value 7, fails as a call when a is 0
///     Any  special(a)    value 9
///     Any  divide(a,b)   value a / b; traps its own failure
///     Any  full()        value 3.3, rating "5 W", tolerance "1 %"
///     Any  rate()        rating "2 A" alone
///     Any  part()        the bare text "Chip 7"
///     Any  tenth()       the bare 32-bit number 0.1
///     Any  truth()       a bare Boolean
///     Any  bad_rating(), bad_tolerance(), bad_tag()   faulty arrays
class CalculatorTest : public ::testing::Test {
 protected:
  CalculatorTest();

  void insert(const std::string& table, const Row& row);
  /// A row of the IC's component table; its stage is "IC:TV6103" and its descriptions are made.
  void component(const std::string& references, Row row = {});
  void describe(const std::string& reference, Row row = {});
  void rule(const std::string& variable, Row row);
  /// A rule that calls `function` on the named variables.
  void callRule(const std::string& variable, const std::string& function,
                const std::vector<std::string>& parameters, Row row = {});
  /// A variable that the rules may read: a constant without unit prefix.
  void constant(const std::string& name, const std::string& value);
  void target(const Row& row);

  /// A full calculation.
  bool run() { return calculator.CalculateComponents(true, false); }
  /// The log from the first line that is `from`, up to its end.
  Texts logFrom(const std::string& from) const;
  bool logged(const std::string& line) const;
  /// The texts of all messages since the last call.
  Texts takeMessages();
  /// The variable of that name; a failure and an empty one when there is none.
  VariableEntry variable(const std::string& name);
  /// Type and text of its value: "Double 0.5".
  std::string value(const std::string& name);
  Texts names();

  TemporaryFolder folder;
  SysMsg messages;
  CalculationLog log{messages};
  RunState state;
  adoaccess_class database{messages};
  SelectionDetails details{database, messages, state};
  MissingFields missing{messages};
  FieldContext fields{messages, '.', {}, {}};
  ScreenRegistry screens;
  Advanced advanced{fields,
                    state,
                    {.itemName = [](int) { return std::string(); },
                     .heatingMode = [] { return std::string(kCurrentMode); }}};
  TargetFactory targets{messages, state};
  int follow_ups = 0;
  ManualTimer* timer = new ManualTimer;  // owned by `progress`
  ProgressScreen progress{std::unique_ptr<Timer>(timer), [this] { ++follow_ups; }};
  InputLoader loader{database, messages, details, state, screens, missing};
  RecordedBill bill;
  bool inductors_designed = true;
  int designs = 0;
  Calculator calculator{
      fields,
      {database, messages, log, details, state, screens, missing, advanced, targets, progress},
      loader,
      bill,
      {.designInductors =
           [this] {
             ++designs;
             return inductors_designed;
           },
       .designTransformer =
           [this] {
             ++designs;
             return true;
           }}};
  // Both hold views of tables that live as long as the program.
  const Target chip;
  const Target any;
};

}  // namespace vantrel::test
