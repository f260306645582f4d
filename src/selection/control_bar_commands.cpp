#include <algorithm>
#include <utility>

#include "core/number_text.h"
#include "selection/control_bar.h"

namespace vantrel {

namespace {

BarCommand command_of(const CommandRow& row) {
  BarCommand command;
  command.key = row.key;
  command.picture = row.picture;
  command.toolTip = row.toolTip;
  command.group = row.menuGroup;
  command.caption = row.caption;
  command.tag = row.tag;
  command.kind = row.kind;
  return command;
}

/// True when the command has a line of its own in the menu of its group.
bool is_menu_entry(const BarCommand& command) {
  const bool lists = command.kind == CommandKind::DropDown || command.kind == CommandKind::LinkList;
  return !command.group.empty() && !lists;
}

}  // namespace

std::string BarCommand::command() const { return argument.empty() ? key : key + "*" + argument; }

bool control_bar::initialise_toolbar(int type, int flags) {
  commands_.clear();
  const std::span<const CommandRow> rows = command_rows(type);
  for (const CommandRow& row : rows) {
    if (!row_applies(row.when, flags)) continue;
    // The links stand in the menu of the button before them and need none of their own.
    const bool has_button = *row.picture != '\0' && row.kind != CommandKind::LinkList;
    if (has_button) {
      add_button(command_of(row));
    } else {
      add_button_menu(command_of(row));
    }
  }
  // What the selection has shut stays shut on a bar that is filled anew.
  set_enabled_byname("c_advanced", advanced_available_);
  // The history has nothing to walk through until it says so.
  CreateCalculationBrowserMenu({}, -1);
  if (!rows.empty()) return true;
  say("Initialise Error : Could not create toolbar (unknown toolbar type " +
      general_text(std::int32_t{type}));
  return false;
}

void control_bar::add_button(BarCommand command) {
  command.button = true;
  commands_.push_back(std::move(command));
}

void control_bar::add_button_menu(BarCommand command) {
  command.button = false;
  commands_.push_back(std::move(command));
}

void control_bar::setmenu() {
  menus_.clear();
  for (const MenuGroup& group : menu_groups()) {
    const bool shared = !menus_.empty() && menus_.back().name == group.menu;
    if (!shared) menus_.push_back({group.menu, group.caption, {}});
  }
  for (const BarCommand& command : commands_) {
    if (is_menu_entry(command)) setmenuItem(command);
  }
  std::erase_if(menus_, [](const BarMenu& menu) { return menu.entries.empty(); });
  changed.raise();
}

void control_bar::setmenuItem(const BarCommand& command) {
  const MenuGroup* group = find_menu_group(command.group);
  if (group == nullptr) return;
  auto menu = std::find_if(menus_.begin(), menus_.end(),
                           [&](const BarMenu& one) { return one.name == group->menu; });
  if (menu == menus_.end()) menu = menus_.insert(menu, {group->menu, group->caption, {}});
  BarCommand& entry = menu->entries.emplace_back(command);
  if (entry.caption.empty()) entry.caption = entry.toolTip;
}

void control_bar::setweblinks(std::string_view key, std::span<const BarLink> links) {
  std::erase_if(commands_, [&](const BarCommand& command) {
    return command.group == key && command.kind == CommandKind::Command;
  });
  for (const BarLink& link : links) {
    BarCommand command;
    command.key = "c_web";
    command.argument = link.homepage;
    command.picture = "Weblinks";
    command.toolTip = link.homepage;
    command.group = key;
    // A lone "&" in a name would mark its next letter.
    for (const char letter : link.manufacturer)
      command.caption.append(letter == '&' ? 2 : 1, letter);
    add_button_menu(std::move(command));
  }
  setmenu();
}

void control_bar::CreateCalculationBrowserMenu(const std::vector<std::string>& titles, int shown) {
  constexpr const char* kLine = "sep_browsecalc";
  std::erase_if(commands_, [&](const BarCommand& command) {
    return command.key == kBrowseCalculation || command.key == kLine;
  });
  const auto add = [&](const char* key, std::string caption, CommandKind kind) -> BarCommand& {
    BarCommand command;
    command.key = key;
    command.caption = std::move(caption);
    command.group = "history";
    command.kind = kind;
    add_button_menu(std::move(command));
    return commands_.back();
  };
  if (!titles.empty()) add(kLine, "-", CommandKind::Separator);
  std::int32_t number = 0;
  for (const std::string& title : titles) {
    BarCommand& entry = add(kBrowseCalculation, title, CommandKind::Command);
    entry.checked = number == shown;
    entry.argument = general_text(++number);
  }
  const int last = static_cast<int>(titles.size()) - 1;
  set_enabled_byname("c_previous", shown > 0);
  set_enabled_bytag(kForwardTag, shown >= 0 && shown < last);
}

template <typename Matches>
void control_bar::setEnabled(Matches matches, bool enabled) {
  for (BarCommand& command : commands_) {
    if (command.kind != CommandKind::Separator && matches(command)) command.enabled = enabled;
  }
  setmenu();
}

void control_bar::set_enabled_byname(std::string_view key, bool enabled) {
  setEnabled([&](const BarCommand& command) { return command.key == key; }, enabled);
}

void control_bar::set_enabled_bytag(std::string_view tag, bool enabled) {
  if (tag.empty()) return;
  setEnabled([&](const BarCommand& command) { return command.tag == tag; }, enabled);
}

bool control_bar::is_enabled(std::string_view key) const {
  return std::any_of(commands_.begin(), commands_.end(), [&](const BarCommand& command) {
    return command.key == key && command.kind != CommandKind::Separator && command.enabled;
  });
}

std::vector<BarCommand> control_bar::buttons() const {
  std::vector<BarCommand> result;
  std::copy_if(commands_.begin(), commands_.end(), std::back_inserter(result),
               [](const BarCommand& command) { return command.button; });
  return result;
}

}  // namespace vantrel
