#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/print_job.h"
#include "core/vtl_value.h"

namespace vantrel {

/// What the user may enter rows of his own for.
enum class UserDataKind { Lamps, Cores };

/// What windows do for a session. A run without windows leaves all of it empty, and what a callable
/// would have done is left out.
struct SessionViews {
  /// Opens the chooser, whose model lists the slot already.
  std::function<void(int slot, std::string_view title)> openChooser;
  /// Lets the user edit his own rows and returns when he has done so.
  std::function<void(UserDataKind kind)> editUserData;
  std::function<void()> focusInputTabs;
  /// Opens the list of missing fields.
  std::function<void()> showMissingFields;
  /// Brings a field in sight; false when it has no place on a window.
  std::function<bool(VTLValue& field)> displayField;
  std::function<void()> showAbout;
  std::function<void()> checkForUpdate;
  std::function<void()> showDiagnostics;
  /// Asks for a printer and prints a job, or shows it as it would be printed.
  std::function<void(const PrintJob& job, bool preview)> print;
  /// Asks the user whether the run may end and ends it; takes the place of the session's own end.
  std::function<void()> quit;
  /// Ends the process, after everything has been closed.
  std::function<void()> stopProcess;
  /// Draws everything anew between two steps of a long action.
  std::function<void()> repaint;
  /// Asks before an unsaved design is replaced; false keeps it.
  std::function<bool()> mayReplaceDesign;
  /// Marks the line of a component in the window of the bill.
  std::function<void(const std::string& reference)> markInBill;
  /// A project was saved or loaded.
  std::function<void(const std::string& path)> projectStored;
  /// Records where the windows are.
  std::function<void()> saveWindowPositions;
  /// Brings the window of a screen back from an icon or from full size.
  std::function<void(Screen& screen)> setWindowStateNormal;
};

/// Calls a view when there is one.
template <typename... Args, typename... Given>
void call_view(const std::function<void(Args...)>& view, Given&&... given) {
  if (view) view(std::forward<Given>(given)...);
}

}  // namespace vantrel
