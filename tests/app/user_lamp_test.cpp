#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "core/text_parsing.h"
#include "session_bench.h"

namespace vantrel {
namespace {

const ValidItem* lamp(Session& session, const std::string& name) {
  session.browser().Setup(kSlotLamp);
  const auto& items = session.browser().ValidItems();
  const auto found = std::ranges::find(items, name, &ValidItem::Name);
  return found == items.end() ? nullptr : &*found;
}

TEST(UserLamp, IsOnOfferAtOnceAndSurvivesAnUpgrade) {
  const std::string name = "O'Brien 100%; \"28\"";
  SessionBench bench;
  Session* session = &bench.start();
  enter_lamp(*session, name);
  ASSERT_NE(lamp(*session, name), nullptr);
  EXPECT_TRUE(lamp(*session, name)->ListText().starts_with("User:"));
  ASSERT_TRUE(session->selectByName(kSlotLamp, name));
  EXPECT_TRUE(session->simple().calculate_simple(true, true, true, true));
  EXPECT_FALSE(session->bomStore().isEmpty());

  // An edit of the selected lamp is loaded at once, and its deletion selects another one.
  session->userData().SQLTableEdit1.TypeField(2, "30");
  ASSERT_TRUE(session->userData().SQLTableEdit1.CommandSave());
  EXPECT_EQ(to_text(session->advanced().field("running_lamp_power").value()), "30");
  EXPECT_TRUE(session->bomStore().isEmpty());

  session->EndSession();
  std::filesystem::rename(bench.database(), bench.database().string() + ".OLD");
  std::filesystem::copy_file(VANTREL_DATABASE, bench.database());
  session = &bench.start("2.0.0");
  ASSERT_NE(lamp(*session, name), nullptr);
  EXPECT_TRUE(lamp(*session, name)->UserData);
  ASSERT_TRUE(session->selectByName(kSlotLamp, name));

  ASSERT_TRUE(session->userData().InitialiseLamp());
  session->messages().injectAnswers({kYes});
  EXPECT_TRUE(session->userData().SQLTableEdit1.CommandDelete());
  EXPECT_EQ(lamp(*session, name), nullptr);
  EXPECT_NE(session->selectionFullName(kSlotLamp), name);
}

TEST(UserCore, IsOfferedByTheDesignersAtOnce) {
  SessionBench bench;
  Session& session = bench.start();
  const auto cores = [&] {
    const PullDown* list = session.transformer().findPullDown("tfr_ComboCore");
    return list == nullptr ? std::size_t{0} : list->items.size();
  };
  const std::size_t before = cores();
  ASSERT_GT(before, 0U);
  ASSERT_TRUE(session.userData().InitialiseInductor());
  SQLTableEdit& edit = session.userData().SQLTableEdit1;
  ASSERT_TRUE(edit.CommandNew());
  const char* const texts[] = {"Mine", "50", "40", "1.25", "70", "0.8", "8"};
  for (std::size_t i = 0; i < std::size(texts); ++i) edit.TypeField(i, texts[i]);
  ASSERT_TRUE(edit.CommandSave());
  EXPECT_EQ(cores(), before + 1);
  EXPECT_TRUE(edit.UndoLastChange());
  EXPECT_EQ(cores(), before);
}

}  // namespace
}  // namespace vantrel
