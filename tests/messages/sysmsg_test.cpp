#include "services/messages/sysmsg.h"

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace vantrel {
namespace {

using Lines = std::vector<std::string>;

double one_per_character(std::string_view text) { return static_cast<double>(text.size()); }

TEST(LineBreaks, EveryMarkBreaks) {
  EXPECT_EQ(with_line_breaks("a¬b"), "a\nb");
  EXPECT_EQ(with_line_breaks("a¬¬b"), "a\n\nb");
  EXPECT_EQ(with_line_breaks("a\nb\r\nc"), "a\nb\nc");
  EXPECT_EQ(with_line_breaks("10 Ω, 5 µH"), "10 Ω, 5 µH");
  EXPECT_EQ(with_line_breaks("cut short \xC2"), "cut short \xC2");
}

TEST(Wrapping, TableOfTexts) {
  const struct {
    const char* text;
    double width;
    Lines want;
  } cases[] = {
      {"", 10, {""}},
      {"  trimmed  ", 20, {"trimmed"}},
      {"one two three", 7, {"one two", "three"}},
      {"one two three", 8, {"one two", "three"}},
      {"one two three", 13, {"one two three"}},
      {"first¬¬second", 20, {"first", "", "second"}},
      {"abc def¬ghi jkl", 3, {"abc", "def", "ghi", "jkl"}},
      {"withoutanyblank", 4, {"withoutanyblank"}},
      {"toolongaword and more", 8, {"toolongaword", "and more"}},
      {"a toolongaword b", 4, {"a", "toolongaword", "b"}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(wrap_message(c.text, c.width, one_per_character), c.want) << c.text;
  }
}

TEST(Wrapping, MeasuresWithTheFontOfTheBox) {
  const auto wide_w = [](std::string_view text) {
    double width = 0;
    for (const char c : text) width += c == 'W' ? 3 : 1;
    return width;
  };
  EXPECT_EQ(wrap_message("WW ii ii", 6, wide_w), (Lines{"WW", "ii ii"}));
}

TEST(SysMsgTest, RecordsTheRawTextUnderItsCaption) {
  SysMsg messages;
  EXPECT_EQ(messages.msg("Advanced", "one¬two"), kOk);
  ASSERT_EQ(messages.shown().size(), 1u);
  const Message& message = messages.shown().front();
  EXPECT_EQ(message.title, "Vantrel");
  EXPECT_EQ(message.owner, "Advanced");
  EXPECT_EQ(message.text, "one¬two");
  EXPECT_EQ(message.answer, kOk);
}

TEST(SysMsgTest, SeverityOutsideItsRangeComesFromTheType) {
  SysMsg messages;
  const struct {
    int type, severity, want;
  } cases[] = {{1, 0, 1}, {2, 0, 2}, {3, 0, 2}, {1, 4, 1}, {2, -1, 2}, {1, 3, 3}, {2, 1, 1}};
  for (const auto& c : cases) {
    messages.msg("", "text", c.type, c.severity);
    EXPECT_EQ(messages.shown().back().severity, c.want) << c.type << " " << c.severity;
  }
}

TEST(SysMsgTest, InjectedAnswersServeQuestionsOnlyAndComeBeforeTheDialog) {
  SysMsg messages;
  test::ScriptedDialog dialog;
  dialog.answers = {kCancel, kOk};
  messages.dialog(&dialog);
  messages.injectAnswers({kYes});
  messages.injectAnswers({kClosed});
  EXPECT_EQ(messages.msg("", "first", kMessageYesNo), kYes);
  EXPECT_EQ(messages.msg("", "second", kMessageYesNoCancel), kClosed);
  EXPECT_EQ(messages.msg("", "third", kMessageYesNoCancel), kCancel);
  EXPECT_EQ(messages.msg("", "report", kMessageOk), kOk);
  ASSERT_EQ(dialog.shown.size(), 2u);
  EXPECT_EQ(dialog.shown[0].text, "third");
  EXPECT_EQ(messages.shown()[1].answer, kClosed);
}

TEST(SysMsgTest, WithoutADialogTheAnswerIsNo) {
  SysMsg messages;
  EXPECT_EQ(messages.msg("", "?", kMessageYesNo), kNo);
  EXPECT_EQ(messages.msg("", "?", kMessageYesNoCancel), kNo);
  messages.injectAnswers({kYes});
  EXPECT_EQ(messages.msg("", "a report leaves the answer in its queue"), kOk);
  EXPECT_EQ(messages.msg("", "?", kMessageYesNo), kYes);
}

TEST(SysMsgTest, BoxesJoinTheSameListUnderTheirOwnTitle) {
  SysMsg messages;
  messages.msg("", "a");
  messages.messageBox("Error in script", "b");
  messages.msg("", "c");
  ASSERT_EQ(test::texts(messages), (Lines{"a", "b", "c"}));
  EXPECT_EQ(messages.shown()[1].title, "Error in script");
  EXPECT_EQ(messages.shown()[1].severity, kSeverityWarning);
}

TEST(SysMsgTest, MessagesShownWhileADialogWaitsKeepTheirPlaceAndAnswer) {
  SysMsg messages;
  test::ScriptedDialog dialog;
  dialog.answers = {kNo, kYes};
  dialog.whileOpen = [&](const Message& message) {
    if (message.text != "outer") return;
    EXPECT_EQ(messages.shown().front().answer, kClosed);
    messages.msg("", "inner", kMessageYesNo);
  };
  messages.dialog(&dialog);
  std::vector<std::string> answered;
  messages.onMessage = [&](const Message& message) { answered.push_back(message.text); };
  // The inner question is asked while the outer one still waits, so it takes the first answer.
  EXPECT_EQ(messages.msg("", "outer", kMessageYesNo), kYes);
  EXPECT_EQ(test::texts(messages), (Lines{"outer", "inner"}));
  EXPECT_EQ(messages.shown()[0].answer, kYes);
  EXPECT_EQ(messages.shown()[1].answer, kNo);
  EXPECT_EQ(answered, (Lines{"inner", "outer"}));
}

TEST(SysMsgTest, AListClearedWhileADialogWaitsTakesNoAnswerOfOldMessages) {
  SysMsg messages;
  test::ScriptedDialog dialog;
  dialog.answers = {kYes, kNo};
  dialog.whileOpen = [&](const Message& message) {
    if (message.text != "outer") return;
    messages.clear();
    messages.msg("", "inner", kMessageYesNo);
  };
  messages.dialog(&dialog);
  EXPECT_EQ(messages.msg("", "outer", kMessageYesNo), kNo);
  ASSERT_EQ(test::texts(messages), Lines{"inner"});
  EXPECT_EQ(messages.shown().front().answer, kYes);
}

}  // namespace
}  // namespace vantrel
