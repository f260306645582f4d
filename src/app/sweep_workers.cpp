#include "app/sweep_workers.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <exception>
#include <iostream>

#include "app/exit_status.h"

namespace vantrel {

namespace {

bool write_whole(int pipe, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(pipe, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

void close_pipe(int& pipe) {
  if (pipe >= 0) ::close(pipe);
  pipe = -1;
}

}  // namespace

SweepWorkers::~SweepWorkers() {
  for (Worker& worker : workers_) {
    close_pipe(worker.pipe);
    if (worker.process < 0) continue;
    ::kill(worker.process, SIGKILL);
    ::waitpid(worker.process, nullptr, 0);
  }
}

std::string SweepWorkers::start(std::size_t count, const std::function<void()>& in_child) {
  for (std::size_t number = 0; number < count; ++number) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return std::string("no pipe: ") + std::strerror(errno);
    const pid_t process = ::fork();
    if (process == 0) {
      ::close(ends[0]);
      for (Worker& other : workers_) close_pipe(other.pipe);
      in_child();
      runChild(number, ends[1]);
    }
    ::close(ends[1]);
    workers_.push_back({process, ends[0], {}});
    if (process < 0) return std::string("no process: ") + std::strerror(errno);
  }
  return {};
}

/// Ends without the exit handlers of the program, which belong to the process that was forked.
void SweepWorkers::runChild(std::size_t number, int pipe) const {
  int status = kExitBadInput;
  try {
    status = work_(number, [pipe](std::string_view row) { return write_whole(pipe, row); });
  } catch (const std::exception& error) {
    std::cerr << "vantrel-cli: " << error.what() << std::endl;
  }
  ::_exit(status);
}

bool SweepWorkers::next(std::size_t number, std::string& line, std::string& why) {
  Worker& worker = workers_[number];
  std::array<char, 4096> block{};
  for (std::size_t seen = 0;;) {
    if (const auto end = worker.unread.find('\n', seen); end != std::string::npos) {
      line = worker.unread.substr(0, end + 1);
      worker.unread.erase(0, end + 1);
      return true;
    }
    seen = worker.unread.size();
    const ssize_t count = ::read(worker.pipe, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    worker.unread.append(block.data(), static_cast<std::size_t>(count));
  }
  why = "worker " + std::to_string(number + 1) + " " + ending(worker);
  return false;
}

std::string SweepWorkers::ending(Worker& worker) {
  int status = 0;
  while (::waitpid(worker.process, &status, 0) < 0 && errno == EINTR) {
  }
  worker.process = -1;
  if (WIFSIGNALED(status)) return "was ended by signal " + std::to_string(WTERMSIG(status));
  return "ended early with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace vantrel
