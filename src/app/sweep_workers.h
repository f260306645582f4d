#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

/// Takes one row of a worker; false when nobody wants more.
using RowSink = std::function<bool(std::string_view row)>;
/// What a worker process does: it hands its rows to the sink and gives its exit status, 0 when it
/// has handed over all of them.
using SweepWork = std::function<int(std::size_t worker, const RowSink& sink)>;

/// Worker processes on this machine, each a fork of this one, that send lines back through pipes. A
/// worker whose lines are not taken waits, so that memory does not grow; one whose owner has gone
/// ends at its next line. The owner must have no other threads and no open database.
class SweepWorkers {
 public:
  explicit SweepWorkers(SweepWork work) : work_(std::move(work)) {}
  /// Ends the workers that still run.
  ~SweepWorkers();
  SweepWorkers(const SweepWorkers&) = delete;
  SweepWorkers& operator=(const SweepWorkers&) = delete;

  /// Starts `count` workers; `in_child` runs in each of them first. Gives the reason of a failure.
  [[nodiscard]] std::string start(std::size_t count, const std::function<void()>& in_child);
  /// The next line of a worker, line end included. False when the worker has ended instead; `why`
  /// then tells how.
  bool next(std::size_t worker, std::string& line, std::string& why);

 private:
  struct Worker {
    pid_t process = -1;
    int pipe = -1;
    std::string unread;
  };

  [[noreturn]] void runChild(std::size_t number, int pipe) const;
  static std::string ending(Worker& worker);

  SweepWork work_;
  std::vector<Worker> workers_;
};

}  // namespace vantrel
