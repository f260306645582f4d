#include "selection/data_statement.h"

namespace vantrel {

std::string DataStatement::Evaluate(std::string_view statement) {
  script_.ScriptInit(statement);
  std::string value = script_.ScriptToken("Missing Value In Data");
  while (script_.ScriptComma(false)) {
    std::string alternative;
    switch (readClause(alternative)) {
      case Clause::Matched:
        return alternative;
      case Clause::Broken:
        return value;
      case Clause::Unmatched:
        break;
    }
  }
  return value;
}

DataStatement::Clause DataStatement::readClause(std::string& alternative) {
  alternative = script_.ScriptToken("Expected Alternative Value In Data");
  if (!equal_ignoring_case(script_.ScriptToken(""), "if")) {
    script_.ScriptMessage("Expected 'if' in Data Statement");
    return Clause::Broken;
  }
  std::string subject;
  const bool has_subject = readSubject(subject);
  if (script_.ScriptToken("") != "is") {
    script_.ScriptMessage("Expected 'is' in If Statement");
    return Clause::Broken;
  }
  const std::string wanted = script_.ScriptString("string to match in If statement");
  const bool matches = has_subject && lower(trimmed(wanted)) == lower(subject);
  return matches ? Clause::Matched : Clause::Unmatched;
}

bool DataStatement::readSubject(std::string& subject) {
  const std::string word = script_.ScriptToken("Expected if ... <value> In Data");
  if (word == "target") {
    subject = to_text(details_.TargetDetails(kTargetName));
    return true;
  }
  if (word == "config") {
    subject = details_.ConfigDetails(kConfigShortCode);
    return true;
  }
  if (!word.empty()) script_.ScriptMessage("Expected target or config in if statement");
  return false;
}

}  // namespace vantrel
