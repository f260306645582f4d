#pragma once

#include <string>
#include <vector>

#include "core/device_context.h"
#include "outputs/form_report.h"

namespace vantrel {

/// Height of a line of a printed form, and the step of all places from top to bottom.
inline constexpr double kFormLine = 18;
/// Width of a printed form.
inline constexpr double kFormWidth = 676;
/// Room between the edge of a frame and what is in it.
inline constexpr double kFramePadding = 8;

/// A line of text of a control.
struct PlacedText {
  Point at;  ///< Its top, and the side that it is aligned to.
  HorizontalAlign align = HorizontalAlign::Left;
  std::string words;
  bool bold = false;
};

/// A control at its place, in pixels of 1/96 inch from the top left corner of the form.
struct PlacedControl {
  std::string type;
  Box place;
  std::vector<PlacedText> texts;
};

/// A form with every control at its place.
struct FormLayout {
  Size size;
  std::vector<PlacedControl> controls;
};

/// Places what is on the form itself, by the types "Frame", "ComboBox", "Label" and "TextBox", from
/// top to bottom; frames that follow each other stand in two columns, each in the shorter one.
/// `measure` must have the font of the form.
FormLayout lay_out_form(const std::vector<FormControl>& controls, DeviceContext& measure);
/// Places one container with what is in it; there the types "SSTab" and "VTLValue" count too.
FormLayout lay_out_frame(const FormControl& container, DeviceContext& measure);

}  // namespace vantrel
