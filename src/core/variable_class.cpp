#include "core/variable_class.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

/// Where a field key leads; the member's type is the type that values are converted to.
using Member = std::variant<bool VariableEntry::*, std::string VariableEntry::*,
                            Variant VariableEntry::*, std::int32_t VariableEntry::*>;

struct FieldKey {
  std::string_view key;
  Member member;
};

constexpr std::string_view kName = "variablename";
constexpr std::string_view kFixed = "fixed";

const FieldKey* find_key(std::string_view field) {
  static constexpr std::array<FieldKey, 11> kKeys{
      {{kFixed, &VariableEntry::fixed},
       {kName, &VariableEntry::variablename},
       {"reference", &VariableEntry::reference},
       {"value", &VariableEntry::value},
       {"valueunit", &VariableEntry::valueunit},
       {"rating", &VariableEntry::rating},
       {"description", &VariableEntry::description},
       {"tolerance", &VariableEntry::tolerance},
       {"ccoutput", &VariableEntry::ccoutput},
       {"removeifnomatch", &VariableEntry::removeifnomatch},
       {"flags", &VariableEntry::flags}}};
  const auto found = std::find_if(kKeys.begin(), kKeys.end(), [&](const FieldKey& entry) {
    return equal_ignoring_case(entry.key, field);
  });
  return found == kKeys.end() ? nullptr : found;
}

struct Storer {
  VariableEntry& entry;
  const Variant& value;
  void operator()(bool VariableEntry::*member) const { entry.*member = to_bool(value); }
  void operator()(std::string VariableEntry::*member) const { entry.*member = to_text(value); }
  void operator()(Variant VariableEntry::*member) const { entry.*member = value; }
  void operator()(std::int32_t VariableEntry::*member) const { entry.*member = to_int32(value); }
};

Variant read_member(const VariableEntry& entry, const Member& member) {
  return std::visit([&](auto pointer) { return Variant(entry.*pointer); }, member);
}

std::string name_of(const Variant& variable) {
  try {
    return variable.is_null() ? "Null" : to_text(variable);
  } catch (const Fault&) {
    return std::string(variable.type_name());
  }
}

}  // namespace

void VariableClass::initialise() {
  entries_.clear();
  index_.clear();
}

std::int32_t VariableClass::CreateVariableEntry(std::string_view name) {
  const auto [entry, added] = index_.try_emplace(trimmed(name), VariableCount());
  if (!added) {
    messages_.msg("", "Cannot create variable '" + std::string(name) + "' as it already exists");
    return VariableCount();
  }
  entries_.emplace_back().variablename = entry->first;
  return entry->second;
}

bool VariableClass::DeleteVariableEntry(std::string_view name, std::int32_t index) {
  if (name.empty() && index < 0) {
    messages_.msg("", "Cannot delete variable - no variable name or index specified");
    return false;
  }
  if (!name.empty()) index = GetVariableEntryNumber(name);
  if (index < 0 || index >= VariableCount()) {
    messages_.msg("", "Cannot delete variable - no valid index found");
    return false;
  }
  index_.erase(entries_[static_cast<std::size_t>(index)].variablename);
  entries_.erase(entries_.begin() + index);
  reindex(static_cast<std::size_t>(index));
  return true;
}

std::int32_t VariableClass::GetVariableEntryNumber(std::string_view name) const {
  const auto found = index_.find(trimmed(name));
  return found == index_.end() ? -1 : found->second;
}

void VariableClass::SortVariablesAlphabetically(bool ascending) {
  std::sort(entries_.begin(), entries_.end(), [&](const VariableEntry& a, const VariableEntry& b) {
    return ascending ? a.variablename < b.variablename : b.variablename < a.variablename;
  });
  reindex(0);
}

void VariableClass::reindex(std::size_t from) {
  for (std::size_t i = from; i < entries_.size(); ++i) {
    index_[entries_[i].variablename] = static_cast<std::int32_t>(i);
  }
}

VariableEntry* VariableClass::find(const Variant& variable) {
  std::int32_t index = -1;
  if (variable.is_string()) {
    index = GetVariableEntryNumber(variable.get<std::string>());
  } else {
    try {
      index = to_int32(variable);
    } catch (const Fault&) {
      return nullptr;
    }
  }
  const bool valid = index >= 0 && index < VariableCount();
  return valid ? &entries_[static_cast<std::size_t>(index)] : nullptr;
}

void VariableClass::report(std::string_view routine, const Variant& variable,
                           const std::string& text) {
  messages_.msg("", std::string(routine) + " (" + name_of(variable) + ") - " + text);
}

bool VariableClass::VEmpty(const Variant& variable) {
  VariableEntry* const entry = find(variable);
  if (entry == nullptr) {
    report("VEmpty", variable, "Cannot find this variable to empty");
    return false;
  }
  entry->value = {};
  return true;
}

bool VariableClass::HasValue(const Variant& variable) {
  const VariableEntry* const entry = find(variable);
  if (entry == nullptr) {
    report("HasValue", variable, "Cannot find this variable");
    return false;
  }
  return !entry->value.is_empty();
}

bool VariableClass::VSet(const Variant& variable, std::string_view field,
                         const Variant& new_value) {
  VariableEntry* const entry = find(variable);
  if (entry == nullptr) {
    report("VSET", variable, "Cannot find this variable to set field : " + std::string(field));
    return false;
  }
  const FieldKey* const key = find_key(field);
  if (key == nullptr || key->key == kName) {
    report("VSET", variable, "unknown field : " + std::string(field));
    return true;
  }
  try {
    std::visit(Storer{*entry, new_value}, key->member);
    return true;
  } catch (const Fault& fault) {
    report("VSET", variable, std::string(fault.what()) + " : " + std::string(field));
    return false;
  }
}

Variant VariableClass::VGet(const Variant& variable, std::string_view field) {
  const VariableEntry* const entry = find(variable);
  if (entry == nullptr) {
    report("VGET", variable, "Cannot find this variable to get field : " + std::string(field));
    return {};
  }
  const FieldKey* const key = find_key(field);
  if (key == nullptr) {
    report("VGET", variable, "unknown field : " + std::string(field));
    return {};
  }
  return read_member(*entry, key->member);
}

std::string VariableClass::VType(const Variant& variable, std::string_view field) {
  const VariableEntry* const entry = find(variable);
  if (entry == nullptr) {
    report("VTYPE", variable, "Cannot find this variable to get fieldtype : " + std::string(field));
    return {};
  }
  const FieldKey* const key = find_key(field);
  if (key == nullptr || key->key == kFixed) {
    report("VTYPE", variable, "unknown field : " + std::string(field));
    return {};
  }
  return std::string(read_member(*entry, key->member).type_name());
}

}  // namespace vantrel
