#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "core/screen.h"
#include "core/signal.h"
#include "selection/command_table.h"
#include "selection/details.h"
#include "selection/slots.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// A command as a bar carries it: its row and its present state.
struct BarCommand {
  std::string key;
  std::string argument;
  std::string picture;
  std::string toolTip;
  std::string group;
  std::string caption;
  std::string tag;
  CommandKind kind = CommandKind::Command;
  bool button = false;  ///< Has a place on the toolbar, otherwise in a menu only.
  bool enabled = true;
  bool checked = false;  ///< Marks the entry that is shown now.

  /// Key and argument as they travel, joined by "*" when there is an argument.
  std::string command() const;
};

/// One of the owner's menus with its entries in order.
struct BarMenu {
  std::string name;     ///< "submenu_file" and the like.
  std::string caption;  ///< Caption on the menu bar.
  std::vector<BarCommand> entries;
};

/// An internet link of the menu of links.
struct BarLink {
  std::string manufacturer;
  std::string homepage;
};

/// What a bar needs of its owner and of the program. A callable may be empty and then does nothing;
/// without a reporter the bar is silent.
struct ControlBarHooks {
  std::string owner;  ///< Name of the screen that carries the bar.
  SysMsg* messages = nullptr;
  SelectionDetails* details = nullptr;  ///< Tells the data sheet of the selected IC.
  ShellOpen* shell = nullptr;
  /// The owner's handler, first to see every command; it sets `handled` to keep it from the bar.
  std::function<void(const std::string& command, const std::string& argument, bool& handled)>
      ownerHandler;
  /// Commands that mean the same on every screen and are not the bar's own; true when it knew it.
  std::function<bool(const std::string& command, const std::string& argument)> application;
  std::function<bool()> isBusy;      ///< While true, no command but `c_quit` is taken.
  std::function<void()> print_form;  ///< Prints the owner.
  std::function<void()> showAbout;   ///< Shows the screen `About`.
  std::function<void()> StartAboutUpdateCheck;
  std::function<std::string()> helpPage;  ///< Path of the first help page, empty without one.
  /// Lists what may be selected in a slot, with the present selection marked.
  std::function<void(int slot, PullDown& list)> listItems;
  /// Selects an item of a slot as the user does; false when it is not on offer.
  std::function<bool(int slot, std::int32_t id)> selectItem;
};

/// Number of the pull-down for a screen's own sub-lists; those before it list the four slots.
inline constexpr int kDetailsList = kSlotCount;

/// The strip that every design screen carries: commands as buttons and menus, pull-downs with the
/// current selection and with the screen's sub-lists, and the status line.
class control_bar {
 public:
  /// Everything that the hooks name must outlive the bar.
  explicit control_bar(ControlBarHooks hooks = {});

  // Selection

  /// Sets the selected item of a slot; an unknown slot is left alone.
  void SetInfo(int slot, std::int32_t id, const std::string& name);
  /// Sets the text that the slot's pull-down shows and leaves the ID alone.
  void SetSelection(int slot, const std::string& name);
  /// ID of the selected item of a slot, -1 while there is none.
  std::int32_t GetInfo(int slot) const;
  /// Name of the selected item of a slot, empty while there is none.
  const std::string& GetInfoName(int slot) const;

  /// Opens or shuts the choice of line input and lamp configuration and the way to the advanced
  /// screen. All three are open at first.
  void SetAvailable(bool input, bool config, bool advanced);
  /// True when the item of the slot may be chosen; only INPUT and CONFIG can be shut.
  bool IsSlotAvailable(int slot) const;
  bool IsAdvancedAvailable() const { return advanced_available_; }
  /// Enables or disables the pull-downs of all slots; one that is shut stays disabled.
  void SetEnabledStateOfAllSelectors(bool enabled);

  // Pull-downs: lists 0 to 3 are those of the slots, kDetailsList is that of the screen's
  // sub-lists.

