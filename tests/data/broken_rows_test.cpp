#include <gtest/gtest.h>

#include "source_folder.h"

namespace vantrel::builder {
namespace {

using Texts = std::vector<std::string>;

struct Break {
  const char* file;
  const char* from;
  const char* to;
  Texts problems;
};

void expect_problems(const std::vector<Break>& breaks) {
  for (const Break& test : breaks) {
    SourceFolder folder;
    ASSERT_TRUE(folder.replace(test.file, test.from, test.to)) << test.from;
    EXPECT_EQ(folder.problems(), test.problems)
        << test.file << ": " << test.from << " -> " << test.to;
  }
}

TEST(BrokenRows, Cells) {
  expect_problems({
      {"DATA_INPUT.csv",
       "2,2,38,230VAC,,Yes",
       "2,2,38,230VAC,Yes",
       {"DATA_INPUT.csv:4: 8 cells instead of 9"}},
      {"web.csv",
       "homepage\n",
       "homepage\nfoundry,www.example.com,\n",
       {"web.csv:2: 3 cells instead of 2"}},
      {"web.csv", "small\",", "small\"!,", {"web.csv:2: text behind the closing quote"}},
      {"web.csv", "homepage", "web page", {"web.csv:1: unknown column 'web page' of table [web]"}},
      {"web.csv", "homepage", "manufacturer", {"web.csv:1: column 'manufacturer' stands twice"}},
      {"LoadInputs.csv", "LoadID", "Locked", {"LoadInputs.csv:1: column 'LoadID' is missing"}},
      {"Target_Info.csv",
       "9,TV6107",
       ",TV6107",
       {"Target_Info.csv:11: column 'TargetNo' must not be blank",
        "Target_Info.csv: target 'TV6107' is missing"}},
      {"INDUCTOR_Core_Types.csv",
       "57.5",
       "57.5mm",
       {"INDUCTOR_Core_Types.csv:2: '57.5mm' in column 'Le Value' is no number"}},
      {"INDUCTOR_Core_Types.csv",
       "57.5",
       "1e999",
       {"INDUCTOR_Core_Types.csv:2: '1e999' in column 'Le Value' is no number"}},
      {"INDUCTOR_Core_Types.csv",
       "No",
       "perhaps",
       {"INDUCTOR_Core_Types.csv:2: 'perhaps' in column 'UserData' is neither Yes nor No"}},
      {"groups.csv",
       "31,INPUT",
       "31.5,INPUT",
       {"groups.csv:3: '31.5' in column 'ID' is no whole number",
        "DATA_INPUT.csv:3: there is no INPUT group 31",
        "DATA_INPUT.csv:3: the default item '90 to 265VAC/500VDC' is not offered beside the other "
        "defaults"}},
  });
}

TEST(BrokenRows, Tags) {
  expect_problems({
      {"DATA_INPUT.csv",
       "min_input_voltage",
       "min_input_volts",
       {"DATA_INPUT.csv:2: tag 'min_input_volts' of column 'Min Input (VAC)' names no field of the "
        "design screen"}},
      {"DATA_INPUT.csv",
       "max_dc_bus_voltage *",
       "*",
       {"DATA_INPUT.csv:2: tag '' of column 'Running Bus (VDC)' names no field of the design "
        "screen"}},
      {"DATA_LAMP.csv",
       "#PMin",
       "#pmax",
       {"DATA_LAMP.csv:2: tag '#pmax' of column 'Pmin% (W)' names no calculated field"}},
      {"DATA_LAMP.csv",
       "max,pmax,min,#PMin",
       "#pmin,pmax,min,max",
       {"DATA_LAMP.csv:2: tag '#pmin' of column 'Max (%)' needs 'pmax' in a column before it",
        "DATA_LAMP.csv:2: tag '#pmin' of column 'Max (%)' needs 'min' in a column before it",
        "DATA_LAMP.csv:2: tag '#pmin' of column 'Max (%)' needs 'max' in a column before it"}},
      {"DATA_CONFIG.csv",
       "0,-1,,,,,",
       "0,-1,,,,No,No",
       {"DATA_CONFIG.csv:2: column 'Include' of the tags row must be blank",
        "DATA_CONFIG.csv:2: column 'UserData' of the tags row must be blank"}},
      {"DATA_CONFIG.csv",
       "0,-1,,,,,\n",
       "",
       {"DATA_CONFIG.csv: the tags row (RecordType 0) is missing"}},
      {"DATA_CONFIG.csv",
       "0,-1,,,,,\n",
       "0,-1,,,,,\n0,-2,,,,,\n",
       {"DATA_CONFIG.csv:3: a second tags row"}},
      {"DATA_CONFIG.csv",
       "0,-1,,,,,\n",
       "0,-1,,,,,\n1,-2,,,,,\n",
       {"DATA_CONFIG.csv:3: RecordType 1 is neither 0 (tags) nor 2 (item)"}},
  });
}

TEST(BrokenRows, Items) {
  expect_problems({
      {"DATA_LAMP.csv",
       "2,2,1,T5 14W",
       "2,2,1,T5 28W",
       {"DATA_LAMP.csv:4: item name 'T5 28W' is taken by line 3"}},
      {"DATA_LAMP.csv",
       "T5 14W,F14,Yes,No",
       "F14,T5 28W,Yes,No",
       {"DATA_LAMP.csv:4: item name 'T5 28W' is taken by line 3"}},
      {"DATA_INPUT.csv", "2,2,38", "2,1,38", {"DATA_INPUT.csv:4: ID 1 is taken by line 3"}},
      {"DATA_LAMP.csv", "2,2,1,T5 14W", "2,-2,1,T5 14W", {"DATA_LAMP.csv:4: ID -2 is negative"}},
      {"DATA_LAMP.csv",
       "2,2,1,T5 14W",
       "2,2,1,T5 #14",
       {"DATA_LAMP.csv:4: item name 'T5 #14' holds a comma or a '#'"}},
      {"DATA_LAMP.csv",
       "2,2,1,T5 14W",
       "2,2,1,\"T5, 14W\"",
       {"DATA_LAMP.csv:4: item name 'T5, 14W' holds a comma or a '#'"}},
      {"DATA_LAMP.csv", "2,2,1,T5 14W", "2,2,1,", {"DATA_LAMP.csv:4: an item without a Name"}},
      {"DATA_LAMP.csv",
       "2,2,1,T5 14W",
       "2,2,,T5 14W",
       {"DATA_LAMP.csv:4: an item without a Group"}},
      {"DATA_LAMP.csv",
       "2,2,1,T5 14W",
       "2,2,31,T5 14W",
       {"DATA_LAMP.csv:4: there is no LAMP group 31"}},
      {"DATA_LAMP.csv",
       "T5 14W,F14,Yes,No",
       "T5 14W,F14,,No",
       {"DATA_LAMP.csv:4: column 'Include' is blank"}},
      {"DATA_LAMP.csv",
       "100,13.7",
       "100,13.7W",
       {"DATA_LAMP.csv:4: '13.7W' in column 'Pmax% (W)' is no number"}},
  });
}

TEST(BrokenRows, DataStatements) {
  const auto fault = [](const std::string& text, const std::string& statement) {
    return "DATA_INPUT.csv:4: data statement: Error : " + text + " (" + statement + ")";
  };
  const struct {
    const char* statement;
    Texts problems;
  } cases[] = {
      {"45", {}},
      {"45,50 if target is \"TV6105\"", {}},
      {"", {"DATA_INPUT.csv:4: data statement: Error : Missing Value In Data"}},
      {"45,50", {fault("Expected 'if' in Data Statement", "45,50")}},
      {"45,50 if", {fault("Expected if ... <value> In Data", "45,50 if")}},
      {"45,50 if lamp is \"a\"",
       {fault("Expected target or config in if statement", "45,50 if lamp is \"a\"")}},
      {"45,50 if config \"SLCM\"",
       {fault("Expected 'is' in If Statement", "45,50 if config \"SLCM\"")}},
      {"45,50 if config is SLCM",
       {fault("Expected string to match in If statement", "45,50 if config is SLCM"),
        "DATA_INPUT.csv:4: data statement: there is no config ''"}},
      {"45 50", {fault("Text behind the end of the statement", "45 50")}},
      {"45,50 if target is \"TV6199\"",
       {"DATA_INPUT.csv:4: data statement: there is no target 'TV6199'"}},
      {"45,50 if target is \"TV6101\",6O if config is \"XX\"",
       {"DATA_INPUT.csv:4: data statement: there is no config 'XX'",
        "DATA_INPUT.csv:4: '6O' in column 'Running Bus (VDC)' is no number"}},
  };
  for (const auto& test : cases) {
    SourceFolder folder;
    std::string cell;
    for (const char character : std::string(test.statement)) {
      cell.append(character == '"' ? 2U : 1U, character);
    }
    ASSERT_TRUE(folder.replace("DATA_INPUT.csv", "207,", "207,\"$" + cell + "\""));
    EXPECT_EQ(folder.problems(), test.problems) << test.statement;
  }
}

TEST(BrokenRows, Rules) {
  const auto rule = [](const std::string& text) {
    return "groups.csv:7: SelectionAllowed: " + text;
  };
  expect_problems({
      {"groups.csv", "!LAMP#F14", "!LAMP F14", {rule("'!LAMP F14' is not of the form TYPE#NAME")}},
      {"groups.csv", "!LAMP#F14", "", {rule("'' is not of the form TYPE#NAME")}},
      {"groups.csv", "!LAMP#F14", "!LAMPS#F14", {rule("unknown type 'LAMPS' in '!LAMPS#F14'")}},
      {"groups.csv", "!LAMP#F14", "!#F14", {rule("unknown type '' in '!#F14'")}},
      {"groups.csv", "!LAMP#F14", "!LAMP#F15", {rule("no item 'F15' in [DATA:LAMP]")}},
      {"groups.csv", "!LAMP#F14", "!LAMP#", {rule("no item '' in [DATA:LAMP]")}},
      {"groups.csv", "!LAMP#F14", "IC#TV6101", {rule("'IC#TV6101' mixes NOT items and OR items")}},
      {"groups.csv",
       "!LAMP#F14",
       "!config#SLVM",
       {rule("'!config#SLVM' names a type that is not selected before the group's own")}},
      {"groups.csv",
       "9,LAMP,User,2,Yes,,",
       "9,LAMP,User,2,Yes,,!CONFIG#SLVM",
       {"groups.csv:6: SelectionAllowed: '!CONFIG#SLVM' names a type that is not selected before "
        "the "
        "group's own"}},
      {"groups.csv", "!LAMP#F14", "! LAMP#F14", {rule("unknown type ' LAMP' in '! LAMP#F14'")}},
      {"groups.csv", "!LAMP#F14", "!lamp # T5 14W", {}},
  });
}

TEST(BrokenRows, Groups) {
  expect_problems({
      {"groups.csv",
       "1,LAMP,T5",
       "31,LAMP,T5",
       {"groups.csv:5: ID 31 is taken by line 3", "DATA_LAMP.csv:3: there is no LAMP group 1",
        "DATA_LAMP.csv:4: there is no LAMP group 1",
        "DATA_LAMP.csv:3: the default item 'T5 28W' is not offered beside the other defaults"}},
      {"groups.csv",
       "9,LAMP,User,2,Yes",
       "9,LAMP,User,2,No",
       {"groups.csv: the LAMP group 9 that takes the user's lamps is missing or not included"}},
      {"groups.csv",
       "9,LAMP,User",
       "10,LAMP,User",
       {"groups.csv: the LAMP group 9 that takes the user's lamps is missing or not included"}},
      {"groups.csv",
       "38,INPUT,Mains",
       "38,MAINS,Mains",
       {"groups.csv:4: unknown Group Type 'MAINS'",
        "DATA_INPUT.csv:4: there is no INPUT group 38"}},
  });
}

TEST(BrokenRows, TargetsAndDefaults) {
  expect_problems({
      {"Target_Info.csv",
       "9,TV6107,TV6107 BOM\n",
       "",
       {"Target_Info.csv: target 'TV6107' is missing"}},
      {"Target_Info.csv",
       "9,TV6107,",
       "8,TV6107,",
       {"Target_Info.csv:11: TargetNo is taken by line 10"}},
      {"Target_Info.csv",
       "9,TV6107,TV6107 BOM",
       "9,TV6107,TV6107 BOM\n10,TV6111,TV6107 BOM",
       {"Target_Info.csv:12: target 'TV6111' stands where the program has none"}},
      {"Target_Info.csv",
       "TV6107 BOM",
       "TV6107 Parts",
       {"Target_Info.csv:11: BOMTable 'TV6107 Parts' is no table of the schema"}},
      {"DATA_IC.csv",
       "2,9,51,TV6107",
       "2,10,51,TV6107",
       {"DATA_IC.csv:12: ID 10 is none of 0 to 9", "DATA_IC.csv: no item has ID 9 (TV6107)"}},
      {"DATA_IC.csv",
       "2,9,51,TV6107",
       "2,9,51,TV6111",
       {"DATA_IC.csv:12: ID 9 is 'TV6107', not 'TV6111'"}},
      {"DATA_CONFIG.csv",
       "2,7,75,ET",
       "2,8,75,ET",
       {"DATA_CONFIG.csv:10: ID 8 is none of 0 to 7", "DATA_CONFIG.csv: no item has ID 7 (ET)"}},
      {"DATA_LAMP.csv",
       "T5 28W,T5 28W",
       "T5 28 W,",
       {"DATA_LAMP.csv: the default item 'T5 28W' is missing"}},
      {"DATA_LAMP.csv", "T5 28W,T5 28W", "T5 28 W,T5 28W", {}},
      {"groups.csv",
       "!IC#TV6108\n",
       "!IC#TV6103\n",
       {"DATA_INPUT.csv:3: the default item '90 to 265VAC/500VDC' is not offered beside the other "
        "defaults"}},
      {"groups.csv",
       "!LAMP#F14",
       "!LAMP#T5 28W",
       {"DATA_CONFIG.csv:3: the default item 'Single lamp/current-mode heating' is not offered "
        "beside the other defaults"}},
  });
}

}  // namespace
}  // namespace vantrel::builder
