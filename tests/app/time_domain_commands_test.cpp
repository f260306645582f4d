#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "app/automation.h"
#include "session_bench.h"

namespace vantrel {
namespace {

class TimeDomainCommands : public testing::Test {
 protected:
  TimeDomainCommands() : automation(bench.start()) {}
  Json run(const std::string& line) { return automation.runLine(line); }
  std::string path(const char* name) const { return (bench.home.path() / name).string(); }
  std::string exported(const std::string& what, const char* name, const std::string& more = "") {
    const Json reply =
        run(R"({"op":"export","what":")" + what + R"(","path":")" + path(name) + "\"" + more + "}");
    EXPECT_TRUE(reply.at("ok")) << reply.dump();
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  SessionBench bench;
  Automation automation;
};

constexpr const char* kIgniting =
    R"({"op":"time_domain","members":{"LValue":0.002,"RunFrequency":36,"TargetNumber":1}})";

TEST_F(TimeDomainCommands, SimulateTheDesign) {
  Json reply = run(R"({"op":"calculate","what":"time-domain"})");
  EXPECT_EQ(reply.at("result"), -1);
  EXPECT_EQ(reply["messages"][0]["text"],
            "Required fields are missing, do you wish to see the list ?");
  ASSERT_TRUE(run(R"({"op":"calculate","what":"simple"})").at("result"));
  // Planned: 1 s of preheat, a ramp of 10 ms and 1 ms of run, less the dead time at the start.
  EXPECT_EQ(run(R"({"op":"calculate","what":"time-domain"})").at("result"), 1010998.5);
  reply = run(R"({"op":"dump","what":"stages"})");
  EXPECT_EQ(reply.at("result"), 1010998.5);
  EXPECT_EQ(reply["rows"][1]["StartTime"], 1000000);
  EXPECT_EQ(reply["rows"][2]["LastSample"].get<int>(), reply["n"].get<int>() - 1);
  EXPECT_EQ(reply["rows"].size(), 4U);
  EXPECT_EQ(run(R"({"op":"dump","what":"members"})")["rows"][1]["value"], 5.3 / 1000);

  const std::string csv = exported("time-domain", "w.csv", R"(,"step":100)");
  EXPECT_TRUE(
      csv.starts_with("Time (us),VIN (V),IL (A),VBlock (V),ILamp (A),VR (V),Frequency "
                      "(kHz),Stage\r\n1.55,500,0,0,"));
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 1 + (reply["n"].get<int>() + 99) / 100);
  const std::string netlist = exported("spice", "s.cir");
  EXPECT_NE(netlist.find(".param L_res=5.3m C_res=3.3n\n"), std::string::npos) << netlist;
  EXPECT_NE(exported("spice", "m.cir", R"(,"frequency":"measured")").size(), netlist.size());
}

TEST_F(TimeDomainCommands, SimulateAModelWithoutADesign) {
  const Json reply = run(kIgniting);
  EXPECT_EQ(reply.at("result"), 1010998.5);
  EXPECT_EQ(reply.at("n"), 250485);
  EXPECT_EQ(reply["fields"].size(), 13U);
  EXPECT_EQ(reply["fields"]["VR"]["hash"], "d3ec8f50cde2c89a");
  EXPECT_EQ(reply["stages"], run(R"({"op":"dump","what":"stages"})")["rows"]);
  // Behind the last sample stands the record at the bound.
  EXPECT_EQ(run(R"({"op":"samples","from":250484,"count":9})")["rows"].size(), 2U);
  EXPECT_EQ(run(R"({"op":"samples","from":0,"count":1})")["rows"][0]["VIN"], 400);
  EXPECT_EQ(run(R"({"op":"envelope","from":100,"count":1})")["rows"][0]["Max"]["VIN"], 400);
  const int end = reply["repeat_end"];
  EXPECT_EQ(run(R"({"op":"find_item","times":[2000.02],"short":true})")["rows"][0], end + 1 + 9485);
  EXPECT_EQ(run(R"({"op":"find_item","times":[1.62,1000000.02]})")["rows"], Json({1, end + 1}));
}

TEST_F(TimeDomainCommands, CancelledAndRefusedRuns) {
  Json reply = run(
      R"({"op":"time_domain","members":{"LValue":0.002,"RunFrequency":36},"cancel_at_tick":7})");
  EXPECT_EQ(reply.at("result"), -1);
  EXPECT_EQ(reply.at("n"), 7 * 4096);
  EXPECT_EQ(reply["messages"][0]["text"], "Operation Cancelled");
  EXPECT_EQ(run(kIgniting).at("n"), 250485);  // the order is gone
  for (const char* wrong :
       {R"({"op":"time_domain","members":{"lvalue":1}})",
        R"({"op":"time_domain","members":{"LValue":"1"}})", R"({"op":"time_domain","members":[1]})",
        R"({"op":"samples","from":-1,"count":1})", R"({"op":"find_item","times":["1"]})",
        R"({"op":"export","what":"spice","path":"x.cir"})",
        R"({"op":"export","what":"spice","path":"x.cir","frequency":"high"})",
        R"({"op":"export","what":"time-domain","path":"x.csv","step":0})"}) {
    reply = run(wrong);
    EXPECT_FALSE(reply.at("ok")) << wrong;
    EXPECT_FALSE(reply.at("error").get<std::string>().empty());
  }
  EXPECT_EQ(run(R"({"op":"dump","what":"stages"})").at("n"), 250485);
}

}  // namespace
}  // namespace vantrel
