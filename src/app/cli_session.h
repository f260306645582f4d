#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include "app/session.h"
#include "core/plain_ports.h"
#include "platform/picture_export.h"
#include "platform/qt_settings.h"

namespace vantrel {

/// Where the command-line program keeps things; an empty text means the usual place.
struct CliPlaces {
  std::string home;
  std::string settings;
};

/// A session without windows, with the ports that it runs on.
class CliSession {
 public:
  /// Starts a session; its messages go to `errors`. Nothing when start-up ended the run.
  static std::unique_ptr<CliSession> start(const CliPlaces& places, std::ostream& errors);

  Session& session() { return *session_; }
  /// From now on messages are only recorded, not written; for replies that carry them.
  void keepMessagesQuiet();

 private:
  CliSession() = default;

  std::unique_ptr<QtSettings> settings_;
  SteadyClock clock_;
  SilentSound sound_;
  NoEvents pump_;
  PictureExport pictures_;
  std::unique_ptr<Session> session_;
};

}  // namespace vantrel
