#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "components/script/builtin_functions.h"
#include "components/script/characters.h"
#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel::script::builtin {

namespace {

/// A number of characters or a position, not below `least`.
std::size_t size_argument(const Variant& value, std::int32_t least) {
  const std::int32_t number = to_int32(value);
  if (number < least) throw Fault(fault_text::kInvalidCall);
  return static_cast<std::size_t>(number);
}

bool ignores_case(Arguments args, std::size_t index) {
  if (index >= args.size()) return false;
  const std::int32_t mode = to_int32(args[index]);
  if (mode != 0 && mode != 1) throw Fault(fault_text::kInvalidCall);
  return mode == 1;
}

Variant trimmed_blanks(const Variant& value, bool front, bool back) {
  const std::string text = to_text(value);
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  const std::size_t begin = front ? first : 0;
  const std::size_t end = back ? text.find_last_not_of(' ') + 1 : text.size();
  return text.substr(begin, end - begin);
}

/// Where a pattern stands in a text, in bytes, with or without regard to case.
class Search {
 public:
  Search(std::string text, std::string pattern, bool ignore_case, Budget& budget)
      : text_(ignore_case ? lower(text) : std::move(text)),
        pattern_(ignore_case ? lower(pattern) : std::move(pattern)) {
    budget.search(text_.size(), pattern_.size());
  }
  std::size_t next(std::size_t from) const { return text_.find(pattern_, from); }

 private:
  std::string text_;
  std::string pattern_;
};

}  // namespace

Variant Len(Arguments args, Budget&) {
  return static_cast<std::int32_t>(character_count(to_text(args[0])));
}

Variant Left(Arguments args, Budget&) {
  const std::string text = to_text(args[0]);
  return text.substr(0, byte_offset(text, size_argument(args[1], 0)));
}

Variant Right(Arguments args, Budget&) {
  const std::string text = to_text(args[0]);
  const std::size_t total = character_count(text);
  const std::size_t wanted = std::min(size_argument(args[1], 0), total);
  return text.substr(byte_offset(text, total - wanted));
}

Variant Mid(Arguments args, Budget&) {
  const std::string text = to_text(args[0]);
  const std::size_t begin = byte_offset(text, size_argument(args[1], 1) - 1);
  const std::string tail = text.substr(begin);
  if (args.size() < 3) return tail;
  return tail.substr(0, byte_offset(tail, size_argument(args[2], 0)));
}

Variant InStr(Arguments args, Budget& budget) {
  const std::size_t first = args.size() > 2 ? 1 : 0;
  if (args[first].is_null() || args[first + 1].is_null()) return Null{};
  const std::size_t start = first == 1 ? size_argument(args[0], 1) : 1;
  const std::string text = to_text(args[first]);
  const std::string pattern = to_text(args[first + 1]);
  const Search search(text, pattern, ignores_case(args, 3), budget);
  constexpr std::int32_t kNotFound = 0;
  if (start > character_count(text)) return kNotFound;
  if (pattern.empty()) return static_cast<std::int32_t>(start);
  const std::size_t found = search.next(byte_offset(text, start - 1));
  if (found == std::string::npos) return kNotFound;
  return static_cast<std::int32_t>(character_count(std::string_view(text).substr(0, found)) + 1);
}

Variant Replace(Arguments args, Budget& budget) {
  const std::string whole = to_text(args[0]);
  const std::string pattern = to_text(args[1]);
  const std::string replacement = to_text(args[2]);
  const std::size_t start = args.size() > 3 ? size_argument(args[3], 1) : 1;
  const std::int32_t count = args.size() > 4 ? to_int32(args[4]) : -1;
  if (count < -1) throw Fault(fault_text::kInvalidCall);
  const std::string text = whole.substr(byte_offset(whole, start - 1));
  const Search search(text, pattern, ignores_case(args, 5), budget);
  if (pattern.empty()) return text;

  std::string result;
  std::size_t copied = 0;
  std::int32_t left = count < 0 ? std::numeric_limits<std::int32_t>::max() : count;
  for (std::size_t found = search.next(0); found != std::string::npos && left > 0; --left) {
    result.append(text, copied, found - copied).append(replacement);
    budget.length(result.size());
    budget.step();
    copied = found + pattern.size();
    found = search.next(copied);
  }
  return result.append(text, copied);
}

Variant UCase(Arguments args, Budget&) { return upper(to_text(args[0])); }
Variant LCase(Arguments args, Budget&) { return lower(to_text(args[0])); }
Variant Trim(Arguments args, Budget&) { return trimmed_blanks(args[0], true, true); }
Variant LTrim(Arguments args, Budget&) { return trimmed_blanks(args[0], true, false); }
Variant RTrim(Arguments args, Budget&) { return trimmed_blanks(args[0], false, true); }

Variant Chr(Arguments args, Budget&) {
  const std::int32_t code = to_int32(args[0]);
  if (code < 0 || code > 255) throw Fault(fault_text::kInvalidCall);
  return latin1_character(static_cast<std::uint8_t>(code));
}

Variant Asc(Arguments args, Budget&) {
  const std::string text = to_text(args[0]);
  if (text.empty()) throw Fault(fault_text::kInvalidCall);
  return static_cast<std::int16_t>(latin1_code(text));
}

}  // namespace vantrel::script::builtin
