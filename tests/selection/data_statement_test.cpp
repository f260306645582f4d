#include "selection/data_statement.h"

#include "selection_fixture.h"

namespace vantrel {
namespace {

TEST_F(SelectionTest, DataStatementsTakeTheFirstClauseThatMatches) {
  struct Case {
    const char* statement;
    const char* value;
    Texts faults;  // without the statement that each of them quotes
  };
  const std::vector<Case> cases = {
      {"45", "45", {}},
      {"  45 ", "45", {}},
      {"45n,47n if target is \"TV6105\",33n if config is \"DLSCM\"", "33n", {}},
      {"45,47 if target is \"TV6102\",33 if config is \"DLSCM\"", "47", {}},
      {"45 , 47 IF target is \" tv6102 \"", "47", {}},
      {"45,47 if config is \"dlscm\"", "47", {}},
      {"45,47 if target is \"6102\"", "45", {}},
      {"", "", {"Missing Value In Data"}},
      {"45,50", "45", {"Expected 'if' in Data Statement"}},
      {"45,", "45", {"Expected Alternative Value In Data", "Expected 'if' in Data Statement"}},
      {"45,50 when target is \"TV6102\"", "45", {"Expected 'if' in Data Statement"}},
      {"45,50 if", "45", {"Expected if ... <value> In Data", "Expected 'is' in If Statement"}},
      {"45,50 if lamp is \"TV6102\",60 if target is \"TV6102\"",
       "60",
       {"Expected target or config in if statement"}},
      {"45,50 if lamp is \"\"", "45", {"Expected target or config in if statement"}},
      {"45,50 if target = \"TV6102\",60 if target is \"TV6102\"",
       "45",
       {"Expected 'is' in If Statement"}},
      {"45,50 if target is TV6102", "45", {"Expected string to match in If statement"}},
      {"45,50 if target is \"TV6102", "45", {"String Not Delimited"}},
      {"45 47", "45", {}},
  };
  state.CurrentTarget = 2;
  state.CurrentConfig = 2;
  DataStatement statement(messages, details);
  for (const Case& c : cases) {
    messages.clear();
    EXPECT_EQ(statement.Evaluate(c.statement), c.value) << c.statement;
    Texts expected;
    for (const std::string& fault : c.faults) {
      const std::string source(c.statement);
      expected.push_back("Error : " + fault + (source.empty() ? "" : " (" + source + ")"));
    }
    for (const Message& message : messages.shown()) EXPECT_EQ(message.title, "Error in script");
    EXPECT_EQ(takeMessages(), expected) << c.statement;
  }
}

}  // namespace
}  // namespace vantrel
