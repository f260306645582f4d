#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/automation.h"
#include "session_bench.h"

namespace vantrel {
namespace {

/// The JSON examples of a document: what stands between backticks and begins as a command does.
std::vector<std::string> examples_of(const std::string& document) {
  constexpr std::string_view kBeginning = "`{\"op\":";
  std::vector<std::string> examples;
  std::size_t at = document.find(kBeginning);
  while (at != std::string::npos) {
    const std::size_t end = document.find('`', at + 1);
    if (end == std::string::npos) break;
    examples.push_back(document.substr(at + 1, end - at - 1));
    at = document.find(kBeginning, end + 1);
  }
  return examples;
}

// Every example of the automation reference runs as it stands there.
TEST(DocumentedCommands, AllRun) {
  std::ifstream file(VANTREL_AUTOMATION_DOCUMENT);
  std::stringstream text;
  text << file.rdbuf();
  const std::vector<std::string> examples = examples_of(text.str());
  ASSERT_GE(examples.size(), 20U);
  SessionBench bench;
  std::filesystem::current_path(bench.home.path());
  Automation automation(bench.start());
  for (const std::string& command : examples) {
    const Json reply = automation.runLine(command);
    EXPECT_TRUE(reply.at("ok").get<bool>()) << command << "\n" << reply.dump();
  }
  std::filesystem::current_path(std::filesystem::temp_directory_path());
}

}  // namespace
}  // namespace vantrel
