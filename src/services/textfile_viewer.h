#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "services/messages/calculation_log.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What the viewer uses of windows; each may be empty.
struct TextfileViewerHooks {
  std::function<void()> changed;            ///< Lines, marks or the current line have changed.
  std::function<void()> displayFindWindow;  ///< Shows where the search text is entered.
  /// Asks for one text under a title, starting with the last argument; nothing when cancelled.
  std::function<std::optional<std::string>(std::string_view title, std::string_view prompt,
                                           const std::string& present)>
      askText;
};

/// Viewer of a text file or of the lines of the last calculation. It also sets the line at which a
/// calculation breaks and the text that is marked in the lines shown; both stay until cleared.
class TextfileViewer {
 public:
  static constexpr std::string_view kName = "TextfileViewer";

  TextfileViewer(SysMsg& messages, CalculationLog& log, TextfileViewerHooks hooks = {});

  /// Shows a file; false, with a message, when it cannot be.
  bool ShowFile(const std::filesystem::path& file);
  /// Shows the lines that were kept of the last calculation.
  void ShowLog();

  const std::string& caption() const { return caption_; }
  const std::vector<std::string>& lines() const { return lines_; }
  /// The selected line, from 0.
  std::size_t currentLine() const { return current_; }
  /// Selects a line; the search goes on from it. One past the end is left alone.
  void selectLine(std::size_t line);

  /// Looks for a text, in any case of letters, from the current line on; after a hit from the line
  /// behind it. Selects the line and gives true; otherwise there is a message.
  bool FindNext(std::string_view text);
  /// Looks for the last text again.
  bool FindNext();
  const std::string& searchText() const { return search_; }
  void DisplayFindWindow();

  /// The selected line becomes the break text.
  void MnuSetBreak();
  void MnuClearBreak();
  /// Asks for the variable to watch.
  void MnuSetTrapVariable();
  void MnuClearTrapVariable();
  bool isBreakLine(std::size_t line) const;
  bool isWatchedLine(std::size_t line) const;

 private:
  void show(std::string caption, std::vector<std::string> lines);
  bool complain(const std::string& text);
  void notify();

  SysMsg& messages_;
  CalculationLog& log_;
  TextfileViewerHooks hooks_;
  std::string caption_;
  std::vector<std::string> lines_;
  std::size_t current_ = 0;
  std::size_t search_from_ = 0;
  std::string search_;
};

}  // namespace vantrel
