#include "app/automation.h"

#include <gtest/gtest.h>

#include "session_bench.h"

namespace vantrel {
namespace {

class AutomationTest : public testing::Test {
 protected:
  AutomationTest() : automation(bench.start()) {}
  Json run(const char* line) { return automation.runLine(line); }

  SessionBench bench;
  Automation automation;
};

TEST_F(AutomationTest, DesignsThroughCommands) {
  Json reply = run(R"({"op":"select","slot":"LAMP","name":"T8 36W"})");
  EXPECT_TRUE(reply.at("ok"));
  EXPECT_TRUE(reply.at("result"));
  reply = run(R"({"op":"calculate","what":"operating-points"})");
  EXPECT_TRUE(reply.at("result"));
  ASSERT_EQ(reply.at("messages").size(), 1U);
  EXPECT_TRUE(reply["messages"][0]["text"].get<std::string>().starts_with(
      "Calculation 1 Complete\n\nBallast Run Frequency = "));
  reply = run(R"({"op":"get","field":"advanced.RUN_frequency"})");
  const Json& field = reply.at("fields").at("Advanced.run_frequency");
  EXPECT_GT(field.at("value"), 30000);
  EXPECT_EQ(field.at("unit"), "KHz");
  EXPECT_EQ(field.at("style"), 2);
  EXPECT_FALSE(run(R"({"op":"dump","what":"candidates"})").at("rows").empty());
}

TEST_F(AutomationTest, SetsAndFixesFields) {
  Json reply = run(R"({"op":"set","field":"Advanced.LValue","value":2.1,"fixed":true})");
  EXPECT_EQ(reply.at("value"), 2.1);
  EXPECT_TRUE(reply.at("fixed"));
  run(R"({"op":"calculate","what":"operating-points"})");
  EXPECT_EQ(run(R"({"op":"get","field":"Advanced.LValue"})")["fields"]["Advanced.LValue"]["value"],
            2.1);
  EXPECT_GT(run(R"({"op":"get","field":"Advanced.*"})").at("fields").size(), 50U);
}

TEST_F(AutomationTest, AnswersQuestionsFromTheQueue) {
  EXPECT_TRUE(run(R"({"op":"answers","list":[1,2]})").at("ok"));
  EXPECT_EQ(bench.session->messages().msg("", "First ?", kMessageYesNo), kYes);
  EXPECT_EQ(bench.session->messages().msg("", "Second ?", kMessageYesNo), kNo);
}

TEST_F(AutomationTest, ConvertsWithTheValuesLibrary) {
  const std::vector<std::pair<const char*, Json>> cases{
      {R"({"op":"convert","fn":"si_from","args":[2,"uH","H"]})", static_cast<double>(2e-6F)},
      {R"({"op":"convert","fn":"si_scale","args":[0.0999]})", 99.9},
      {R"({"op":"convert","fn":"si_prefix","args":[1500]})", "K"},
      {R"({"op":"convert","fn":"round_to","args":[2.5,0]})", 2.0},
      {R"({"op":"convert","fn":"number_text","args":[0.5]})", "0.5"},
      {R"({"op":"convert","fn":"find_nearest_resistor","args":[1.25,1]})", 1.2},
      {R"({"op":"convert","fn":"find_nearest_capacitor","args":[4.5e-9,0]})", 4.7e-9},
      {R"({"op":"convert","fn":"GetField","args":["a,b",2,","]})", "b"},
      {R"({"op":"convert","fn":"Val","args":["4.7 uF"]})", 4.7},
  };
  for (const auto& [line, expected] : cases) {
    const Json reply = run(line);
    ASSERT_TRUE(reply.at("ok")) << line;
    if (expected.is_number()) {
      EXPECT_NEAR(reply.at("result").get<double>(), expected.get<double>(), 1e-12) << line;
    } else {
      EXPECT_EQ(reply.at("result"), expected) << line;
    }
  }
  const Json reply = run(R"({"op":"convert","fn":"si_from","args":[2,"V","H"]})");
  EXPECT_TRUE(reply.at("ok"));
  EXPECT_EQ(reply.at("result"), 0);
  EXPECT_EQ(reply["messages"][0]["text"],
            "Could not find type (H) in postfix V for si-from conversion");
}

TEST_F(AutomationTest, CallsFormulas) {
  // 1 / (2 pi sqrt(1 mH x 10 nF)) = 50329 Hz
  Json reply =
      run(R"({"op":"formula","target":0,"name":"calculate_resonance","args":[1e-8,1e-3]})");
  EXPECT_NEAR(reply.at("result").get<double>(), 50329.2, 0.1);
  EXPECT_FALSE(reply.at("failed"));
  reply = run(R"({"op":"formula","target":0,"name":"calculate_nothing","args":[]})");
  EXPECT_TRUE(reply.at("failed"));
  EXPECT_EQ(reply["messages"][0]["text"],
            "Could not find the calculation function : calculate_nothing");
}

TEST_F(AutomationTest, RunsTheWholeChainAndDumpsIt) {
  EXPECT_TRUE(run(R"({"op":"calculate","what":"simple"})").at("result"));
  const Json bill = run(R"({"op":"dump","what":"bom"})").at("rows");
  std::int64_t components = 0;
  for (const Json& line : bill) components += line.at("qty").get<std::int64_t>();
  EXPECT_GE(components, 35);
  const Json variables = run(R"({"op":"dump","what":"variables"})").at("rows");
  EXPECT_GE(variables.size(), static_cast<std::size_t>(components));
  EXPECT_EQ(run(R"({"op":"dump","what":"history"})").at("rows").size(), 1U);
  EXPECT_TRUE(run(R"({"op":"design_inductor","index":0})").at("result"));
  EXPECT_FALSE(run(R"({"op":"design_inductor","index":2})").at("ok"));
}

TEST_F(AutomationTest, TriesComponentFunctionsAndStatements) {
  // 1.2 ohm is the nearest E24 value below; the function itself gives the resistor of 0.5 V at 0.4
  // A.
  Json reply = run(R"({"op":"component","target":0,"name":"component_RS","args":[0.4]})");
  EXPECT_TRUE(reply.at("result"));
  EXPECT_NEAR(reply.at("value").get<double>(), 1.25, 1e-6);
  reply = run(R"({"op":"component","target":0,"name":"component_NONE","args":[]})");
  EXPECT_FALSE(reply.at("result"));
  EXPECT_EQ(reply.at("messages").size(), 1U);
  reply = run(R"({"op":"statement","text":"$ \"value\", 3"})");
  EXPECT_EQ(reply.at("value"), 3);
  reply =
      run(R"x({"op":"statement","text":"$ \"value\", #(\"Advanced\",\"running_lamp_power\")"})x");
  EXPECT_EQ(reply.at("value"), 28);
}

