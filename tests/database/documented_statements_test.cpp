#include <string>
#include <vector>

#include "database_fixture.h"

namespace vantrel::test {
namespace {

// Every statement with which the program reads its design database, on the shipped schema.
class DocumentedStatements : public DatabaseTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(std::filesystem::exists(VANTREL_SCHEMA_FILE));
    open(file_text(VANTREL_SCHEMA_FILE));
    ASSERT_TRUE(database.execute_script(
        "create table if not exists [Lookup:RDT:T] ([Index] REAL, [value] REAL);"));
  }
};

TEST_F(DocumentedStatements, AllRunOnTheSchema) {
  const std::vector<std::string> statements = {
      "select * from web",
      "select * from groups where [Group Type] = 'LAMP' order by sequence",
      "select Group, ID, Name, PullDownName, UserData from [DATA:LAMP] Where [RecordType] = 2 and "
      "[Include] = yes and [Group] = 3",
      "select * from [DATA:INPUT] where Name = '90 to 265VAC/500VDC'",
      "select * from [DATA:LAMP] where PullDownName = 'O''Brien'",
      "select * from [DATA:IC] where RecordType = 0",
      "select * from [DATA:CONFIG] where [RecordType] = 2 and [ID] = 0",
      "select * from LoadInputs where LoadID = 'Advanced'",
      "select * from Target:Info order by TargetNo ASC",
      "select * from Target:Info where Target = 'TV6103'",
      "select * from [Target:Info]",
      "select * from [TV6103 BOM]",
      "select * from [TV6103 BOM] where (CCOutput = true or CCOutputDependancy = true)",
      "select * from [TV6103 BOM] Order By Stage",
      "select * from [CC:SourceVariables] where Variable = 'x'",
      "select * from CC:Calculations where Calculate = 'x' or Multiple = Yes",
      "select * from ComponentDescriptions",
      "select * from ComponentDescriptions where RefDes = 'R1'",
      "select * from [INDUCTOR:Core Types] order by [Winding Area] ASC",
      "select * from [Lookup:RDT:T] order by index",
      "select * from [DATA:Lamp] where UserData = Yes order by [Name]",
      "select * from [INDUCTOR:Core Types] where UserData = Yes order by [Core Size]",
      "select RefDes, Desc from [TV6103 BOM] where Desc = 'x' order by Desc desc",
  };
  for (const std::string& sql : statements) {
    RecordSet set;
    EXPECT_TRUE(database.read(sql, set, true)) << sql << ": " << database.last_error();
    EXPECT_TRUE(set.isOpen());
  }
  EXPECT_EQ(database.Unique_ID("ID", "[DATA:Lamp]"), 1);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(DocumentedStatements, FindTheRowsThatTheyName) {
  const std::vector<std::string> edits = {
      "insert into [DATA:LAMP] (RecordType, ID, Group, Name, Include, UserData) "
      "values (2, 4, 3, 'T5 28W', Yes, No)",
      "insert into [DATA:LAMP] (RecordType, ID, Group, Name, Include, UserData, "
      "[Run Lamp Power (W)]) values (2, 5, 3, 't5 28w', TRUE, yes, 28)",
      "insert into [DATA:LAMP] (RecordType, ID, Group, Name, Include, UserData) "
      "values (2, 6, 3, 'hidden', false, yes)",
      "insert into [INDUCTOR:Core Types] ([Core Size], [Winding Area], UserData) "
      "values ('big', '100', No)",
      "insert into [INDUCTOR:Core Types] ([Core Size], [Winding Area], UserData) "
      "values ('small', 20.5, No)",
  };
  for (const std::string& sql : edits) {
    std::int32_t affected = 0;
    database.execute(sql, &affected);
    ASSERT_EQ(affected, 1) << sql << ": " << database.last_error();
  }
  RecordSet set;
  ASSERT_TRUE(
      database.read("select Group, ID, Name, PullDownName, UserData from [DATA:LAMP] Where "
                    "[RecordType] = 2 and [Include] = yes and [Group] = 3",
                    set));
  EXPECT_EQ(set.rowCount(), 2u);
  EXPECT_EQ(set.fieldName(0), "Group");
  EXPECT_EQ(adoaccess_class::rs_get(set, "UserData"), Variant(false));
  EXPECT_TRUE(adoaccess_class::rs_get(set, "PullDownName").is_empty());

  // Texts compare exactly, and numbers in the item tables stay texts as they were written.
  ASSERT_TRUE(database.read("select * from [DATA:LAMP] where Name = 't5 28w'", set));
  EXPECT_EQ(set.rowCount(), 1u);
  EXPECT_EQ(adoaccess_class::rs_get(set, "Run Lamp Power (W)"), Variant("28"));

  EXPECT_EQ(value("select [Core Size] from [INDUCTOR:Core Types] order by [Winding Area] ASC"),
            Variant("small"));
  EXPECT_EQ(value("select [Winding Area] from [INDUCTOR:Core Types] order by [Winding Area] desc"),
            Variant(100.0));
  EXPECT_EQ(database.Unique_ID("ID", "[DATA:Lamp]"), 7);
}

}  // namespace
}  // namespace vantrel::test
