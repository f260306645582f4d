#pragma once

#include <stdexcept>
#include <string_view>

#include "app/design_status.h"
#include "app/json_variant.h"
#include "platform/report_export.h"

namespace vantrel {

/// What is wrong with a command itself: an unknown operation, a missing argument, a name that does
/// not exist. It becomes the reply's "error".
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The automation interface: one JSON object in, one out. Every reply has "ok" and "messages", the
/// messages that the command raised in the order in which they were shown.
class Automation {
 public:
  explicit Automation(Session& session) : session_(session), status_(session) {}

  /// Runs one command; never throws.
  Json run(const Json& command);
  /// Parses and runs one line; text that is no JSON object is answered with an error.
  Json runLine(std::string_view line);

 private:
  Json perform(const Json& command);
  Json exportReport(const Json& command);

  Session& session_;
  DesignStatus status_;
  ReportExport reports_;
};

}  // namespace vantrel
