#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/run_state.h"
#include "core/screen.h"
#include "database/adoaccess.h"
#include "selection/browser_control.h"
#include "selection/control_bar.h"
#include "selection/details.h"
#include "selection/item_data.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// A small design database with the screens that a selection fills.
class SelectionTest : public ::testing::Test {
 protected:
  SelectionTest();
  ~SelectionTest() override;

  /// Runs statements in the store's own dialect.
  void sql(std::string_view script);
  /// A browser with the present state and hooks that record their calls.
  browser_control makeBrowser();
  /// Selects IC, input, lamp and configuration by name as the start of the program does.
  void selectAll(browser_control& browser, std::string_view lamp = "T5 28W");
  bool select(browser_control& browser, int slot, std::string_view name);

  Variant value(std::string_view field) { return advanced.field(field).value(); }
  std::string unit(std::string_view field) { return advanced.field(field).ValueBaseUnits(); }
  /// The texts of all messages since the last call.
  std::vector<std::string> takeMessages();
  /// "Name" of every listed item.
  static std::vector<std::string> names(const browser_control& browser);
  static std::vector<std::string> titles(const browser_control& browser);

  std::filesystem::path file;
  SysMsg messages;
  FieldContext context{messages, '.', {}, {}};
  RunState state;
  adoaccess_class database{messages};
  Screen advanced{"Advanced", "Operating Points", context};
  SelectionDetails details{database, messages, state};
  std::vector<std::string> log;
  ItemData items{database, messages, details, advanced,
                 [this](const std::string& line) { log.push_back(line); }};
  std::array<control_bar, 5> bars;
  std::vector<std::string> calls;
};

using Texts = std::vector<std::string>;

}  // namespace vantrel
