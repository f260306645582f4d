#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/ports.h"

namespace vantrel {

/// What a check of the update host raises; each may be empty.
struct SWUpdateEvents {
  std::function<void(const std::string& text, int code)> UpdateError;
  std::function<void(const std::string& tag, const std::string& value)> UpdateTag;
  std::function<void(const std::string& text)> UpdateStatus;
  std::function<void()> UpdateFinished;
};

/// The value behind the first `tag` of a line, up to "()", with every "*XY*" (two upper-case
/// hexadecimal digits) turned into the character of that number; the search begins anew after each
/// one, so a character that came out of it may be part of the next. Nothing when the line lacks the
/// tag or its end.
std::optional<std::string> checktag(std::string_view tag, std::string_view line);

/// Fetches a page and looks for two tags in its lines. All work happens in the events of the client
/// and the timer.
class SWUpdate {
 public:
  static constexpr int kErrorClient = 1;
  static constexpr int kErrorTimeOut = 2;
  /// Ticks of one second after which a check is cut off.
  static constexpr int kTimeOutTicks = 10;
  static constexpr int kTickMilliseconds = 1000;
  /// Characters of one line that are looked at; what is beyond them is left out.
  static constexpr std::size_t kLongestLine = 8192;

  SWUpdate(std::unique_ptr<TcpClient> client, std::unique_ptr<Timer> timer, SWUpdateEvents events);
  SWUpdate(const SWUpdate&) = delete;
  SWUpdate& operator=(const SWUpdate&) = delete;

  /// Starts a check. While one is under way, that one goes on, with these tags.
  void server_fetch(std::string host, std::uint16_t port, std::string host_header, std::string url,
                    std::string tag1, std::string tag2);
  /// Ends the connection, and the tag search with it.
  void client_Close();
  /// Ends everything without a word: the owner goes away.
  void abandon();
  bool isRunning() const { return client_->State() > 0; }

 private:
  void connectTimeOut();
  void connected();
  void dataArrival();
  void searchTags(std::string_view line);
  void clientError(const std::string& description);
  void closeStep();
  void status(const std::string& text);
  void error(const std::string& text, int code);

  std::unique_ptr<TcpClient> client_;
  std::unique_ptr<Timer> timer_;
  SWUpdateEvents events_;
  std::string host_;
  std::uint16_t port_ = 0;
  std::string host_header_;
  std::string url_;
  std::string tag1_;
  std::string tag2_;
  int ticks_ = 0;
  /// Counts the ends of connections, so that a walk through an arrival sees that its own is over.
  int closings_ = 0;
};

}  // namespace vantrel
