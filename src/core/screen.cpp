#include "core/screen.h"

#include <algorithm>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

template <typename List>
auto find_by_name(List& list, std::string_view name) -> decltype(&list.front()) {
  const auto found = std::find_if(list.begin(), list.end(), [&](const auto& item) {
    return equal_ignoring_case(item.name, name);
  });
  return found == list.end() ? nullptr : &*found;
}

/// The member of a control group; index -1 gives the first of that name.
template <typename List>
auto find_member(List& list, std::string_view name, int index) -> decltype(&list.front()) {
  const auto found = std::find_if(list.begin(), list.end(), [&](const auto& item) {
    return equal_ignoring_case(item.name, name) && (index == -1 || item.index == index);
  });
  return found == list.end() ? nullptr : &*found;
}

}  // namespace

Screen::Screen(std::string name, std::string caption, FieldContext& context)
    : name_(std::move(name)), caption_(std::move(caption)), context_(context) {}

void Screen::caption(std::string_view text) {
  caption_ = text;
  layoutChanged.raise();
}

void Screen::visible(bool visible) {
  visible_ = visible;
  layoutChanged.raise();
}

void Screen::addFrame(std::string_view name, std::string_view caption) {
  frames_.push_back({std::string(name), std::string(caption), true});
}

void Screen::addFields(std::span<const FieldSpec> rows) {
  for (const FieldSpec& row : rows) addField(row);
}

VTLValue& Screen::addField(const FieldSpec& row) {
  const std::string_view frame = row.frame;
  if (!frame.empty() && findFrame(frame) == nullptr) addFrame(frame);
  auto& members = fields_by_name_[row.name];
  for (const VTLValue* member : members) {
    if (member->Index() == row.index) {
      throw Fault("Field declared twice : " + name_ + "." + row.name);
    }
  }
  fields_.push_back(std::make_unique<VTLValue>(row, *this, context_));
  members.push_back(fields_.back().get());
  return *fields_.back();
}

PullDown& Screen::addPullDown(std::string_view name, int index) {
  PullDown& added = pull_downs_.emplace_back();
  added.name = name;
  added.index = index;
  return added;
}

TickBox& Screen::addTickBox(std::string_view name, std::string_view caption, bool checked,
                            int index) {
  TickBox& added = tick_boxes_.emplace_back();
  added.name = name;
  added.index = index;
  added.caption = caption;
  added.checked = checked;
  return added;
}

CommandButton& Screen::addButton(std::string_view name, std::string_view caption, int index) {
  CommandButton& added = buttons_.emplace_back();
  added.name = name;
  added.index = index;
  added.caption = caption;
  return added;
}

InfoLine& Screen::addInfoLine(std::string_view name) {
  InfoLine& added = info_lines_.emplace_back();
  added.name = name;
  return added;
}

VTLValue* Screen::findField(std::string_view name, int index) {
  const auto found = fields_by_name_.find(name);
  if (found == fields_by_name_.end()) return nullptr;
  const auto& members = found->second;
  if (index == -1) return members.front();
  const auto member = std::find_if(members.begin(), members.end(),
                                   [&](const VTLValue* field) { return field->Index() == index; });
  return member == members.end() ? nullptr : *member;
}

VTLValue& Screen::field(std::string_view name, int index) {
  VTLValue* const found = findField(name, index);
  if (found == nullptr) throw Fault("Unknown field : " + name_ + "." + std::string(name));
  return *found;
}

Frame* Screen::findFrame(std::string_view name) { return find_by_name(frames_, name); }
PullDown* Screen::findPullDown(std::string_view name, int index) {
  return find_member(pull_downs_, name, index);
}
TickBox* Screen::findTickBox(std::string_view name, int index) {
  return find_member(tick_boxes_, name, index);
}
InfoLine* Screen::findInfoLine(std::string_view name) { return find_by_name(info_lines_, name); }

CommandButton* Screen::findButton(std::string_view name, int index) {
  return find_member(buttons_, name, index);
}

void Screen::setFrameVisible(std::string_view name, bool visible) {
  Frame* const frame = findFrame(name);
  if (frame == nullptr) return;
  frame->visible = visible;
  layoutChanged.raise();
}

bool Screen::isFieldShown(const VTLValue& field) const {
  const auto* frame = find_by_name(frames_, field.FrameName());
  return field.Visible() && (frame == nullptr || frame->visible);
}

void ClearFrameValues(Screen& screen, std::string_view frame) {
  for (const auto& field : screen.fields()) {
    if (equal_ignoring_case(field->FrameName(), frame)) field->Clear();
  }
}

void SetFrameChildrenVisible(Screen& screen, std::string_view frame, bool visible) {
  for (const auto& field : screen.fields()) {
    if (equal_ignoring_case(field->FrameName(), frame)) field->Visible(visible);
  }
}

void ScreenRegistry::add(Screen& screen) { screens_.push_back(&screen); }

Screen* ScreenRegistry::find(std::string_view name) const {
  const int index = indexOf(name);
  return index < 0 ? nullptr : screens_[static_cast<std::size_t>(index)];
}

int ScreenRegistry::indexOf(std::string_view name) const {
  const auto found = std::find_if(screens_.begin(), screens_.end(), [&](const Screen* screen) {
    return equal_ignoring_case(screen->name(), name);
  });
  return found == screens_.end() ? -1 : static_cast<int>(found - screens_.begin());
}

}  // namespace vantrel