TEST_F(AutomationTest, WalksTheHistorySavesAndLoads) {
  const std::string path = (bench.home.path() / "design.vtl").string();
  run(R"({"op":"set","field":"Advanced.preheat_time","value":2})");
  run(R"({"op":"calculate","what":"operating-points"})");
  EXPECT_TRUE(run((R"({"op":"save","path":")" + path + "\"}").c_str()).at("result"));
  run(R"({"op":"set","field":"Advanced.preheat_time","value":3})");
  run(R"({"op":"calculate","what":"operating-points"})");
  EXPECT_EQ(run(R"({"op":"history","position":-1})").at("shown"), 0);
  EXPECT_EQ(bench.session->advanced().field("preheat_time").DisplayText(), "2");
  EXPECT_TRUE(run(R"({"op":"command","screen":"Advanced","command":"c_next"})").at("handled"));
  EXPECT_EQ(bench.session->advanced().field("preheat_time").DisplayText(), "3");
  EXPECT_TRUE(run((R"({"op":"load","path":")" + path + "\"}").c_str()).at("result"));
  EXPECT_EQ(bench.session->advanced().field("preheat_time").DisplayText(), "2");
  const Json lost = run(R"({"op":"load","path":"/nowhere/lost.vtl"})");
  EXPECT_FALSE(lost.at("result"));
  EXPECT_EQ(lost["messages"][0]["text"], "Could not load project 'lost.vtl'");
}

