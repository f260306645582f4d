#pragma once

#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/signal.h"
#include "core/text_parsing.h"
#include "core/vtl_value.h"

namespace vantrel {

/// A named container of fields that is shown or hidden as one.
struct Frame {
  std::string name;
  std::string caption;
  bool visible = true;
};

/// A pull-down or list box; `index` is its place in a control group, -1 outside one.
struct PullDown {
  std::string name;
  int index = -1;
  std::vector<std::string> items;
  std::vector<std::int32_t> itemData;
  int selected = -1;
  bool enabled = true;
};

/// A check box or option button that holds no engineering value; `index` is its place in a control
/// group, -1 outside one.
struct TickBox {
  std::string name;
  int index = -1;
  std::string caption;
  bool checked = false;
  bool enabled = true;
  std::string tooltip;
};

/// A push button; `index` is its place in a control group, -1 outside one.
struct CommandButton {
  std::string name;
  int index = -1;
  std::string caption;
  bool enabled = true;
  bool visible = true;
};

/// An information line that the screen writes and nobody edits.
struct InfoLine {
  std::string name;
  std::string text;
};

/// The state of one screen, without any window. A window is a view that binds to it. All look-ups
/// by name ignore case; iteration follows the order of declaration, which is the control order.
class Screen {
 public:
  Screen(std::string name, std::string caption, FieldContext& context);
  virtual ~Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void caption(std::string_view text);
  bool visible() const { return visible_; }
  void visible(bool visible);

  void addFrame(std::string_view name, std::string_view caption = "");
  /// Adds the fields of a table; a frame that they name is added when it is new.
  void addFields(std::span<const FieldSpec> rows);
  /// Adds one field; a Fault when the screen has one of that name and index.
  VTLValue& addField(const FieldSpec& row);
  PullDown& addPullDown(std::string_view name, int index = -1);
  TickBox& addTickBox(std::string_view name, std::string_view caption, bool checked = false,
                      int index = -1);
  CommandButton& addButton(std::string_view name, std::string_view caption, int index = -1);
  InfoLine& addInfoLine(std::string_view name);

  /// The field of that name, and index for a control group; nothing when there is none. A group
  /// field that is asked for without an index gives its first member.
  VTLValue* findField(std::string_view name, int index = -1);
  /// A field that the program itself declares; a Fault when it is missing.
  VTLValue& field(std::string_view name, int index = -1);
  Frame* findFrame(std::string_view name);
  PullDown* findPullDown(std::string_view name, int index = -1);
  TickBox* findTickBox(std::string_view name, int index = -1);
  CommandButton* findButton(std::string_view name, int index = -1);
  InfoLine* findInfoLine(std::string_view name);

  const std::vector<std::unique_ptr<VTLValue>>& fields() const { return fields_; }
  const std::deque<Frame>& frames() const { return frames_; }
  std::deque<PullDown>& pullDowns() { return pull_downs_; }
  std::deque<TickBox>& tickBoxes() { return tick_boxes_; }
  std::deque<CommandButton>& buttons() { return buttons_; }
  std::deque<InfoLine>& infoLines() { return info_lines_; }

  /// Shows or hides a frame; an unknown name is left alone.
  void setFrameVisible(std::string_view name, bool visible);
  /// True when the field and the frame that holds it are both shown.
  bool isFieldShown(const VTLValue& field) const;

  /// Raised when something other than a field's own display has changed.
  Signal<> layoutChanged;
  void notifyLayoutChanged() { layoutChanged.raise(); }

 private:
  std::string name_;
  std::string caption_;
  bool visible_ = false;
  FieldContext& context_;
  std::vector<std::unique_ptr<VTLValue>> fields_;
  std::unordered_map<std::string, std::vector<VTLValue*>, CaseBlindHash, CaseBlindEqual>
      fields_by_name_;
  std::deque<Frame> frames_;
  std::deque<PullDown> pull_downs_;
  std::deque<TickBox> tick_boxes_;
  std::deque<CommandButton> buttons_;
  std::deque<InfoLine> info_lines_;
};

/// Clears every field of a frame.
void ClearFrameValues(Screen& screen, std::string_view frame);
/// Shows or hides every field of a frame.
void SetFrameChildrenVisible(Screen& screen, std::string_view frame, bool visible);

/// The loaded screens of a run, in order of creation. Does not own them.
class ScreenRegistry {
 public:
  void add(Screen& screen);
  /// The screen of that name regardless of case; nothing when there is none.
  Screen* find(std::string_view name) const;
  /// Its position in the list, or -1.
  int indexOf(std::string_view name) const;
  const std::vector<Screen*>& screens() const { return screens_; }

 private:
  std::vector<Screen*> screens_;
};

}  // namespace vantrel
