#pragma once

#include <string>
#include <string_view>

#include "core/text_parsing.h"
#include "selection/details.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Reads the statements by which one database column depends on the selection:
/// `45n,47n if target is "TV6105",33n if config is "DLSCM"`. The first clause that matches wins,
/// without regard to case.
class DataStatement {
 public:
  DataStatement(SysMsg& messages, SelectionDetails& details)
      : script_(messages), details_(details) {}

  /// The value of the statement (the text behind the "$") for the present selection. A fault shows
  /// an "Error in script" box and leaves the value at the last one taken.
  std::string Evaluate(std::string_view statement);

 private:
  enum class Clause { Matched, Unmatched, Broken };
  Clause readClause(std::string& alternative);
  bool readSubject(std::string& subject);

  ScriptReader script_;
  SelectionDetails& details_;
};

}  // namespace vantrel
