#include "database_builder/data_statement_check.h"

#include "core/text_parsing.h"
#include "services/messages/sysmsg.h"

namespace vantrel::builder {

namespace {

class StatementReader {
 public:
  StatementReading read(std::string_view statement) {
    script_.ScriptInit(statement);
    reading_.values.push_back(script_.ScriptToken("Missing Value In Data"));
    bool complete = true;
    while (complete && script_.ScriptChar(',', "")) complete = readClause();
    if (complete && !script_.ScriptToken("").empty()) {
      script_.ScriptMessage("Text behind the end of the statement");
    }
    for (const Message& message : messages_.shown()) reading_.faults.push_back(message.text);
    return std::move(reading_);
  }

 private:
  /// False when the rest of the statement can no longer be read.
  bool readClause() {
    reading_.values.push_back(script_.ScriptToken("Expected Alternative Value In Data"));
    if (!equal_ignoring_case(script_.ScriptToken(""), "if")) {
      return refuse("Expected 'if' in Data Statement");
    }
    const std::string subject = script_.ScriptToken("Expected if ... <value> In Data");
    const bool target = equal_ignoring_case(subject, "target");
    if (!target && !equal_ignoring_case(subject, "config")) {
      return !subject.empty() && refuse("Expected target or config in if statement");
    }
    if (!equal_ignoring_case(script_.ScriptToken(""), "is")) {
      return refuse("Expected 'is' in If Statement");
    }
    const std::size_t shown = messages_.shown().size();
    const std::string text = script_.ScriptString("string to match in If statement");
    reading_.matches.push_back({target, trimmed(text)});
    return messages_.shown().size() == shown;
  }

  bool refuse(std::string_view message) {
    script_.ScriptMessage(message);
    return false;
  }

  SysMsg messages_;
  ScriptReader script_{messages_};
  StatementReading reading_;
};

}  // namespace

StatementReading read_statement(std::string_view statement) {
  return StatementReader().read(statement);
}

}  // namespace vantrel::builder
