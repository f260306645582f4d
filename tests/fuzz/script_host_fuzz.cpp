#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "components/script/script_host.h"
#include "core/fault.h"

namespace vantrel {
namespace {

/// Gives back its first argument, whatever the method.
class Echo : public ScriptObject {
 public:
  Variant call(std::string_view method, std::span<const Variant> args) override {
    if (method == "Nothing") throw unsupported_member(method);
    return args.empty() ? Variant() : args.front();
  }
};

}  // namespace
}  // namespace vantrel

/// The input is one statement. It runs three times on one host, so that its variables meet
/// themselves; only a Fault may come out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vantrel::Echo echo;
  vantrel::ScriptHost host;
  host.addObject("Calculator", echo);
  const std::string_view statement(reinterpret_cast<const char*>(data), size);
  for (int round = 0; round < 3; ++round) {
    try {
      host.execute(statement);
    } catch (const vantrel::Fault&) {
      // Faults are how the host answers a bad statement.
    }
  }
  return 0;
}
