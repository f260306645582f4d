#include <functional>
#include <unordered_map>

#include "app/automation_ops.h"
#include "components/preferred/preferred_values.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "core/units.h"
#include "database/lookup.h"

namespace vantrel {

namespace {

using Arguments = Variant::Array;

struct Conversion {
  std::size_t fewest;
  std::size_t most;
  std::function<Variant(Session&, const Arguments&)> call;
};

std::string text_at(const Arguments& arguments, std::size_t position) {
  return position < arguments.size() ? to_text(arguments[position]) : std::string();
}

char letter_at(const Arguments& arguments, std::size_t position) {
  const std::string text = text_at(arguments, position);
  if (text.size() != 1) throw CommandError("A single character is wanted, not '" + text + "'");
  return text.front();
}

/// Interpolates with warnings going to the log of the session.
Variant looked_up(Session& session, const Arguments& a, double multiplier, double divisor) {
  Lookup lookup(session.database(), session.messages());
  return lookup.LookupValue(text_at(a, 0), text_at(a, 1), to_single(a[2]), multiplier, divisor,
                            [&session](const std::string& line) { session.log().write(line); });
}

const std::unordered_map<std::string, Conversion>& conversions() {
  static const std::unordered_map<std::string, Conversion> table{
      {"si_from",
       {3, 3,
        [](Session& s, const Arguments& a) -> Variant {
          return si_from(to_double(a[0]), text_at(a, 1), text_at(a, 2), s.messages());
        }}},
      {"si_to",
       {3, 3,
        [](Session& s, const Arguments& a) -> Variant {
          return si_to(to_double(a[0]), text_at(a, 1), text_at(a, 2), s.messages());
        }}},
      {"si_scale",
       {1, 2,
        [](Session& s, const Arguments& a) -> Variant {
          return si_scale(a[0], text_at(a, 1), s.messages());
        }}},
      {"si_scale_single",
       {1, 2,
        [](Session& s, const Arguments& a) -> Variant {
          return si_scale_single(to_double(a[0]), text_at(a, 1), s.messages());
        }}},
      {"si_unscale",
       {2, 2,
        [](Session&, const Arguments& a) -> Variant { return si_unscale(a[0], text_at(a, 1)); }}},
      {"si_prefix",
       {1, 2,
        [](Session& s, const Arguments& a) -> Variant {
          return si_prefix(a[0], text_at(a, 1), s.messages());
        }}},
      {"si_text",
       {3, 4,
        [](Session& s, const Arguments& a) -> Variant {
          return si_text(to_double(a[0]), text_at(a, 1), text_at(a, 2), text_at(a, 3),
                         s.messages());
        }}},
      {"number_text",
       {1, 1,
        [](Session&, const Arguments& a) -> Variant { return number_text(to_single(a[0])); }}},
      {"general_text",
       {1, 1, [](Session&, const Arguments& a) -> Variant { return to_text(a[0]); }}},
      {"format",
       {2, 2,
        [](Session&, const Arguments& a) -> Variant {
          if (a[0].type() == Variant::Type::Single) {
            return format_mask(a[0].get<float>(), text_at(a, 1));
          }
          return format_mask(to_double(a[0]), text_at(a, 1));
        }}},
      {"local_decimal",
       {2, 3,
        [](Session&, const Arguments& a) -> Variant {
          const char locale_separator = a.size() > 2 ? letter_at(a, 2) : '.';
          return local_decimal(text_at(a, 0), letter_at(a, 1), locale_separator);
        }}},
      {"round_to",
       {2, 2,
        [](Session&, const Arguments& a) -> Variant {
          return round_to(to_double(a[0]), to_int32(a[1]));
        }}},
      {"Val", {1, 1, [](Session&, const Arguments& a) -> Variant { return Val(text_at(a, 0)); }}},
      {"FieldCount",
       {2, 2,
        [](Session&, const Arguments& a) -> Variant {
          return static_cast<std::int32_t>(FieldCount(text_at(a, 0), letter_at(a, 1)));
        }}},
      {"GetField",
       {3, 4,
        [](Session& s, const Arguments& a) -> Variant {
          const bool report = a.size() > 3 && to_bool(a[3]);
          return GetField(text_at(a, 0), to_int32(a[1]), letter_at(a, 2), report, s.messages());
        }}},
      {"NullToText",
       {1, 1, [](Session&, const Arguments& a) -> Variant { return NullToText(a[0]); }}},
      {"find_nearest_resistor",
       {2, 2,
        [](Session& s, const Arguments& a) -> Variant {
          std::int32_t series = to_int32(a[1]);
          return find_nearest_resistor(to_double(a[0]), series, s.messages());
        }}},
      {"find_nearest_capacitor",
       {2, 2,
        [](Session& s, const Arguments& a) -> Variant {
          std::int32_t series = to_int32(a[1]);
          return find_nearest_capacitor(to_double(a[0]), series, s.messages());
        }}},
      {"LookupInterpolate",
       {3, 3, [](Session& s, const Arguments& a) -> Variant { return looked_up(s, a, 1, 1); }}},
      {"LookupValue",
       {5, 5,
        [](Session& s, const Arguments& a) -> Variant {
          return looked_up(s, a, to_double(a[3]), to_double(a[4]));
        }}},
  };
  return table;
}

}  // namespace

Json op_convert(Session& session, const Json& command) {
  const std::string name = text_argument(command, "fn");
  const auto conversion = conversions().find(name);
  if (conversion == conversions().end()) throw CommandError("Unknown conversion '" + name + "'");
  const Arguments arguments = list_argument(command, "args");
  const Conversion& entry = conversion->second;
  if (arguments.size() < entry.fewest || arguments.size() > entry.most) {
    throw CommandError("'" + name + "' does not take " + std::to_string(arguments.size()) +
                       " arguments");
  }
  const Variant result = entry.call(session, arguments);
  return {{"result", to_json(result)}, {"type", result.type_name()}};
}

}  // namespace vantrel
