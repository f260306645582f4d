#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "database/statement_tokens.h"
#include "database/statement_translator.h"
#include "database_fixture.h"

namespace vantrel::test {
namespace {

const std::vector<std::string> kSeeds = {
    "select * from Target:Info order by TargetNo ASC",
    "select Group, ID, Desc from [DATA:LAMP] Where [Include] = yes and [Group] = 3",
    "select * from [Lookup:RDT:T] order by index desc",
    "select * from CC:Calculations where Calculate = 'O''Brien' or Multiple = Yes",
    "insert into [DATA:LAMP] in 'there.mdb' select * from [DATA:LAMP] where UserData = Yes",
    "update [DATA:LAMP] set Name = 'x', UserData = No where d = #1/2/2003#",
    "delete from canary; drop table canary -- done",
};
const std::vector<std::string> kPieces = {
    "'", "\"", "`",     "[",     "]",    "#",   ":",  ";",  "(",     ")",      "/*", "*/",
    "-", "\n", " Yes ", "Group", "Desc", "by ", "in", "$x", "Index", "canary", "?",  "#1/2/2003#"};

// One statement, broken in up to six places.
class Mutator {
 public:
  std::string next() {
    std::string text = kSeeds[below(kSeeds.size())];
    for (std::size_t i = below(6) + 1; i > 0 && !text.empty(); --i) mutate(text);
    return text;
  }

 private:
  std::size_t below(std::size_t limit) { return engine_() % limit; }

  void mutate(std::string& text) {
    const std::size_t at = below(text.size());
    switch (below(5)) {
      case 0:
        text.erase(at, below(8) + 1);
        break;
      case 1:
        text.insert(at, kPieces[below(kPieces.size())]);
        break;
      case 2:
        text[at] = static_cast<char>(below(256));
        break;
      case 3:
        text.resize(at);
        break;
      default:
        text.insert(at, text.substr(below(text.size()), below(24)));
        break;
    }
  }

  std::mt19937 engine_{20031103};
};

std::string joined(const std::vector<Token>& tokens) {
  std::string text;
  for (const Token& token : tokens) text += token.text;
  return text;
}

TEST(TranslatorFuzz, BrokenStatementsLoseNothingAndTranslateOnce) {
  Mutator mutator;
  for (int i = 0; i < 20000; ++i) {
    const std::string text = mutator.next();
    const std::vector<Token> tokens = statement_tokens(text);
    ASSERT_EQ(joined(tokens), text);
    const std::string once = translate_statement(text).sql;
    ASSERT_EQ(translate_statement(once).sql, once) << "from: " << text;
  }
}

class TranslatorFuzzOnStore : public DatabaseTest {};

TEST_F(TranslatorFuzzOnStore, NoBrokenQueryChangesTheDatabase) {
  open(
      "create table canary (a INTEGER); insert into canary values (7);"
      "create table [DATA:LAMP] (ID INTEGER, [Group] INTEGER, Name TEXT, UserData BOOLEAN);");
  const std::string before = file_text(file);
  Mutator mutator;
  RecordSet set;
  for (int i = 0; i < 5000; ++i) database.read(mutator.next(), set, true);
  EXPECT_EQ(file_text(file), before);
  EXPECT_EQ(value("select a from canary"), Variant(std::int32_t{7}));
}

TEST_F(TranslatorFuzzOnStore, HugeStatementsFailOrRunCleanly) {
  open("create table t (a INTEGER)");
  constexpr std::size_t kMegabyte = 1u << 20;
  std::string words;
  while (words.size() < kMegabyte) words += "Group/**/Desc(#1/2/2003#'Yes'[Index]a:b ";
  const std::vector<std::string> texts = {
      "select '" + std::string(kMegabyte, '\''), "select [" + std::string(kMegabyte, 'x'),
      "select " + std::string(kMegabyte, '('),   "select " + std::string(kMegabyte, '#'),
      "select a" + std::string(kMegabyte, ':'),  "select " + words};
  RecordSet set;
  for (const std::string& text : texts) {
    EXPECT_FALSE(database.read(text, set, true));
    EXPECT_FALSE(set.isOpen());
    EXPECT_FALSE(database.last_error().empty());
  }
  const std::string longest(kMegabyte, 'x');
  ASSERT_TRUE(database.read("select '" + longest + "', count(*) from t", set));
  EXPECT_EQ(set.at(0), Variant(longest));
}

}  // namespace
}  // namespace vantrel::test
