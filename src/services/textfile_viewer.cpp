#include "services/textfile_viewer.h"

#include <system_error>
#include <utility>

#include "core/text_parsing.h"
#include "services/file_reader.h"
#include "services/utf8_text.h"

namespace vantrel {

namespace {

constexpr std::size_t kLargestFile = std::size_t{64} << 20U;

std::vector<std::string> lines_of(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    lines.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return lines;
}

}  // namespace

TextfileViewer::TextfileViewer(SysMsg& messages, CalculationLog& log, TextfileViewerHooks hooks)
    : messages_(messages), log_(log), hooks_(std::move(hooks)) {}

bool TextfileViewer::complain(const std::string& text) {
  messages_.msg(kName, text);
  return false;
}

void TextfileViewer::notify() {
  if (hooks_.changed) hooks_.changed();
}

void TextfileViewer::show(std::string caption, std::vector<std::string> lines) {
  caption_ = std::move(caption);
  lines_ = std::move(lines);
  current_ = 0;
  search_from_ = 0;
  notify();
}

bool TextfileViewer::ShowFile(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) {
    return complain("File '" + file.string() + "' does not exist and cannot be viewed");
  }
  const auto bytes = read_file(file, kLargestFile);
  if (!bytes) return complain("Could not open file '" + file.string() + "' for display");
  show(file.string(),
       lines_of(as_utf8({reinterpret_cast<const char*>(bytes->data()), bytes->size()})));
  return true;
}

void TextfileViewer::ShowLog() { show("Calculation Debug", log_.lines()); }

void TextfileViewer::selectLine(std::size_t line) {
  if (line >= lines_.size()) return;
  current_ = line;
  search_from_ = line;
  notify();
}

bool TextfileViewer::FindNext(std::string_view text) {
  if (text != search_) search_from_ = current_;
  search_ = text;
  return FindNext();
}

bool TextfileViewer::FindNext() {
  if (search_.empty()) return complain("You must enter a valid search string");
  const std::string wanted = lower(search_);
  for (std::size_t line = search_from_; line < lines_.size(); ++line) {
    if (lower(lines_[line]).find(wanted) == std::string::npos) continue;
    current_ = line;
    search_from_ = line + 1;
    notify();
    return true;
  }
  return complain("The string '" + search_ + "' could not be found");
}

void TextfileViewer::DisplayFindWindow() {
  if (hooks_.displayFindWindow) hooks_.displayFindWindow();
}

void TextfileViewer::MnuSetBreak() {
  if (current_ < lines_.size()) log_.breakText(lines_[current_]);
  notify();
}

void TextfileViewer::MnuClearBreak() {
  log_.breakText("");
  messages_.msg(kName, "Break message cleared");
  notify();
}

void TextfileViewer::MnuSetTrapVariable() {
  if (!hooks_.askText) return;
  const auto variable =
      hooks_.askText("Calculation Debug", "Enter variable to watch", log_.watchText());
  if (variable) log_.watchText(trimmed(*variable));
  notify();
}

void TextfileViewer::MnuClearTrapVariable() {
  log_.watchText("");
  messages_.msg(kName, "Variable watch cleared");
  notify();
}

bool TextfileViewer::isBreakLine(std::size_t line) const {
  return !log_.breakText().empty() && lines_[line] == log_.breakText();
}

bool TextfileViewer::isWatchedLine(std::size_t line) const {
  return !log_.watchText().empty() && lines_[line].find(log_.watchText()) != std::string::npos;
}

}  // namespace vantrel
