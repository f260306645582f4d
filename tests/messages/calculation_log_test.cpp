#include "services/messages/calculation_log.h"

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace vantrel {
namespace {

using Lines = std::vector<std::string>;

TEST(CalculationLogTest, ALineIsSilentUnlessItAsksForADialog) {
  SysMsg messages;
  CalculationLog log(messages);
  messages.injectAnswers({kYes});
  EXPECT_EQ(log.write("silent"), CalculationLog::kNoDialog);
  EXPECT_EQ(log.write("silent too", false, true), CalculationLog::kNoDialog);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(log.write("report", true), kOk);
  EXPECT_EQ(log.write("question", true, true), kYes);
  ASSERT_EQ(test::texts(messages), (Lines{"report", "question"}));
  EXPECT_EQ(messages.shown()[0].type, kMessageOk);
  EXPECT_EQ(messages.shown()[1].type, kMessageYesNo);
}

TEST(CalculationLogTest, BreaksAtTheWholeLineAfterItsOwnDialog) {
  SysMsg messages;
  CalculationLog log(messages);
  log.write("");
  log.breakText("Pass 2");
  log.watchText("Pass");
  log.write("Pass 22");
  log.write("pass 2");
  EXPECT_TRUE(messages.shown().empty());
  messages.injectAnswers({kYes});
  EXPECT_EQ(log.write("Pass 2", true, true), kYes);
  EXPECT_EQ(test::texts(messages), (Lines{"Pass 2", "Breakpoint 'Pass 2'"}));
  EXPECT_EQ(messages.shown()[1].type, kMessageOk);
}

TEST(CalculationLogTest, KeepsLinesForTheViewerOnlyOnRequest) {
  SysMsg messages;
  CalculationLog log(messages);
  EXPECT_EQ(log.sink(), -1);
  log.write("dropped");
  log.keepLines(true);
  log.write("kept");
  log.write("shown and kept", true);
  EXPECT_EQ(log.lines(), (Lines{"kept", "shown and kept"}));
  log.clearLines();
  EXPECT_TRUE(log.lines().empty());
}

}  // namespace
}  // namespace vantrel
