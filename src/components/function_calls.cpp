#include "components/function_calls.h"

#include <optional>

#include "core/fault.h"
#include "core/number_text.h"
#include "operating/targets/component_result.h"

namespace vantrel {

namespace {

/// What a tag of a result stands for.
struct TagTarget {
  ResultTag tag;
  const char* field;
  bool text_only;
};

constexpr TagTarget kTags[] = {
    {kTagValue, "Value", false}, {kTagRating, "Rating", true}, {kTagTolerance, "Tolerance", true}};

const TagTarget* find_tag(const Variant& tag) {
  for (const TagTarget& entry : kTags) {
    if (tag.is_numeric() && to_double(tag) == static_cast<double>(entry.tag)) return &entry;
  }
  return nullptr;
}

std::string call_line(const Target* object, const std::string& function,
                      const std::string& parameter_text) {
  return "Calling function " + std::string(type_name(object)) + "." + function + " (" +
         parameter_text + ")";
}

std::string internal_error(const std::string& function, const std::string& fault) {
  return "ERROR: Internal error in function '" + function + "' (" + fault + ")";
}

}  // namespace

/// Null stands for a call that failed.
Variant FunctionCalls::call(const Target* object, const std::string& function,
                            std::span<const Variant> values, std::string& fault) {
  const ComponentEntry* entry = object == nullptr ? nullptr : object->component(function);
  if (entry == nullptr || static_cast<std::size_t>(entry->arity) != values.size()) return Null{};
  try {
    return entry->function({context_.services.advanced, context_.services.state, &fault}, values);
  } catch (const Fault&) {
    return Null{};
  }
}

bool FunctionCalls::AttemptCalculation(const Target* target, const Target* generic,
                                       std::int32_t index, const std::string& function,
                                       std::span<const Variant> values,
                                       const std::string& parameter_text) {
  for (const Target* object : {target, generic}) {
    context_.log(call_line(object, function, parameter_text));
    if (values.size() > kMostParameters) {
      context_.box("Cannot process this no. of function parameters (" +
                   general_text(static_cast<std::int32_t>(values.size())) + ")");
      return false;
    }
    std::string fault;
    const Variant result = call(object, function, values, fault);
    if (result.is_empty()) {
      context_.logAndShow(internal_error(function, fault));
      return false;
    }
    if (!result.is_null()) return store(index, result);
  }
  const std::string text = "ERROR: Could not find the function '" + function + "'";
  context_.log(text);
  context_.box(text);
  return false;
}

bool FunctionCalls::store(std::int32_t index, const Variant& result) {
  VariableClass& variables = context_.variables;
  std::string text;
  if (result.is_array()) {
    if (!storeTagged(index, result.get<Variant::Array>(), text)) return false;
  } else if (result.is_string()) {
    variables.VSet(index, "Value", result);
    variables.VSet(index, "Fixed", true);
  } else {
    // A bare number goes through its text, whatever its width, and leaves the variable open: the
    // function is called again in every pass.
    const std::optional<double> number = parse_number(to_text(result));
    if (!number) return false;
    variables.VSet(index, "Value", *number);
  }
  context_.log("Results are : " + text);
  return true;
}

bool FunctionCalls::storeTagged(std::int32_t index, const Variant::Array& items,
                                std::string& text) {
  for (std::size_t at = 0; at + 1 < items.size(); at += 2) {
    const TagTarget* const tag = find_tag(items[at]);
    const Variant& content = items[at + 1];
    if (tag == nullptr) {
      context_.logAndShow("ERROR: Call to function returned UNKNOWN type in results array");
      return false;
    }
    const std::string name = tag->field;
    if (tag->text_only && !content.is_string()) {
      context_.logAndShow("ERROR: Call to function returned a " + name +
                          " value that wasn't a string");
      return false;
    }
    context_.variables.VSet(index, name, content);
    context_.variables.VSet(index, "Fixed", true);
    if (!text.empty()) text += ", ";
    text += name + " = " + to_text(content) + " (" + std::string(content.type_name()) + ")";
  }
  return true;
}

}  // namespace vantrel
