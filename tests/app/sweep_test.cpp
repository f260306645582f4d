#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <sstream>
#include <thread>

#include "session_bench.h"

namespace vantrel {
namespace {

constexpr const char* kSmall = "--no-time --ic TV6108 --input 230VAC";
constexpr const char* kMiddle = "--no-time --ic TV6103 --lamp 'T5 28W' --config 0";
constexpr const char* kLong = "--no-time --ic TV6103 --lamp 'T5 28W'";

std::string content(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// Sweeps on a bench's program folder, run as a user runs them.
class SweepRuns {
 public:
  std::filesystem::path file(const std::string& name) const { return bench.home.path() / name; }

  /// Starts a sweep into `name`; with a limit it is ended by the system in the middle of the write
  /// that reaches that size.
  pid_t start(const std::string& arguments, const std::string& name, rlim_t size_limit = 0) {
    const std::string home = bench.home.path().string();
    const std::string command = std::string("exec '") + VANTREL_CLI + "' --home '" + home +
                                "' --settings '" + home + "/settings.ini' sweep " + arguments +
                                (name.empty() ? "" : " --out '" + file(name).string() + "'") +
                                " 2>'" + home + "/errors'";
    const pid_t process = ::fork();
    if (process != 0) return process;
    const rlimit limit{size_limit, size_limit};
    if (size_limit > 0) ::setrlimit(RLIMIT_FSIZE, &limit);
    ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    ::_exit(127);
  }
  /// The exit status of a process, or minus the signal that ended it.
  static int ended(pid_t process) {
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  int run(const std::string& arguments, const std::string& name) {
    return ended(start(arguments, name));
  }
  /// What the last run wrote to standard error.
  std::string errors() const { return content(file("errors")); }
  /// The file that an undisturbed sweep writes.
  std::string whole(const std::string& arguments) {
    EXPECT_EQ(run(arguments, "whole.csv"), 0) << errors();
    return content(file("whole.csv"));
  }
  /// Waits until the file holds so many lines.
  void await(const std::string& name, std::size_t lines) const {
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (lines_of(content(file(name))).size() < lines) {
      ASSERT_LT(std::chrono::steady_clock::now(), patience) << errors();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  /// Starts a sweep and kills the process that `victim` names once some rows stand. True when the
  /// sweep ended with `expected`; one that was done before the blow is started anew.
  bool hit(const std::string& arguments, const std::string& name,
           const std::function<pid_t(pid_t)>& victim, int expected) {
    for (int attempt = 0; attempt < 20; ++attempt) {
      std::filesystem::remove(file(name));
      const pid_t sweep = start(arguments, name);
      await(name, 3);
      const pid_t process = victim(sweep);
      if (process > 0) ::kill(process, SIGKILL);
      const int status = ended(sweep);
      if (status != 0) return status == expected;
    }
    return false;
  }

  SessionBench bench;
};

/// The first worker process of a sweep, 0 when there is none any more.
pid_t worker_of(pid_t sweep) {
  const std::string number = std::to_string(sweep);
  pid_t worker = 0;
  std::ifstream("/proc/" + number + "/task/" + number + "/children") >> worker;
  return worker;
}

TEST(Sweep, FourShardsAreOneRunAfterSorting) {
  SweepRuns runs;
  std::vector<std::string> one = lines_of(runs.whole(kMiddle));
  EXPECT_GE(one.size(), 10U);
  std::vector<std::string> merged;
  for (int shard = 1; shard <= 4; ++shard) {
    const std::string number = std::to_string(shard);
    ASSERT_EQ(runs.run(std::string(kMiddle) + " --shard " + number + "/4", "part.csv"), 0);
    std::vector<std::string> part = lines_of(content(runs.file("part.csv")));
    EXPECT_EQ(part.front(), one.front());
    merged.insert(merged.end(), part.begin() + (shard == 1 ? 0 : 1), part.end());
  }
  std::ranges::sort(one);
  std::ranges::sort(merged);
  EXPECT_EQ(merged, one);
}

TEST(Sweep, JobsWriteTheFileOfOneJob) {
  SweepRuns runs;
  for (const char* more : {"", " --lamp 'Halogen 12V 20W'"}) {
    const std::string arguments = kSmall + std::string(more);
    const std::string whole = runs.whole(arguments);
    ASSERT_EQ(runs.run(arguments + " --jobs 3", "jobs.csv"), 0) << runs.errors();
    EXPECT_EQ(content(runs.file("jobs.csv")), whole) << arguments;
  }
  EXPECT_NE(runs.errors().find("sweep: 1 designs"), std::string::npos) << runs.errors();
}

TEST(Sweep, ResumesFromEveryKindOfCut) {
  SweepRuns runs;
  const std::string whole = runs.whole(kSmall);
  const std::size_t header = whole.find('\n') + 1;
  const std::size_t row = whole.find('\n', header) + 1;
  for (const std::size_t cut :
       {std::size_t{0}, std::size_t{1}, header - 2, header - 1, header, header + 1, row - 2,
        row - 1, row, row + 1, whole.size() - 1, whole.size()}) {
    std::ofstream(runs.file("cut.csv"), std::ios::binary) << whole.substr(0, cut);
    ASSERT_EQ(
        runs.run(std::string(kSmall) + " --resume --jobs " + (cut % 2 == 0 ? "1" : "2"), "cut.csv"),
        0)
        << runs.errors();
    EXPECT_EQ(content(runs.file("cut.csv")), whole) << "cut at " << cut;
  }
  ASSERT_EQ(runs.run(std::string(kSmall) + " --resume", "missing.csv"), 0);
  EXPECT_EQ(content(runs.file("missing.csv")), whole);
}

TEST(Sweep, RefusesToResumeAnotherSweep) {
  SweepRuns runs;
  const std::string whole = runs.whole(kSmall);
  const std::string foreign_key = std::string(whole).replace(whole.find("\n6-") + 1, 1, "7");
  const std::string doubled = whole + whole.substr(whole.rfind("\n6-") + 1);
  std::string unix_ends = whole;
  std::erase(unix_ends, '\r');
  const std::pair<std::string, const char*> cases[] = {
      {"a,b\r\n", "has another header"},
      {"Dear diary", "has another header"},
      {whole.substr(whole.find(',')), "has another header"},
      {unix_ends, "has another header"},
      {foreign_key, "holds another sweep from row 1 on"},
      {doubled, "holds another sweep from row 8 on"},
  };
  for (const auto& [text, reason] : cases) {
    std::ofstream(runs.file("other.csv"), std::ios::binary) << text;
    EXPECT_EQ(runs.run(std::string(kSmall) + " --resume", "other.csv"), 3);
    EXPECT_NE(runs.errors().find(reason), std::string::npos) << runs.errors();
    EXPECT_EQ(content(runs.file("other.csv")), text);
  }
  EXPECT_EQ(runs.run("--ic TV6108 --resume", "whole.csv"), 3) << "rows without time";
}

TEST(Sweep, OneSweepAtATimeWritesAFile) {
  SweepRuns runs;
  const std::string whole = runs.whole(kSmall);
  const int held = ::open(runs.file("whole.csv").c_str(), O_RDONLY);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  for (const char* more : {"", " --resume"}) {
    EXPECT_EQ(runs.run(std::string(kSmall) + more, "whole.csv"), 3);
    EXPECT_NE(runs.errors().find("another sweep writes this file"), std::string::npos);
  }
  ::close(held);
  EXPECT_EQ(content(runs.file("whole.csv")), whole);
}

TEST(Sweep, ExitStatusTellsWrongUseAndBadInput) {
  SweepRuns runs;
  const std::pair<const char*, int> cases[] = {
      {"--shard 0/4 --out x", 1},
      {"--shard 5/4 --out x", 1},
      {"--shard 1/0 --out x", 1},
      {"--shard 1 --out x", 1},
      {"--shard 1/4x --out x", 1},
      {"--shard -1/4 --out x", 1},
      {"--jobs 0 --out x", 1},
      {"--jobs two --out x", 1},
      {"--ic TV6108", 1},
      {"--ic TV6108 --out x y", 1},
      {"--ic TV9999 --out x", 3},
      {"--ic TV6108 --lamp 'T5 28W' --out x", 3},
      {"--ic TV6108 --out /no/such/folder/x.csv", 3},
      {"--ic TV6108 --out /dev/full", 3},
      {"--ic TV6108 --jobs 2 --out /dev/full", 3},
      {"--ic TV6108 --resume --out /dev/null", 3},
      {"--ic TV6108 --out /dev/null", 0},
  };
  for (const auto& [arguments, status] : cases) {
    EXPECT_EQ(runs.run(arguments, ""), status) << arguments << "\n" << runs.errors();
  }
  const std::string kept = runs.whole(kSmall);
  EXPECT_EQ(runs.run("--lamp 'T5 99W'", "whole.csv"), 3);
  EXPECT_EQ(content(runs.file("whole.csv")), kept) << "a wrong name must not cost a finished file";
}

TEST(Sweep, GoesOnAfterItWasKilledInTheMiddleOfARow) {
  SweepRuns runs;
  const std::string whole = runs.whole(kMiddle);
  for (const char* jobs : {" --jobs 1", " --jobs 2"}) {
    for (const std::size_t size : {whole.size() / 3, whole.size() / 2 + 7}) {
      std::filesystem::remove(runs.file("killed.csv"));
      EXPECT_EQ(SweepRuns::ended(runs.start(std::string(kMiddle) + jobs, "killed.csv", size)),
                -SIGXFSZ);
      EXPECT_EQ(content(runs.file("killed.csv")), whole.substr(0, size));
      ASSERT_EQ(runs.run(std::string(kMiddle) + jobs + " --resume", "killed.csv"), 0);
      EXPECT_EQ(content(runs.file("killed.csv")), whole) << jobs << " cut at " << size;
    }
  }
}

TEST(Sweep, GoesOnAfterAWorkerOrTheWholeSweepWasKilled) {
  SweepRuns runs;
  const std::string whole = runs.whole(kLong);
  const std::string arguments = std::string(kLong) + " --jobs 2";
  ASSERT_TRUE(runs.hit(arguments, "killed.csv", worker_of, 5));
  EXPECT_NE(runs.errors().find("worker 1 was ended by signal 9"), std::string::npos)
      << runs.errors();
  EXPECT_TRUE(whole.starts_with(content(runs.file("killed.csv"))));
  ASSERT_EQ(runs.run(arguments + " --resume", "killed.csv"), 0) << runs.errors();
  EXPECT_EQ(content(runs.file("killed.csv")), whole);

  ASSERT_TRUE(runs.hit(
      arguments, "killed.csv", [](pid_t sweep) { return sweep; }, -SIGKILL));
  EXPECT_LT(content(runs.file("killed.csv")).size(), whole.size());
  ASSERT_EQ(runs.run(std::string(kLong) + " --resume", "killed.csv"), 0) << runs.errors();
  EXPECT_EQ(content(runs.file("killed.csv")), whole);
}

}  // namespace
}  // namespace vantrel
