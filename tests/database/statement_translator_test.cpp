#include "database/statement_translator.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vantrel {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

void expect_translations(const Pairs& pairs) {
  for (const auto& [source, expected] : pairs) {
    EXPECT_EQ(translate_statement(source).sql, expected) << "from: " << source;
    EXPECT_FALSE(translate_statement(source).cross_insert) << source;
  }
}

TEST(StatementTranslator, JoinsNamesAtColons) {
  expect_translations({
      {"select * from Target:Info order by TargetNo ASC",
       "select * from [Target:Info] order by TargetNo ASC"},
      {"select * from CC:Calculations where Calculate = 'RT' or Multiple = Yes",
       "select * from [CC:Calculations] where Calculate = 'RT' or Multiple = 1"},
      {"select * from DATA:Lamp", "select * from [DATA:Lamp]"},
      {"select * from Lookup:RDT:T", "select * from [Lookup:RDT:T]"},
      {"select * from DATA:Group", "select * from [DATA:Group]"},
      {"select * from DATA:Core Types", "select * from [DATA:Core] Types"},
      {"select :name, a: b", "select :name, a: b"},
  });
}

TEST(StatementTranslator, TurnsTruthWordsIntoNumbers) {
  expect_translations({
      {"where UserData = Yes", "where UserData = 1"},
      {"where (CCOutput = true or CCOutputDependancy = TRUE)",
       "where (CCOutput = 1 or CCOutputDependancy = 1)"},
      {"where a=no and b=False", "where a=0 and b=0"},
      {"select Yesterday, No_, notes, T.Yes from T", "select Yesterday, No_, notes, T.Yes from T"},
      {"values (?,Yes,:yes,@no)", "values (?,1,:yes,@no)"},
  });
}

TEST(StatementTranslator, BracketsReservedColumnNames) {
  expect_translations({
      {"select * from [Lookup:RDT:T] order by index",
       "select * from [Lookup:RDT:T] order by [index]"},
      {"select Group, ID, Name from [DATA:LAMP] Where [RecordType] = 2 and [Include] = yes and "
       "[Group] = 3",
       "select [Group], ID, Name from [DATA:LAMP] Where [RecordType] = 2 and [Include] = 1 and "
       "[Group] = 3"},
      {"select GROUP from t group by Group", "select [GROUP] from t group by [Group]"},
      {"select 1 from t Group\n  By a", "select 1 from t Group\n  By a"},
      {"select t.Group, t.Index from t", "select t.[Group], t.[Index] from t"},
      {"select Indexes, Grouped, Described from t", "select Indexes, Grouped, Described from t"},
  });
}

TEST(StatementTranslator, TellsTheColumnDescFromTheDirection) {
  expect_translations({
      {"select Desc from t", "select [Desc] from t"},
      {"select RefDes, Desc from t where Desc = 'x'",
       "select RefDes, [Desc] from t where [Desc] = 'x'"},
      {"select * from t order by Stage desc", "select * from t order by Stage desc"},
      {"select * from t order by Desc desc, Desc DESC",
       "select * from t order by [Desc] desc, [Desc] DESC"},
      {"select * from t order by [Winding Area] Desc, index Desc limit 1",
       "select * from t order by [Winding Area] Desc, [index] Desc limit 1"},
      {"select * from t order by 1 desc, f(Desc) desc",
       "select * from t order by 1 desc, f([Desc]) desc"},
      {"select * from (select a from t order by a desc) where Desc = 1",
       "select * from (select a from t order by a desc) where [Desc] = 1"},
      {"select a, Desc from t group by Desc", "select a, [Desc] from t group by [Desc]"},
      {"select * from t order by case when a then Desc else Desc end desc",
       "select * from t order by case when a then [Desc] else [Desc] end desc"},
      {"update t set Desc = 'x' where a = 1", "update t set [Desc] = 'x' where a = 1"},
      {"insert into t (RefDes, Desc) values (1, 2)",
       "insert into t (RefDes, [Desc]) values (1, 2)"},
  });
}

TEST(StatementTranslator, TurnsDatesIntoTexts) {
  expect_translations({
      {"where d = #1/2/2003#", "where d = '2003-01-02'"},
      {"where d > #12/31/1999# and e < #2/29/2004#", "where d > '1999-12-31' and e < '2004-02-29'"},
      {"#02/09/2001#", "'2001-02-09'"},
      {"#2/29/2003#", "#2/29/2003#"},
      {"#13/1/2003#", "#13/1/2003#"},
      {"#0/1/2003#", "#0/1/2003#"},
      {"#4/31/2003#", "#4/31/2003#"},
      {"#1/2/03#", "#1/2/03#"},
      {"#1/2/2003", "#1/2/2003"},
      {"#", "#"},
  });
}

TEST(StatementTranslator, LeavesQuotesBracketsAndCommentsAlone) {
  const std::vector<std::string> untouched = {
      "",
      "   ",
      "select 'Yes', \"Group\", `Index`, [Target:Info], [Yes]",
      "where Name = 'O''Brien: Yes, #1/2/2003# index'",
      "select [PFC Yes/No] from [DATA:INPUT]",
      "select \"a\"\"Yes\" from t",
      "select 1 -- Yes 'no end\n from t",
      "select 1 /* Group ' */ from t",
      "select 'unterminated Yes Index",
      "select [unterminated Yes Index",
      "select \"unterminated Group",
      "select 1 /* unterminated Yes",
      "select '''",
  };
  for (const std::string& text : untouched) EXPECT_EQ(translate_statement(text).sql, text);
}

TEST(StatementTranslator, RecognisesTheInsertIntoAnotherDatabase) {
  const Translation cores = translate_statement(
      "insert into [INDUCTOR:Core Types] in '/home/a b/Data/VTL.mdb' select * from "
      "[INDUCTOR:Core Types] where UserData = Yes");
  ASSERT_TRUE(cores.cross_insert);
  EXPECT_EQ(cores.cross_insert->target, "INDUCTOR:Core Types");
  EXPECT_EQ(cores.cross_insert->path, "/home/a b/Data/VTL.mdb");
  EXPECT_EQ(cores.cross_insert->source, "INDUCTOR:Core Types");
  EXPECT_EQ(cores.cross_insert->where, "UserData = 1");

  const Translation all =
      translate_statement("INSERT  INTO DATA:Lamp IN 'O''Brien' SELECT*FROM old ;");
  ASSERT_TRUE(all.cross_insert);
  EXPECT_EQ(all.cross_insert->target, "DATA:Lamp");
  EXPECT_EQ(all.cross_insert->path, "O'Brien");
  EXPECT_EQ(all.cross_insert->source, "old");
  EXPECT_EQ(all.cross_insert->where, "");
}

TEST(StatementTranslator, RefusesAnIncompleteInsertIntoAnotherDatabase) {
  const std::vector<std::string> others = {
      "insert into T in 'P' select * from S where",
      "insert into T in 'P' select * from S where -- all",
      "insert into T in 'P' select * from S order by a",
      "insert into T in 'P' select a from S",
      "insert into T in \"P\" select * from S",
      "insert into T in 'P select * from S",
      "insert into T in 'P' select * from",
      "insert into T in 'P'",
      "insert into T select * from S",
      "insert into 'T' in 'P' select * from S",
      "select * from T in 'P'",
  };
  for (const std::string& text : others) {
    EXPECT_FALSE(translate_statement(text).cross_insert) << text;
  }
}

}  // namespace
}  // namespace vantrel
