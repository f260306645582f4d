#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "app/json_variant.h"
#include "session_bench.h"

namespace vantrel {
namespace {

struct Outcome {
  int status;
  std::string output;
};

/// Runs vantrel-cli on the bench's folder as a user would; standard error joins the output.
Outcome run(const SessionBench& bench, const std::string& arguments) {
  const std::string settings = (bench.home.path() / "settings.ini").string();
  const std::string command = std::string(VANTREL_CLI) + " --home '" + bench.home.path().string() +
                              "' --settings '" + settings + "' " + arguments + " 2>&1";
  std::FILE* pipe = ::popen(command.c_str(), "r");
  std::string output;
  char buffer[4096];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
    output.append(buffer, n);
  const int status = ::pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

TEST(Cli, DesignsTheDefaultBallast) {
  SessionBench bench;
  const Outcome outcome = run(bench, "design");
  EXPECT_EQ(outcome.status, 0);
  for (const char* line : {"90 to 265VAC/500VDC", "T5 28W", "Run Frequency", "PFC Inductor",
                           "Preheat Time", "LRES", "Bill of materials"}) {
    EXPECT_NE(outcome.output.find(line), std::string::npos) << line << "\n" << outcome.output;
  }
}

TEST(Cli, ExitStatusTellsWhatHappened) {
  SessionBench bench;
  const std::vector<std::pair<const char*, int>> cases{
      {"design --ic TV6108 --lamp 'Halogen 12V 50W'", 0},
      {"design --set Advanced.running_dc_bus_voltage=20", 5},
      {"design --ic TV9999", 3},
      {"design --lamp 12345", 3},
      {"design --set Advanced.pmax=watt", 3},
      {"design --set pmax=3", 3},
      {"design --set Advanced.pmax", 3},
      {"design --fix Advanced.pmax", 3},
      {"list lamp --ic TV6108", 0},
      {"list socket", 1},
      {"", 1},
      {"fly", 1},
      {"design --nothing", 1},
      {"design --waveform-step 0", 1},
      {"script /nowhere/at/all", 3},
      {"--help", 0},
      {"--version", 0},
  };
  for (const auto& [arguments, status] : cases) {
    const Outcome outcome = run(bench, arguments);
    EXPECT_EQ(outcome.status, status) << arguments << "\n" << outcome.output;
    EXPECT_FALSE(outcome.output.empty()) << arguments;
  }
}

TEST(Cli, WritesTheFilesOfADesign) {
  SessionBench bench;
  const auto folder = bench.home.path() / "out" / "deep";
  ASSERT_EQ(run(bench, "design --waveform-step 20 --out '" + folder.string() + "'").status, 0);
  std::ifstream file(folder / "design.json");
  const Json design = Json::parse(file);
  EXPECT_TRUE(design.at("complete"));
  EXPECT_EQ(design["selection"]["lamp"]["name"], "T5 28W");
  EXPECT_EQ(design["screens"]["Advanced"]["Advanced.LValue"]["unit"], "mH");
  EXPECT_EQ(design["cores"]["LRES"], "EFD25");
  EXPECT_GE(design["components"].size(), 35U);
  std::ifstream bill(folder / "bom.csv");
  std::string header;
  std::getline(bill, header);
  EXPECT_EQ(header, "Qty,Type,Value,Rating,Tolerance,Reference\r");
  std::ifstream graph(folder / "operating-points.svg");
  std::string svg((std::istreambuf_iterator<char>(graph)), {});
  EXPECT_NE(svg.find("Ignition"), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(folder / "operating-points.png"));
  EXPECT_GT(std::filesystem::file_size(folder / "time-domain.png"), 10000U);
  std::ifstream waveforms(folder / "waveforms.csv");
  std::string last;
  for (std::string line; std::getline(waveforms, line);) last = line;
  EXPECT_TRUE(last.starts_with("1010999.")) << last;  // 1 s, 10 ms of ramp and 1 ms of run
  EXPECT_TRUE(last.ends_with(",40.14,2\r")) << last;
  EXPECT_EQ(run(bench, "design --out /dev/null/x").status, 3);
}

TEST(Cli, ChecksEveryDiagramAgainstItsBill) {
  const SessionBench bench;
  const Outcome missing = run(bench, "check --ic TV6108");
  EXPECT_EQ(missing.status, 5);
  EXPECT_NE(missing.output.find("Schematic could not be found for IC 'TV6108'"), std::string::npos);
  const std::filesystem::path shipped =
      std::filesystem::path(VANTREL_DATABASE).parent_path().parent_path();
  std::filesystem::create_directory_symlink(shipped / "graphics", bench.home.path() / "graphics");
  const Outcome outcome = run(bench, "check --ic TV6108");
  EXPECT_EQ(outcome.status, 0) << outcome.output;
  EXPECT_NE(outcome.output.find(" combinations, 0 with discrepancies\n"), std::string::npos);
}

TEST(Cli, FixedValuesAreKept) {
  SessionBench bench;
  const Outcome outcome = run(bench, "design --set Advanced.LValue=4.2 --fix Advanced.LValue");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.output.find("4.2 mH  (fixed)"), std::string::npos) << outcome.output;
}

TEST(Cli, RefusesAFolderWithoutADatabase) {
  SessionBench bench;
  std::filesystem::remove(bench.database());
  const Outcome outcome = run(bench, "design");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.output, "Could not open Vantrel Database\n");
}

TEST(Cli, ListsWhatTheSelectionAllows) {
  SessionBench bench;
  const std::string all = run(bench, "list ic").output;
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 10);
  EXPECT_NE(all.find("*    1  TV6103"), std::string::npos) << all;
  const std::string halogen = run(bench, "list config --ic TV6108").output;
  EXPECT_EQ(halogen, "*    7  Electronic Transformer\n");
}

TEST(Cli, ScriptAnswersLineByLine) {
  SessionBench bench;
  const auto script = bench.home.path() / "commands.json";
  std::ofstream(script) << R"({"op":"items","slot":"IC"})"
                        << "\n\n"
                        << "nonsense\n"
                        << R"({"op":"calculate","what":"operating-points"})"
                        << "\n";
  const Outcome outcome = run(bench, "script '" + script.string() + "'");
  EXPECT_EQ(outcome.status, 0);
  std::istringstream lines(outcome.output);
  std::vector<Json> replies;
  for (std::string line; std::getline(lines, line);) replies.push_back(Json::parse(line));
  ASSERT_EQ(replies.size(), 3U);
  EXPECT_EQ(replies[0]["items"].size(), 10U);
  EXPECT_FALSE(replies[1]["ok"].get<bool>());
  EXPECT_TRUE(replies[2]["result"].get<bool>());
}

}  // namespace
}  // namespace vantrel
