#include "services/messages/sysmsg.h"

#include <utility>

namespace vantrel {
namespace {

constexpr std::string_view kMark = "\xC2\xAC";  // the UTF-8 form of "¬"
constexpr std::string_view kCaption = "Vantrel";

bool is_question(int type) { return type == kMessageYesNo || type == kMessageYesNoCancel; }

int shown_severity(int type, int severity) {
  if (severity >= kSeverityInformation && severity <= kSeverityWarning) return severity;
  return type == kMessageOk ? kSeverityInformation : kSeverityQuestion;
}

std::string_view without_outer_blanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The last blank that lets the text before it fit; the first one behind a word when none does, so
/// that a word that is too wide stands alone.
std::size_t cut_position(std::string_view line, double width,
                         const std::function<double(std::string_view)>& measure) {
  const auto word = line.find_first_not_of(' ');
  if (word == std::string_view::npos) return word;
  std::size_t cut = line.find(' ', word);
  for (std::size_t blank = cut; blank != std::string_view::npos;
       blank = line.find(' ', blank + 1)) {
    if (measure(line.substr(0, blank)) > width) break;
    cut = blank;
  }
  return cut;
}

}  // namespace

std::string with_line_breaks(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, kMark.size()) == kMark) {
      result += '\n';
      i += kMark.size() - 1;
    } else if (text.substr(i, 2) != "\r\n") {
      result += text[i];
    }
  }
  return result;
}

std::vector<std::string> wrap_message(std::string_view text, double width,
                                      const std::function<double(std::string_view)>& measure) {
  const std::string broken = with_line_breaks(text);
  std::string_view rest = without_outer_blanks(broken);
  std::vector<std::string> lines;
  for (bool more = true; more;) {
    const auto end = rest.find('\n');
    more = end != std::string_view::npos;
    std::string_view line = rest.substr(0, end);
    while (measure(line) > width) {
      const std::size_t cut = cut_position(line, width, measure);
      if (cut == std::string_view::npos) break;
      lines.emplace_back(line.substr(0, cut));
      line.remove_prefix(cut + 1);
    }
    lines.emplace_back(line);
    if (more) rest.remove_prefix(end + 1);
  }
  return lines;
}

int SysMsg::msg(std::string_view owner, std::string_view text, int type, int severity) {
  Message message;
  message.title = kCaption;
  message.owner = owner;
  message.text = text;
  message.type = type;
  message.severity = shown_severity(type, severity);
  return show(std::move(message));
}

void SysMsg::messageBox(std::string_view title, std::string_view text, int severity) {
  Message message;
  message.title = title;
  message.text = text;
  message.severity = shown_severity(kMessageOk, severity);
  show(std::move(message));
}

void SysMsg::injectAnswers(const std::vector<int>& answers) {
  answers_.insert(answers_.end(), answers.begin(), answers.end());
}

void SysMsg::clear() {
  cleared_ += shown_.size();
  shown_.clear();
}

int SysMsg::answer_to(const Message& message) {
  const bool question = is_question(message.type);
  if (question && !answers_.empty()) {
    const int answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  if (dialog_ != nullptr) return dialog_->show(message);
  return question ? kNo : kOk;
}

int SysMsg::show(Message message) {
  // Recorded before it is answered: while the dialog waits, timers may show messages of their own
  // and the list may be cleared, so the record is found again by its running number.
  const std::size_t number = cleared_ + shown_.size();
  shown_.push_back(message);
  message.answer = answer_to(message);
  if (number >= cleared_ && number - cleared_ < shown_.size()) {
    shown_[number - cleared_].answer = message.answer;
  }
  if (onMessage) onMessage(message);
  return message.answer;
}

}  // namespace vantrel
