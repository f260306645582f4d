#include "outputs/form_report.h"

#include <cstddef>

#include "core/text_parsing.h"

namespace vantrel {

FormControl value_control(const VTLValue& field) {
  return {.type = "VTLValue",
          .caption = trimmed(field.ValueLabel()),
          .value = trimmed(field.DisplayText()),
          .unit = trimmed(field.UnitText()),
          .fixed = field.IsFixed()};
}

FormControl combo_control(std::string_view caption, const PullDown& list, bool fixed) {
  const auto row = static_cast<std::size_t>(list.selected);
  const bool chosen = list.selected >= 0 && row < list.items.size();
  return {.type = "ComboBox",
          .caption = std::string(caption),
          .value = chosen ? list.items[row] : "",
          .fixed = fixed};
}

FormControl frame_control(Screen& screen, std::string_view frame) {
  const Frame* source = screen.findFrame(frame);
  FormControl control{.type = "Frame", .caption = source == nullptr ? "" : source->caption};
  for (const auto& field : screen.fields()) {
    if (!field->Visible() || !equal_ignoring_case(field->FrameName(), frame)) continue;
    control.controls.push_back(value_control(*field));
  }
  return control;
}

void add_frame(std::vector<FormControl>& controls, FormControl frame) {
  if (!frame.controls.empty()) controls.push_back(std::move(frame));
}

FormReport form_report(Screen& screen) {
  FormReport form{screen.name(), screen.caption(), {}};
  for (const Frame& frame : screen.frames()) {
    if (frame.visible) add_frame(form.controls, frame_control(screen, frame.name));
  }
  for (const InfoLine& line : screen.infoLines()) {
    if (!line.text.empty()) form.controls.push_back({.type = "Label", .caption = line.text});
  }
  return form;
}

}  // namespace vantrel
