#pragma once

#include <span>

namespace vantrel {

/// How an option is shown and stored: a tick box as "0" or "1", an option button as "False" or
/// "True". The option buttons of a frame exclude each other.
enum class OptionKind { kTickBox, kOptionButton };

/// One option of the sheet.
struct OptionSpec {
  const char* name;  ///< Name of the control and key in the store.
  const char* caption;
  const char* frame;  ///< Name of the frame that holds it.
  OptionKind kind = OptionKind::kTickBox;
  bool designed = false;  ///< State before the user has chosen one.
};

/// One frame of the sheet, in view while its tab is the chosen one.
struct OptionFrame {
  static constexpr int kEveryTab = -1;

  const char* name;
  const char* caption;
  const char* tab_caption;
  int tab;     ///< Number of its tab; kEveryTab for the frame that always shows.
  int height;  ///< Twips.
};

/// All options in control order.
std::span<const OptionSpec> option_specs();
/// The frames in the order of their tabs, the one of the buttons last.
std::span<const OptionFrame> option_frames();

}  // namespace vantrel
