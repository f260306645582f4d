#include "services/messages/calculation_log.h"

namespace vantrel {

int CalculationLog::write(std::string_view text, bool show_dialog, bool ask_yes_no) {
  int answer = kNoDialog;
  if (show_dialog) answer = messages_.msg("", text, ask_yes_no ? kMessageYesNo : kMessageOk);
  if (keep_) lines_.emplace_back(text);
  if (!break_text_.empty() && text == break_text_) {
    messages_.msg("", "Breakpoint '" + std::string(text) + "'");
  }
  return answer;
}

}  // namespace vantrel