TEST_F(AutomationTest, ReadsTheDatabaseButNeverWritesIt) {
  const Json reply =
      run(R"({"op":"sql","text":"select Name from [DATA:IC] where RecordType = 2 order by ID"})");
  EXPECT_EQ(reply.at("rows").size(), 10U);
  EXPECT_EQ(reply["rows"][1]["Name"], "TV6103");
  EXPECT_EQ(run(R"({"op":"sql","text":"select 1 as a, 2 as a, 3 as a_2, 4 as a"})")["rows"][0],
            Json({{"a", 1}, {"a_2", 2}, {"a_2_2", 3}, {"a_3", 4}}));
  for (const char* line : {R"({"op":"sql","text":"delete from [DATA:IC]"})",
                           R"({"op":"sql","text":"select * from nowhere"})"}) {
    EXPECT_FALSE(run(line).at("ok")) << line;
  }
}

TEST_F(AutomationTest, WrongCommandsSayWhatIsWrongAndChangeNothing) {
  const char* lines[] = {
      "",
      "no json",
      "[1,2]",
      "{}",
      R"({"op":7})",
      R"({"op":"fly"})",
      R"({"op":"select","slot":"LAMP"})",
      R"({"op":"select","slot":"SOCKET","name":"x"})",
      R"({"op":"select","slot":"LAMP","id":"x"})",
      R"({"op":"get","field":"LValue"})",
      R"({"op":"get","field":"Nowhere.LValue"})",
      R"({"op":"get","field":"Advanced.nothing"})",
      R"({"op":"set","field":"Advanced.pmax","value":"watt"})",
      R"({"op":"set","field":"Advanced.pmax","value":true})",
      R"({"op":"set","field":"Advanced.pmax","value":[1,2]})",
      R"({"op":"set","field":"Advanced.LValue","value":"x","fixed":true})",
      R"({"op":"select","slot":"LAMP","id":4294967299})",
      R"({"op":"history"})",
      R"({"op":"command","screen":"Nowhere","command":"c_next"})",
      R"({"op":"option","name":"nothing","value":true})",
      R"({"op":"option","name":"nosounds","value":7})",
      R"({"op":"export","what":"tea","path":"x"})",
      R"({"op":"set","field":"Advanced.pmax","value":"nan"})",
      R"({"op":"set","field":"Advanced.pmax","fixed":true})",
      R"({"op":"set","field":"Advanced.LValue","fixed":"yes"})",
      R"({"op":"convert","fn":"si_from","args":[1]})",
      R"({"op":"convert","fn":"nothing","args":[]})",
      R"({"op":"convert","fn":"si_from","args":"x"})",
      R"({"op":"convert","fn":"si_from","args":["x","uH","H"]})",
      R"({"op":"formula","target":99,"name":"calculate_l","args":[]})",
      R"({"op":"formula","name":"calculate_l","args":["x"]})",
      R"({"op":"calculate","what":"tea"})",
      R"({"op":"dump","what":"everything"})",
      R"({"op":"answers","list":[{"a":1}]})",
      R"({"op":"items","slot":3})",
  };
  const std::string before = bench.session->advanced().field("pmax").DisplayText();
  for (const char* line : lines) {
    const Json reply = run(line);
    EXPECT_FALSE(reply.at("ok").get<bool>()) << line;
    EXPECT_FALSE(reply.at("error").get<std::string>().empty()) << line;
  }
  EXPECT_FALSE(automation.runLine(std::string(100000, '[')).at("ok").get<bool>());
  EXPECT_EQ(bench.session->advanced().field("pmax").DisplayText(), before);
  EXPECT_FALSE(bench.session->advanced().field("LValue").IsFixed());
}

}  // namespace
}  // namespace vantrel
