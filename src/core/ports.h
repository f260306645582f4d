#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

// Everything outside the process that logic needs, as interfaces. Qt implementations stand in the
// platform and screens layers; plain ones for tests and headless runs stand in core/plain_ports.h.

namespace vantrel {

/// Per-user settings: sections of named texts.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// The stored text, or `fallback` when the key was never written.
  virtual std::string get(std::string_view section, std::string_view key,
                          std::string_view fallback) = 0;
  virtual void save(std::string_view section, std::string_view key, std::string_view value) = 0;
};

/// Monotonic time.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Seconds since an arbitrary start.
  virtual double seconds() const = 0;
};

/// One repeating timer.
class Timer {
 public:
  virtual ~Timer() = default;
  /// Calls `tick` every `interval_ms` until `stop`. A running timer is started anew.
  virtual void start(int interval_ms, std::function<void()> tick) = 0;
  virtual void stop() = 0;
  virtual bool running() const = 0;
};

/// Plays a wave file without waiting; a missing file or device is silence.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;
  virtual void play(const std::string& path) = 0;
};

/// Asks the user for a file. The filter is a list of pairs "Words|pattern|Words|pattern". Nothing
/// when the user has cancelled.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// `proposed` is the path that the dialog starts with; may be empty.
  virtual std::optional<std::string> askSave(std::string_view title, std::string_view filter,
                                             std::string_view proposed) = 0;
  virtual std::optional<std::string> askOpen(std::string_view title, std::string_view filter,
                                             std::string_view proposed) = 0;
  /// Asks for an existing folder. Without folders to choose from there is none.
  virtual std::optional<std::string> askFolder(std::string_view /*title*/) { return std::nullopt; }
};

/// The desktop's opener of web pages and documents.
class ShellOpen {
 public:
  virtual ~ShellOpen() = default;
  /// Opens a web address or a local file in the program that the desktop has for it; false when it
  /// cannot. Callers hand over only http and https addresses and files that exist.
  virtual bool open(const std::string& address) = 0;
};

/// A connection to a server. What happens on it comes in through the callables, on the thread that
/// made the object; they may be empty. An implementation raises none of them inside its own calls.
class TcpClient {
 public:
  virtual ~TcpClient() = default;
  /// Begins to connect, from any free port of this machine. A Fault when it cannot even begin.
  virtual void Connect(const std::string& host, std::uint16_t port) = 0;
  virtual void SendData(std::string_view bytes) = 0;
  /// Takes what has arrived since the last call.
  virtual std::string GetData() = 0;
  /// Ends the connection, or the attempt at one; nothing is raised for it any more.
  virtual void Close() = 0;
  /// 0 when closed, above 0 while connecting or connected.
  virtual int State() const = 0;

  std::function<void()> onConnected;
  std::function<void()> onDataArrival;
  std::function<void()> onClosed;  ///< The server has ended the connection.
  std::function<void(const std::string& description)> onError;
};

/// Lets queued screen events run inside a long calculation.
class EventPump {
 public:
  virtual ~EventPump() = default;
  virtual void yield() = 0;
};

}  // namespace vantrel
