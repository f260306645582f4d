#pragma once

#include <cstddef>

namespace vantrel {

/// How much a script may use. Scripts come from design data that users edit, so a statement can
/// neither hold the program up nor fill its memory.
struct ScriptLimits {
  /// Characters of one statement; more is "Out of memory".
  std::size_t statement_length = 256 * 1024;
  /// Work units of one statement, an operation each and more for long texts; more is "Script timed
  /// out".
  std::size_t steps = 250'000;
  /// Expressions and If statements inside one another; more is "Out of stack space".
  std::size_t depth = 500;
  /// Bytes of one text value; more is "Out of string space".
  std::size_t text_length = 64 * 1024;
  /// Variables of the host; more is "Out of memory".
  std::size_t variables = 1024;
};

namespace script {

/// What the running statement has left of its limits.
class Budget {
 public:
  explicit Budget(const ScriptLimits& limits) : limits_(limits), left_(limits.steps) {}

  /// Uses up `cost` work units.
  void step(std::size_t cost = 1);
  /// A text may have `length` bytes, or there is a Fault "Out of string space".
  void length(std::size_t length) const;
  /// A text of `length` bytes has been built or copied.
  void text(std::size_t length);
  /// A text of `length` bytes is being searched for one of `pattern` bytes, the slow way at worst.
  void search(std::size_t length, std::size_t pattern);

 private:
  ScriptLimits limits_;
  std::size_t left_;
};

}  // namespace script

}  // namespace vantrel
