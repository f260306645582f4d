#pragma once

#include <memory>
#include <string_view>

#include "screens/design_window.h"

class QWidget;

namespace vantrel {

/// Makes the window of a screen by the screen's name; nothing for a screen without a window.
std::unique_ptr<QWidget> make_window(std::string_view screen, Workbench bench);

}  // namespace vantrel
