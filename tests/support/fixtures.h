#pragma once

#include <unistd.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/plain_ports.h"
#include "core/screen.h"
#include "core/vtl_value.h"
#include "services/messages/sysmsg.h"

namespace vantrel::test {

/// A dialog that answers from a list, and "No" or "OK" when the list has run out.
class ScriptedDialog : public MessageDialog {
 public:
  std::deque<int> answers;
  std::vector<Message> shown;
  /// Runs while the dialog is open.
  std::function<void(const Message&)> whileOpen;

  int show(const Message& message) override {
    shown.push_back(message);
    if (whileOpen) whileOpen(message);
    if (answers.empty()) return message.type == kMessageOk ? kOk : kNo;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

/// Time that stands still until a test moves it.
class ManualClock : public Clock {
 public:
  double now = 0;
  double seconds() const override { return now; }
};

/// The texts of all messages, oldest first.
inline std::vector<std::string> texts(const SysMsg& messages) {
  std::vector<std::string> result;
  for (const Message& message : messages.shown()) result.push_back(message.text);
  return result;
}

/// Reporter and field context of a test, with everything that fields call recorded.
struct FieldFixture {
  SysMsg messages;
  int clicks = 0;
  std::vector<std::pair<VTLValue*, std::string>> missing;
  FieldContext context{
      messages, '.', [this] { ++clicks; },
      [this](VTLValue& field, const std::string& text) { missing.emplace_back(&field, text); }};

  FieldFixture() = default;
  FieldFixture(const FieldFixture&) = delete;
  FieldFixture& operator=(const FieldFixture&) = delete;

  /// The messages since the last call.
  std::vector<std::string> takeMessages() {
    std::vector<std::string> result = texts(messages);
    messages.clear();
    return result;
  }
};

/// A folder of the test's own that goes away with it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vantrel-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  ~TemporaryFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// Writes a file, with the folders on its way.
  std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return file;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace vantrel::test
