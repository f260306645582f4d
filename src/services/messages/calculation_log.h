#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "services/messages/sysmsg.h"

namespace vantrel {

/// Writer of a calculation's log. No line goes to a file; each one is compared with the break text,
/// so that a developer can stop a calculation at any line, and is kept for the viewer on request.
class CalculationLog {
 public:
  /// The answer of a line that opens no dialog.
  static constexpr int kNoDialog = 0;

  explicit CalculationLog(SysMsg& messages) : messages_(messages) {}

  /// Number of the file that the log goes to; -1 says that there is none.
  int sink() const { return -1; }

  /// Logs one line. With `show_dialog` it is also shown, as a question with `ask_yes_no`, and the
  /// result is the MessageAnswer; otherwise `kNoDialog`.
  int write(std::string_view text, bool show_dialog = false, bool ask_yes_no = false);

  /// The line at which the dialog "Breakpoint '...'" appears; compared with the whole line, an
  /// empty text never breaks.
  void breakText(std::string_view text) { break_text_ = text; }
  const std::string& breakText() const { return break_text_; }
  /// The text that the viewer marks in the lines it shows.
  void watchText(std::string_view text) { watch_text_ = text; }
  const std::string& watchText() const { return watch_text_; }

  /// Whether lines are kept in memory for the viewer.
  void keepLines(bool keep) { keep_ = keep; }
  bool keepsLines() const { return keep_; }
  const std::vector<std::string>& lines() const { return lines_; }
  void clearLines() { lines_.clear(); }

 private:
  SysMsg& messages_;
  std::string break_text_;
  std::string watch_text_;
  bool keep_ = false;
  std::vector<std::string> lines_;
};

}  // namespace vantrel
