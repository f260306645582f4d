#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"

namespace vantrel {

/// A control of a form as it is printed. The kind is told by the name of its type: "Frame",
/// "ComboBox", "Label", "TextBox", "SSTab" (its controls are of the type "Tab", one for each tab)
/// and "VTLValue"; other types leave no trace on paper.
struct FormControl {
  std::string type;
  std::string caption = {};
  std::string value = {};
  std::string unit = {};
  bool fixed = false;
  /// Controls of a container in reading order.
  std::vector<FormControl> controls = {};
  /// A frame that takes the whole width; others stand in two columns.
  bool wide = false;
};

/// A form with the controls that are on show.
struct FormReport {
  std::string name;
  std::string caption;
  std::vector<FormControl> controls;
};

FormControl value_control(const VTLValue& field);
/// A pull-down under a caption, with the item that it shows.
FormControl combo_control(std::string_view caption, const PullDown& list, bool fixed = false);
/// A frame of a screen with the fields in it that are visible; without a control when none is.
FormControl frame_control(Screen& screen, std::string_view frame);
/// Adds a frame to a container unless it is empty.
void add_frame(std::vector<FormControl>& controls, FormControl frame);

/// The controls of a screen as they stand: its pull-downs, its frames, and its lines of
/// information.
FormReport form_report(Screen& screen);

}  // namespace vantrel
