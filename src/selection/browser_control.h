#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/run_state.h"
#include "core/screen.h"
#include "core/signal.h"
#include "database/adoaccess.h"
#include "selection/control_bar.h"
#include "selection/item_data.h"
#include "selection/selection_rules.h"
#include "selection/slots.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What a selection has done by parts of the program that lie above it. A callable may be empty.
struct SelectionHooks {
  std::function<void()> loadGraphTimeDomain;     ///< Loads the waveform screen if it is not.
  std::function<void()> setFramesFromTabstrips;  ///< `Advanced.set_frames_from_tabstrips`
  std::function<void(int slot)> magneticsSelectionChanged;  ///< Tells Inductor and Transformer.
  std::function<void()> clearComputedComponents;            ///< Empties the bill of materials.
  std::function<void()> resetAdvanced;                      ///< `Advanced.Reset`
  std::function<void()> setAdvancedLayout;                  ///< `Advanced.set_layout`
  std::function<void()> resetCalculator;                    ///< `Calculator.Reset` without sources
  std::function<void(int index, bool enabled)> enableMainButton;
  std::function<void()> showSimpleScreen;
  std::function<void()> hideInductor;     ///< Hides the screen if it is shown.
  std::function<void()> hideTransformer;  ///< Hides the screen if it is shown.
};

/// A group of items as the chooser shows it.
struct Group {
  std::int32_t ID = 0;
  std::string Title;  ///< A "/" divides it in two lines.
  SelectionRules Rules;
  bool Include = false;
  std::string Picture;  ///< Path below the program's folder; the file may be missing.
};

/// An item that may be selected.
struct ValidItem {
  std::int32_t Group = 0;
  std::int32_t ID = 0;
  std::string Name;
  std::string PullDownName;
  bool UserData = false;

  /// Text in a list of items: the pull-down name, with "User:" in front for a row of the user.
  std::string ListText() const;
};

/// Groups that the chooser has in sight at a time.
inline constexpr int kGroupsInSight = 4;

/// Holds the groups and items of the four slots, decides which of them may be offered given the
/// other selections, and carries out a selection.
class browser_control {
 public:
  /// `bars` are the control bars in the order in which they are told of a selection; the present
  /// selection is read from the first. All arguments must outlive the browser.
  browser_control(adoaccess_class& database, SysMsg& messages, RunState& state, ItemData& items,
                  Screen& advanced, std::span<control_bar* const> bars, SelectionHooks hooks = {});

  /// Makes `slot` the current one and lists the groups and items that the present selections allow.
  /// `list`, when given, takes the items. An unreadable group table or a faulty rule is reported
  /// and leaves nothing listed.
  void Setup(int slot, PullDown* list = nullptr);
  /// True when the item may be selected. Otherwise, with `select_first`, the first item that may be
  /// is selected instead; without any the selection stays as it is.
  bool CheckAvailable(int slot, std::int32_t id, bool select_first);
  /// Looks up an item by `id`, or by name (either of its names) when `id` is below 0, and brings
  /// its group in sight with `position`, or selects it without. `id` takes the number found. A
  /// `slot` below 0 stands for the current one, as it was last listed.
  bool Find(std::int32_t& id, int slot, std::string_view name, bool position);
  /// Selects an item of the current list; see the steps in the source. False, with a message unless
  /// `silent`, when the item is not listed. `load_only` loads its row and changes nothing else.
  bool ItemSelect(bool rebuild, int slot, std::int32_t id, bool scan_others, bool load_only,
                  bool silent);
  /// Replaces the selections of the other slots that the selection of `slot` has ruled out.
  void RecheckOtherSelections(int slot);
  /// Resets the screens to the selection and applies the gates that the selected IC sets.
  void PerformInitialisationAndChecking();

  /// Opens the chooser's model for a slot: lists it and brings the group of `current_id` in sight.
  /// False when the groups cannot be listed, which has been reported.
  bool StartBrowser(int slot, std::int32_t current_id);
  /// Selects the item at `position` of the listed group, as the user does.
  void SelectSelectionItem(std::size_t position);

  /// Count of the items of a group of the list; 0 for an index outside it.
  int HowManyItemsInThisGroupList(int group_index) const;
  /// Trimmed name of the last item of a group of the list, for a group of one.
  std::string GetMeTheSingleEntryInThisGroupList(int group_index) const;
  /// The items of a group of the list in their order.
  std::vector<const ValidItem*> ItemsOfGroup(int group_index) const;

  int CurrentSlot() const { return current_slot_; }
  std::string_view CurrentType() const { return GroupTypeName(current_slot_); }
  /// ID of the present selection of a slot, -1 while there is none.
  std::int32_t GetInfo(int slot) const;
  /// The groups on offer, as of the last `Setup`.
  const std::vector<const Group*>& GroupList() const { return group_list_; }
  /// The items on offer in the order of their groups, as of the last `Setup`.
  const std::vector<ValidItem>& ValidItems() const { return valid_items_; }

  /// Greatest scroll position: four groups are in sight at a time.
  int ScrollMaximum() const;
  /// Index of the first group in sight.
  int ScrollPosition() const { return scroll_position_; }
  /// Moves the groups; the position is kept inside its range.
  void ScrollPosition(int position);
  /// Index of the group whose items are listed, -1 when no group is on offer.
  int ListedGroup() const { return listed_group_; }
  /// Lists the items of a group and brings it in sight; an index outside the list is left alone.
  void ListGroup(int group_index);

  /// Raised with the slot at the end of every selection.
  Signal<int> itemSelected;

 private:
  struct SlotGroups {
    bool Loaded = false;
    std::vector<Group> groups;
  };
  static constexpr std::size_t kReservedSlot = 4;

  SlotGroups& groupsOf(int slot);
  bool loadGroups(SlotGroups& target);
  bool readGroups(RecordSet& rows, SlotGroups& target);
  void listGroups(const SlotGroups& source);
  void listItems();
  void fillList(PullDown& list) const;
  bool isOffered(const Group& group) const;
  const ValidItem* findItem(std::int32_t id) const;
  const ValidItem* findItem(std::string_view name) const;
  int groupIndexOf(std::int32_t group_id) const;
  bool positionAt(std::int32_t id);
  void applySelection(int slot, std::int32_t id);
  bool gate(std::string_view field) const;

  adoaccess_class& database_;
  SysMsg& messages_;
  RunState& state_;
  ItemData& items_;
  Screen& advanced_;
  std::vector<control_bar*> bars_;
  SelectionHooks hooks_;

  int current_slot_ = -1;
  std::array<SlotGroups, kReservedSlot + 1> groups_;
  std::vector<const Group*> group_list_;
  std::vector<ValidItem> valid_items_;
  int scroll_position_ = 0;
  int listed_group_ = -1;
};

}  // namespace vantrel
