// Kills a process in the middle of its edits, again and again, and looks at what it leaves.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "service_database.h"
#include "services/sql_table_edit.h"

namespace vantrel {
namespace {

using Names = std::set<std::string>;

std::string joined(const Names& names) {
  std::string text;
  for (const std::string& name : names) text += name + ",";
  return text;
}

Names listed(const SQLTableEdit& edit) {
  const std::vector<std::string> list = edit.SelectorList();
  return {list.begin(), list.end()};
}

/// Edits at random for ever. Before each step it tells the names that the table is to hold then,
/// behind "?", and after it the names that the editor shows, behind "!".
class Editor {
 public:
  Editor(const std::filesystem::path& file, unsigned seed, int pipe)
      : random_(seed), seed_(seed), pipe_(pipe) {
    edit_.AddSelector("Select", "Name");
    edit_.AddField("Name", "", kFieldBox, 79);
    edit_.AddField("Text", "", kFieldBox, 15);
    if (!database_.open_access(file) || !edit_.EditDatabase("[Part]", "Part")) ::_exit(1);
    database_.execute("pragma synchronous = off");  // what a killed process wrote stays written
  }

  [[noreturn]] void run() {
    for (int number = 0;; ++number) step(std::to_string(seed_) + "-" + std::to_string(number));
  }

 private:
  void tell(char mark, const Names& names) {
    const std::string line = mark + joined(names) + "\n";
    if (::write(pipe_, line.data(), line.size()) < 0) ::_exit(1);
  }

  void step(const std::string& name) {
    constexpr std::uint_fast32_t kAdd = 0, kChange = 1, kRemove = 2, kCancel = 3;
    const std::size_t count = edit_.RecordCount();
    Names names = listed(edit_);
    const auto kind = count < 3 ? kAdd : count > 20 ? kRemove : random_() % 4;
    if (count > 0) edit_.Select(random_() % count);
    if (kind == kAdd) edit_.CommandNew();
    if (kind != kAdd && kind != kCancel) names.erase(edit_.FieldText(0));
    if (kind == kAdd || kind == kChange) names.insert(name);
    tell('?', names);
    if (kind == kRemove) {
      messages_.injectAnswers({kYes});
      edit_.CommandDelete();
    } else {
      edit_.TypeField(0, name);
      edit_.TypeField(1, std::string(3000, 'x') + name);
      messages_.injectAnswers({kind == kCancel ? kNo : kYes});
      edit_.RecordSetOKToProceed();
    }
    tell('!', listed(edit_));
  }

  std::mt19937 random_;
  unsigned seed_;
  int pipe_;
  SysMsg messages_;
  adoaccess_class database_{messages_};
  SQLTableEdit edit_{database_, messages_, "Editor", "VTL.mdb"};
};

/// What the process told: the last finished state, and the one that it was about to make.
struct Told {
  std::string done;
  std::string begun;
  int steps = 0;

  void take(const std::string& line) {
    (line.front() == '!' ? done : begun) = line.substr(1);
    if (line.front() == '!') ++steps;
  }
};

/// Reads lines until `steps` are finished, or to the end of the pipe.
void listen(int pipe, int steps, std::string& rest, Told& told) {
  char buffer[4096];
  while (told.steps < steps) {
    const ssize_t length = ::read(pipe, buffer, sizeof buffer);
    if (length <= 0) return;
    rest.append(buffer, static_cast<std::size_t>(length));
    for (std::size_t end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
      told.take(rest.substr(0, end));
      rest.erase(0, end + 1);
    }
  }
}

class TableEditKill : public test::ServiceDatabase {};

TEST_F(TableEditKill, LeavesExactlyTheSavedRows) {
  make("create table [Part] ([Name] TEXT, [Text] TEXT)");
  std::mt19937 random(12);
  int steps = 0;
  std::string before;
  for (unsigned round = 0; steps < 1000; ++round) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) Editor(file, round, ends[1]).run();
    ::close(ends[1]);
    std::string rest;
    Told told{.done = before, .begun = before};
    listen(ends[0], static_cast<int>(10 + random() % 60), rest, told);
    ::usleep(static_cast<useconds_t>(random() % 4000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    listen(ends[0], 1 << 30, rest, told);
    ::close(ends[0]);
    ASSERT_GT(told.steps, 0) << "the editor could not begin";
    steps += told.steps;

    ASSERT_TRUE(database.open_access(file)) << database.last_error();
    EXPECT_EQ(value("select integrity_check from pragma_integrity_check"), Variant("ok"));
    RecordSet set;
    ASSERT_TRUE(database.read("select Name, Text from [Part] order by Name", set, true));
    Names names;
    for (; !set.atEnd(); set.MoveNext()) {
      const std::string name = to_text(set.at(0));
      names.insert(name);
      EXPECT_EQ(to_text(set.at(1)), std::string(3000, 'x') + name);
    }
    before = joined(names);
    EXPECT_TRUE(before == told.done || before == told.begun) << before << "\nis neither\n"
                                                             << told.done << "\nnor\n"
                                                             << told.begun;
    database.close_access();
  }
}

}  // namespace
}  // namespace vantrel
