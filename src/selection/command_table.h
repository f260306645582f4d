#pragma once

#include <span>
#include <string_view>

namespace vantrel {

/// The three kinds of bars.
enum ToolbarType { kToolbarDesign = 1, kToolbarTable = 2, kToolbarImage = 3 };

/// What a screen tells about itself when its bar is filled; combined with "|".
enum ToolbarFlag {
  kToolbarPlain = 0,
  /// Leaves out Back and Forward on a design screen, zooming on an image screen.
  kToolbarShort = 1,
  kToolbarBill = 2,      ///< The image screen shows a bill of materials, not a picture.
  kToolbarSchematic = 4  ///< The image screen shows a schematic.
};

/// What a row of a command table stands for.
enum class CommandKind {
  Command,    ///< A button, a menu entry or both.
  Separator,  ///< A gap between buttons or a line in a menu; its key names no command.
  DropDown,   ///< A button that opens the menu of its group.
  LinkList    ///< The place of the internet links, which are read from the database.
};

/// When a row belongs to the bar.
enum class RowCondition { Always, Optional, Picture, Bill, Schematic };

/// One command of a bar.
struct CommandRow {
  const char* key;
  const char* picture;  ///< Picture key of the button, "-" for a gap, empty without a button.
  const char* toolTip;
  const char* menuGroup;  ///< Empty for a command that is in no menu.
  const char* caption;    ///< Menu caption with "&" in front of its letter, "-" for a line.
  CommandKind kind = CommandKind::Command;
  RowCondition when = RowCondition::Always;
  const char* tag = "";  ///< Name by which it is enabled together with others.
};

/// Tag of the entry that leads forward in the history.
inline constexpr const char* kForwardTag = "ForwardCalc";
/// Key of the entries that show one calculation of the history.
inline constexpr const char* kBrowseCalculation = "c_browsecalc";

/// The rows of a type of bar in the order in which they appear; empty for an unknown type.
std::span<const CommandRow> command_rows(int type);
/// True when a row with this condition belongs to a bar with these flags.
bool row_applies(RowCondition when, int flags);

/// One of the owner's menus. Two groups may share a menu.
struct MenuGroup {
  const char* group;
  const char* menu;     ///< "submenu_file" and the like.
  const char* caption;  ///< Caption on the menu bar.
};

/// All menu groups in the order of the menu bar.
std::span<const MenuGroup> menu_groups();
/// The menu of a group; nothing for an unknown one.
const MenuGroup* find_menu_group(std::string_view group);

}  // namespace vantrel
