#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

/// Buttons of a message dialog.
enum MessageType { kMessageOk = 1, kMessageYesNo = 2, kMessageYesNoCancel = 3 };

/// Picture of a message dialog.
enum MessageSeverity {
  kSeverityFromType = 0,
  kSeverityInformation = 1,
  kSeverityQuestion = 2,
  kSeverityWarning = 3
};

/// What the user answered.
enum MessageAnswer { kClosed = -1, kYes = 1, kNo = 2, kOk = 3, kCancel = 4 };

/// One report or question as it was shown.
struct Message {
  std::string title;  ///< Caption of the dialog.
  std::string owner;  ///< Name of the calling screen, empty when there is none.
  std::string text;   ///< The text as it was handed in, with its line-break marks.
  int type = kMessageOk;
  int severity = kSeverityInformation;
  int answer = kClosed;  ///< A MessageAnswer; kClosed until the user has answered.
};

/// The text of a message with every line-break mark ("¬", LF, CR LF) turned into "\n".
std::string with_line_breaks(std::string_view text);

/// Breaks a message into display lines. Each paragraph is cut at the last blank that lets the line
/// fit into `width`, as measured by `measure`; a line without a blank stays whole.
std::vector<std::string> wrap_message(std::string_view text, double width,
                                      const std::function<double(std::string_view)>& measure);

/// Port to whatever shows a dialog. Returns a MessageAnswer.
class MessageDialog {
 public:
  virtual ~MessageDialog() = default;
  virtual int show(const Message& message) = 0;
};

/// The one way in which anything in the system speaks to the user. Keeps every message in the order
/// in which it was shown. Answers come from the queue of injected answers first, then from the
/// dialog port; without a dialog a question is answered No and a report OK.
class SysMsg {
 public:
  /// Dialog that shows the messages, or none. Not owned; must outlive its use here.
  void dialog(MessageDialog* port) { dialog_ = port; }

  /// Reports or asks under the caption "Vantrel". Returns a MessageAnswer.
  int msg(std::string_view owner, std::string_view text, int type = kMessageOk,
          int severity = kSeverityFromType);

  /// A box with a title of its own and one OK button.
  void messageBox(std::string_view title, std::string_view text, int severity = kSeverityWarning);

  /// Answers for the next questions, first in first out.
  void injectAnswers(const std::vector<int>& answers);

  /// All messages since the last `clear`, oldest first.
  const std::vector<Message>& shown() const { return shown_; }
  void clear();

  /// Called after each message has been answered.
  std::function<void(const Message&)> onMessage;

 private:
  int show(Message message);
  int answer_to(const Message& message);

  MessageDialog* dialog_ = nullptr;
  std::deque<int> answers_;
  std::vector<Message> shown_;
  std::size_t cleared_ = 0;  ///< How many messages earlier calls of `clear` have dropped.
};

}  // namespace vantrel
