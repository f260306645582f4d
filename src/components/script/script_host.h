#pragma once

#include <string_view>

#include "components/script/machine.h"
#include "components/script/script_limits.h"
#include "components/script/script_object.h"

namespace vantrel {

/// Runs single statements of VBScript: assignments, calls of the given objects, If on one line, Dim
/// and Call, with VBScript's operators and its common functions. Variables need no declaration and
/// live from statement to statement. A script reaches the given objects and nothing else: no file,
/// no process, no network.
class ScriptHost {
 public:
  explicit ScriptHost(const ScriptLimits& limits = {});

  /// Gives scripts `object` under `name`, in place of what had that name. It must outlive the host.
  void addObject(std::string_view name, ScriptObject& object);

  /// Runs `statement`, several when ":" or a line end separates them. A Fault bears VBScript's
  /// text; one from reading the statement means that nothing ran, one from running it leaves what
  /// was done before.
  void execute(std::string_view statement);

  /// Forgets all variables; the objects stay.
  void reset();

 private:
  ScriptLimits limits_;
  script::Variables variables_;
  script::Objects objects_;
};

}  // namespace vantrel
