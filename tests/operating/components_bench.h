#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/run_state.h"
#include "core/screen.h"
#include "core/variant.h"
#include "operating/targets/target.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

using Args = Variant::Array;

/// Calls component functions of a target as a rule would, beside a design screen that has just the
/// field they read.
class ComponentsBench : public ::testing::Test {
 protected:
  ComponentsBench() {
    advanced.addField({.name = "lamp_hasrdc",
                       .label = "",
                       .unit = "",
                       .places = "",
                       .type = kTextual,
                       .visible = false});
  }

  Variant call(const Target& target, std::string_view name, const Args& arguments) const {
    const ComponentEntry* entry = target.component(name);
    if (entry == nullptr || entry->arity != static_cast<int>(arguments.size())) {
      ADD_FAILURE() << target.name() << " has no " << name << " of " << arguments.size();
      return {};
    }
    return entry->function(ComponentContext{screen(), state}, arguments);
  }

  /// The result as text: "0 String N/C, 1 String N/C", or the type and value of a bare one.
  std::string text(const Target& target, std::string_view name, const Args& arguments) const {
    const Variant result = call(target, name, arguments);
    if (!result.is_array()) return described(result);
    std::string all;
    const auto& items = result.get<Variant::Array>();
    for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
      if (!all.empty()) all += ", ";
      all += to_text(items[i]) + " " + described(items[i + 1]);
    }
    return all;
  }

  /// A result that must set the value alone, or be a bare number.
  void expectNumber(const Target& target, std::string_view name, const Args& arguments,
                    const Variant& expected) const {
    SCOPED_TRACE(target.name() + "." + std::string(name));
    const Variant result = call(target, name, arguments);
    ASSERT_TRUE(result.is_array()) << described(result);
    const auto& items = result.get<Variant::Array>();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(to_double(items[0]), 0);
    EXPECT_EQ(described(items[1]), described(expected));
  }

  SysMsg messages;
  FieldContext fields{.messages = messages, .playClickSound = {}, .addMissingField = {}};
  mutable Screen advanced{"Advanced", "", fields};
  RunState state;

 private:
  static std::string described(const Variant& value) {
    return std::string(value.type_name()) + " " + to_text(value);
  }
  Screen& screen() const { return advanced; }
};

}  // namespace vantrel
