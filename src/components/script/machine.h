#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "components/script/program.h"
#include "components/script/script_limits.h"
#include "components/script/script_object.h"

namespace vantrel::script {

/// Orders names without regard to case.
struct NameLess {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

using Variables = std::map<std::string, Variant, NameLess>;
using Objects = std::map<std::string, std::reference_wrapper<ScriptObject>, NameLess>;

/// Runs one Program on the variables and objects of a host.
class Machine {
 public:
  Machine(Variables& variables, const Objects& objects, const ScriptLimits& limits);

  /// Raises the Fault that ends the program; what it has done until then stays done.
  void run(const Program& program);

 private:
  void execute(const Program& program, const Step& step);
  void load(const std::string& name);
  Variant& variable(const std::string& name);
  void call_method(const std::string& object, const std::string& member, std::size_t count);
  ScriptObject& object(const std::string& name) const;
  void binary(BinaryOperator operation);
  void call_name(const std::string& name) const;
  bool condition();
  void push(Variant value);
  Variant pop();
  std::span<const Variant> top(std::size_t count) const;
  void replace(std::size_t count, Variant result);

  Variables& variables_;
  const Objects& objects_;
  std::size_t most_variables_;
  Budget budget_;
  std::vector<Variant> stack_;
  std::size_t next_ = 0;
};

}  // namespace vantrel::script
