#include <gtest/gtest.h>

#include <filesystem>

#include "app/automation.h"
#include "session_bench.h"

namespace vantrel {
namespace {

class ViewCommands : public ::testing::Test {
 protected:
  Json run(const char* line) { return automation.runLine(line); }

  SessionBench bench;
  Session& session{bench.start()};
  Automation automation{session};
};

TEST_F(ViewCommands, AnswerWithPlotPointsAndStages) {
  Json reply = run(R"({"op":"view","window":100})");
  EXPECT_FALSE(reply.at("ok"));
  EXPECT_EQ(reply.at("error"), "Graph Inputs Not Available, Retry Calculation");

  run(R"({"op":"time_domain","members":{"LValue":0.002,"RunFrequency":36,"TargetNumber":1}})");
  EXPECT_TRUE(session.timeDomainForm().isGenerated());  // the viewer has the run
  reply = run(R"({"op":"view","window":20000,"position":0,"short":true,"width":1000,"height":500,)"
              R"("traces":["VR","IL"],"autofit":true})");
  ASSERT_TRUE(reply.at("ok")) << reply.dump();
  EXPECT_EQ(reply.at("columns"), 800);
  EXPECT_EQ(reply.at("points").size(), 800U);
  EXPECT_TRUE(reply.at("envelope"));
  EXPECT_EQ(reply.at("window"), reply.at("total"));
  const Json& stages = reply.at("stages");
  ASSERT_EQ(stages.size(), 3U);
  EXPECT_EQ(stages[1].at("label"), "Stage: Skip To Ignition");
  EXPECT_EQ(stages[0].at("last").get<int>() + 1, stages[1].at("first").get<int>());
  EXPECT_EQ(stages[2].at("last"), 799);
  const Json& point = reply.at("points")[500];
  EXPECT_EQ(point.at("X"), 600);
  const Json sample =
      run(("{\"op\":\"samples\",\"count\":1,\"from\":" + point.at("SampleNo").dump() + "}").c_str())
          .at("rows")[0];
  EXPECT_EQ(point.at("Time"), sample.at("TimeUs"));
  EXPECT_LE(point.at("VRMin"), sample.at("VR"));
  EXPECT_GE(point.at("VRMax"), sample.at("VR"));

  // The picture is that of the view.
  reply = run(R"({"op":"view","window":50,"position":3000,"traces":["Freq"]})");
  EXPECT_EQ(reply.at("columns"), 800);
  const auto file = bench.home.path() / "view.svg";
  const Json exported =
      automation.run({{"op", "export"}, {"what", "time-domain"}, {"path", file.string()}});
  EXPECT_TRUE(exported.at("ok")) << exported.dump();
  EXPECT_GT(std::filesystem::file_size(file), 2000U);
}

TEST_F(ViewCommands, MeasureAndRefuse) {
  run(R"({"op":"time_domain","members":{"LValue":0.002,"RunFrequency":36,"TargetNumber":1}})");
  const Json reply = run(R"({"op":"measure","from":1500,"to":2000,"trace":"IL"})");
  EXPECT_EQ(reply.at("count"), 10001);
  // 500 us at 55 kHz, which the model exceeds by 1 to 2 %.
  EXPECT_NEAR(reply.at("frequency").get<double>(), 55 * 1.015, 0.6);
  EXPECT_NEAR(reply.at("zero_crossings").get<double>(), 56, 1);
  for (const char* line : {R"({"op":"measure","from":1,"to":2,"trace":"XX"})",
                           R"({"op":"measure","to":2})", R"({"op":"view","traces":["XX"]})",
                           R"({"op":"view","width":0})", R"({"op":"view","window":"wide"})"}) {
    EXPECT_FALSE(run(line).at("ok")) << line;
  }
}

}  // namespace
}  // namespace vantrel
