// Time of a component calculation: 80 components, 400 rules.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "components/calculator.h"
#include "core/plain_ports.h"

namespace {

using namespace vantrel;

constexpr int kComponents = 80;
constexpr int kRulesEach = 5;
constexpr int kInputs = 20;

class CountedBill : public BillStore {
 public:
  void clear() override { count = 0; }
  void add(std::string_view, std::string_view, std::string_view, std::string_view,
           std::string_view) override {
    ++count;
  }
  int count = 0;
};

std::string schema() {
  std::ifstream file(VANTREL_SCHEMA_FILE, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// Component i is the quotient of the components before it, so that a calculation takes passes; of
/// its rules one fits, the others are for other ICs. Every tenth rule is read for all components.
std::string rows() {
  std::ostringstream sql;
  sql << "insert into [Target:Info] (TargetNo, target, BOMTable, [IC]) values"
         " (0, 'TV6101', 'TV6101 BOM', 'IC:');";
  for (int i = 0; i < kInputs; ++i) {
    sql << "insert into [CC:SourceVariables] (Variable, Value, ValueUnit) values ('k" << i << "', '"
        << 10 + i << "', 'V');";
  }
  for (int i = 0; i < kComponents; ++i) {
    sql << "insert into [TV6101 BOM] (Stage, RefDes, ValueUnit, Rating) values"
           " ('IC:TV6101,IC:TV6103', 'R"
        << i << "', 'Ohm', '0.25 W');"
        << "insert into [ComponentDescriptions] (RefDes, description, MNR) values ('R" << i
        << "', 'Resistor', 1);";
    for (int n = 0; n < kRulesEach; ++n) {
      const bool fits = n == 2;
      const std::string above = i % 8 == 7 ? "k3" : "R" + std::to_string(i + 1);
      sql << "insert into [CC:Calculations] (Calculate, Multiple, Target, Function, V0, V1) values"
             " ('R"
          << i << "', " << ((i + n) % 10 == 0) << ", '"
          << (fits ? "TV6103, TV6101" : "TV610" + std::to_string(n + 4))
          << "', 'component_CRAMP', '" << above << "', 'k" << i % kInputs << "');";
    }
  }
  return sql.str();
}

class Bench {
 public:
  Bench() : file_(std::filesystem::temp_directory_path() / "vantrel-calculator-benchmark.mdb") {
    std::filesystem::remove(file_);
    ready_ = database_.create_database(file_) && database_.execute_script(schema()) &&
             database_.execute_script(rows());
    screens_.add(advanced_);
    screens_.add(calculator_);
    calculator_.engine().useTargets(targets_.TargetFromNumber(0), &targets_.generic());
  }
  ~Bench() { std::filesystem::remove(file_); }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  /// True when every component was calculated and is in the bill.
  bool run() {
    return ready_ && calculator_.CalculateComponents(true, false) && bill_.count == kComponents;
  }

 private:
  std::filesystem::path file_;
  bool ready_ = false;
  SysMsg messages_;
  CalculationLog log_{messages_};
  RunState state_;
  FieldContext fields_{messages_, '.', {}, {}};
  adoaccess_class database_{messages_};
  SelectionDetails details_{database_, messages_, state_};
  MissingFields missing_{messages_};
  ScreenRegistry screens_;
  Advanced advanced_{fields_,
                     state_,
                     {.itemName = [](int) { return std::string(); },
                      .heatingMode = [] { return std::string(kCurrentMode); }}};
  TargetFactory targets_{messages_, state_};
  ProgressScreen progress_{std::make_unique<ManualTimer>(), {}};
  InputLoader loader_{database_, messages_, details_, state_, screens_, missing_};
  CountedBill bill_;
  Calculator calculator_{fields_,
                         {database_, messages_, log_, details_, state_, screens_, missing_,
                          advanced_, targets_, progress_},
                         loader_,
                         bill_};
};

void calculate_components(benchmark::State& state) {
  Bench bench;
  for (auto step : state) {
    if (!bench.run()) state.SkipWithError("the calculation failed");
  }
}
BENCHMARK(calculate_components)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
