#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>

#include "app/session.h"
#include "core/plain_ports.h"
#include "source_folder.h"

namespace vantrel::builder {
namespace {

std::string read_file(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Rows of the guide's example by file: the blocks that begin with "```csv <file>".
std::map<std::string, std::string> example_rows() {
  std::map<std::string, std::string> rows;
  std::istringstream guide(read_file(VANTREL_RULES_GUIDE));
  std::string file;
  for (std::string line; std::getline(guide, line);) {
    if (line.starts_with("```csv ")) {
      file = line.substr(7);
    } else if (line == "```") {
      file.clear();
    } else if (!file.empty()) {
      rows[file] += line + "\n";
    }
  }
  return rows;
}

/// The shipped tables, which a test may add rows to.
class RulesExample : public testing::Test {
 protected:
  RulesExample() {
    for (const auto& entry : std::filesystem::directory_iterator(VANTREL_DATA)) {
      if (entry.path().extension() == ".csv") {
        folder_.add(entry.path().filename(), read_file(entry.path()));
      }
    }
    for (const auto& [file, rows] : example_rows()) folder_.file(file) += rows;
  }

  SourceFolder folder_;
};

TEST_F(RulesExample, AddsALampAnInputAndAComponent) {
  EXPECT_EQ(example_rows().size(), 6U);
  ASSERT_EQ(folder_.problems(), std::vector<std::string>{});

  MemorySettings settings;
  SteadyClock clock;
  SilentSound sound;
  NoEvents pump;
  Session session(ProgramFolder(folder_.path() / "out"),
                  {settings, clock, sound, pump, [] { return std::make_unique<ImmediateTimer>(); }},
                  "1");
  ASSERT_TRUE(session.StartSession());
  ASSERT_TRUE(session.selectByName(1, "200 to 240VAC/400VDC"));
  ASSERT_TRUE(session.selectByName(2, "T5 25W"));
  ASSERT_TRUE(session.operatingPoints().Calculate(false));
  Calculator& calculator = session.calculator();
  ASSERT_TRUE(calculator.Reset(true));
  ASSERT_TRUE(calculator.CalculateComponents(true, false));

  // 400 V at 1 mA is 400 kohm; the nearest of E24 are 390 and 430 kohm.
  const VariableClass& variables = calculator.engine().variables();
  for (const VariableEntry& entry : variables.entries()) {
    if (entry.variablename != "RBLEED") continue;
    EXPECT_EQ(to_double(entry.value), 390000);
    EXPECT_EQ(entry.rating, "0.5W 500V");
    EXPECT_EQ(entry.description, "Power resistor");
    return;
  }
  FAIL() << "RBLEED is not in the design";
}

TEST_F(RulesExample, NeedsEveryRow) {
  ASSERT_TRUE(folder_.replace("CC_SourceVariables.csv", "k_bleed", "k_blead"));
  const std::vector<std::string> problems = folder_.problems();
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_TRUE(problems[0].ends_with(
      "variable 'k_bleed' is no component, no input and has no rule (TV6103, ActivePFC, DLPCM)"))
      << problems[0];
}

}  // namespace
}  // namespace vantrel::builder