  const PullDown& Pulldown(int list) const;
  /// Fills the pull-down of a slot with what may be selected now.
  void RefreshSelector(int slot);
  /// Fills the pull-down of the screen's sub-lists and brings its first line up.
  void SetDetails(const std::vector<std::string>& items);
  /// Position of the line that a pull-down shows, -1 when it shows none.
  int DetailsGetListIndex(int list = kDetailsList) const;
  int DetailsGetListCount(int list = kDetailsList) const;
  /// Brings a line up without acting on it; false for a position outside the list.
  bool DetailsSetListIndex(int position, int list = kDetailsList);
  /// Brings the next line up; false at the end of the list, which stays as it is.
  bool DetailsMoveNext(int list = kDetailsList);
  /// Acts on the line that is up as the user's choice of it does: selects the item of a slot, or
  /// raises `detailSelected`. False when there is none or it is not on offer.
  bool SelectItemFromPulldown(int list = kDetailsList);

  // Commands

  /// Fills the bar and the menus for a ToolbarType with ToolbarFlags. False, with a report, for an
  /// unknown type, which leaves the bar empty.
  bool initialise_toolbar(int type, int flags);
  /// Adds a command with a button; one that has a menu group is also in the menu.
  void add_button(BarCommand command);
  /// Adds a menu entry with no button.
  void add_button_menu(BarCommand command);
  /// Builds the menus anew from the commands.
  void setmenu();
  /// Adds one command to the menu of its group; an unknown group is left alone.
  void setmenuItem(const BarCommand& command);
  /// Lists the internet links in the menu group `key`, in place of those before.
  void setweblinks(std::string_view key, std::span<const BarLink> links);
  /// Lists the calculations of the history, of which `shown` is on show (-1 for none), and opens
  /// the ways back and forward from there.
  void CreateCalculationBrowserMenu(const std::vector<std::string>& titles, int shown);

  /// Enables or disables all commands of that key; names no separator.
  void set_enabled_byname(std::string_view key, bool enabled);
  void set_enabled_bytag(std::string_view tag, bool enabled);
  /// False for a command that is disabled or that the bar does not have.
  bool is_enabled(std::string_view key) const;

  /// Carries out a command: the owner's handler is asked first, then the bar's own commands. A "*"
  /// in `command` parts it from its argument, which takes the place of `argument`.
  void execute_command(std::string command, std::string argument, bool& handled);
  /// The same; true when the command was known.
  bool execute_command(const std::string& command, const std::string& argument = "");

  /// The toolbar from left to right, gaps among the buttons.
  std::vector<BarCommand> buttons() const;
  /// The owner's menus that have entries, in the order of the menu bar.
  const std::vector<BarMenu>& menus() const { return menus_; }

  void set_status(std::string_view text);
  const std::string& status() const { return status_; }

  /// Offers the data sheet of the selected IC.
  void view_datasheets();
  /// Opens the first help page, or says that there is none.
  void show_help();
  /// Hands a web address or an existing file to the desktop. A failure tells the address.
  void show_web(const std::string& address);

  /// Raised when anything that the bar shows has changed.
  Signal<> changed;
  /// Raised with the position of the chosen line of the screen's sub-lists.
  Signal<int> detailSelected;
  /// Raised with the name of the menu that a button drops down.
  Signal<const std::string&> menuDropped;

 private:
  struct Info {
    std::int32_t id = -1;
    std::string name;
    bool available = true;
  };
  struct OwnCommand;

  int say(std::string_view text, int type = kMessageOk, int severity = kSeverityFromType);
  /// True for a command that the bar has and that is disabled.
  bool is_disabled(std::string_view key) const;
  bool run(const std::string& command, const std::string& argument);
  void showAboutScreen();
  void checkForUpdate();
  void dropWeblinks();
  void settleSelectors();
  template <typename Matches>
  void setEnabled(Matches matches, bool enabled);

  ControlBarHooks hooks_;
  std::array<Info, kSlotCount> infos_;
  std::array<PullDown, kSlotCount + 1> pull_downs_;
  bool advanced_available_ = true;
  bool selectors_enabled_ = true;
  std::deque<BarCommand> commands_;
  std::vector<BarMenu> menus_;
  std::string status_;
};

/// True for an http or https address and for the path of an existing file.
bool may_open(const std::string& address);

}  // namespace vantrel
