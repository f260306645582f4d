#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "app/automation.h"
#include "session_bench.h"

namespace vantrel {
namespace {

// Every example of the automation reference runs as it stands there.
TEST(DocumentedCommands, AllRun) {
  std::ifstream file(VANTREL_AUTOMATION_DOCUMENT);
  std::stringstream text;
  text << file.rdbuf();
  const std::string document = text.str();
  SessionBench bench;
  std::filesystem::current_path(bench.home.path());
  Automation automation(bench.start());
  const std::regex example("`(\\{\"op\":[^`]*\\})`");
  int count = 0;
  for (std::sregex_iterator match(document.begin(), document.end(), example), end; match != end;
       ++match, ++count) {
    const std::string command = (*match)[1];
    const Json reply = automation.runLine(command);
    EXPECT_TRUE(reply.at("ok").get<bool>()) << command << "\n" << reply.dump();
  }
  EXPECT_GE(count, 20);
  std::filesystem::current_path(std::filesystem::temp_directory_path());
}

}  // namespace
}  // namespace vantrel
