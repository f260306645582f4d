#include "core/file_writer.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "services/project_fixture.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

mode_t mode_of(const fs::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// A disk that takes `budget` bytes, at most `portion` at a time.
FileCalls rationed(std::size_t budget, std::size_t portion) {
  FileCalls calls = system_file_calls();
  calls.write = [budget, portion](int file, const void* bytes,
                                  std::size_t count) mutable -> ssize_t {
    const std::size_t part = std::min({budget, portion, count});
    if (part == 0) {
      errno = ENOSPC;
      return -1;
    }
    budget -= part;
    return ::write(file, bytes, part);
  };
  return calls;
}

TEST(FileWriterTest, WritesAndReplaces) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.txt";
  EXPECT_EQ(write_file(path, "first"), std::nullopt);
  EXPECT_EQ(contents(path), "first");
  EXPECT_EQ(write_file(path, ""), std::nullopt);
  EXPECT_EQ(contents(path), "");
  EXPECT_EQ(write_file(path, std::string("a\0b\n", 4)), std::nullopt);
  EXPECT_EQ(contents(path), std::string("a\0b\n", 4));
  EXPECT_EQ(folder.count(), 1U);
}

TEST(FileWriterTest, ADiskThatRunsFullAtAnyByteChangesNothing) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.txt";
  ASSERT_EQ(write_file(path, "the old text"), std::nullopt);
  const std::string text = "a new and somewhat longer text";
  for (std::size_t budget = 0; budget < text.size(); ++budget) {
    for (const std::size_t portion : {std::size_t{4}, text.size()}) {
      EXPECT_EQ(write_file(path, text, rationed(budget, portion)), "No space left on device");
      EXPECT_EQ(contents(path), "the old text");
      EXPECT_EQ(folder.count(), 1U);
    }
  }
  EXPECT_EQ(write_file(path, text, rationed(text.size(), 4)), std::nullopt);
  EXPECT_EQ(contents(path), text);
}

/// Writes `text` in a child process that ends as `prepare` lets it.
template <typename Prepare>
void write_in_child(const fs::path& path, const std::string& text, Prepare prepare) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const FileCalls calls = prepare();
    const auto failure = write_file(path, text, calls);
    ::_exit(failure ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
}

TEST(FileWriterTest, AFullDiskOrAKilledProcessLeavesTheOldFileOrTheNewOne) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.txt";
  const std::string old_text = "the old text";
  const std::string text = "a new and somewhat longer text";
  const auto expect_whole = [&](const std::string& expected) {
    EXPECT_EQ(contents(path), expected);
    EXPECT_EQ(folder.count(), 1U) << "nothing is left behind";
  };
  for (std::size_t room = 0; room <= text.size(); ++room) {
    ASSERT_EQ(write_file(path, old_text), std::nullopt);
    // The system itself refuses what goes beyond the limit.
    write_in_child(path, text, [&] {
      ::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{room, room};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      return system_file_calls();
    });
    expect_whole(room < text.size() ? old_text : text);
  }
  for (std::size_t room = 0; room <= text.size(); ++room) {
    ASSERT_EQ(write_file(path, old_text), std::nullopt);
    write_in_child(path, text, [&] {
      FileCalls calls = rationed(text.size(), 1);
      calls.write = [write = calls.write, left = room](int file, const void* bytes,
                                                       std::size_t count) mutable {
        if (left-- == 0) ::kill(::getpid(), SIGKILL);
        return write(file, bytes, count);
      };
      return calls;
    });
    expect_whole(room < text.size() ? old_text : text);
  }
  ASSERT_EQ(write_file(path, old_text), std::nullopt);
  write_in_child(path, text, [] {
    FileCalls calls = system_file_calls();
    calls.sync = [](int) { return ::kill(::getpid(), SIGKILL); };
    return calls;
  });
  expect_whole(old_text);
}

TEST(FileWriterTest, EveryOtherCallMayFailAsWell) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.txt";
  ASSERT_EQ(write_file(path, "old"), std::nullopt);
  const auto failing = [](auto... /*arguments*/) {
    errno = EIO;
    return -1;
  };
  FileCalls sync = system_file_calls();
  sync.sync = failing;
  FileCalls rename = system_file_calls();
  rename.rename = failing;
  FileCalls nothing_written = system_file_calls();
  nothing_written.write = [](int, const void*, std::size_t) -> ssize_t { return 0; };
  for (const FileCalls& calls : {sync, rename, nothing_written}) {
    EXPECT_NE(write_file(path, "new", calls), std::nullopt);
    EXPECT_EQ(contents(path), "old");
    EXPECT_EQ(folder.count(), 1U);
  }
}

TEST(FileWriterTest, FlushesBeforeItRenames) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.txt";
  std::vector<std::string> order;
  FileCalls calls = system_file_calls();
  calls.write = [&](int file, const void* bytes, std::size_t count) {
    if (order.empty()) {
      order.push_back("interrupted");
      errno = EINTR;
      return ssize_t{-1};
    }
    order.push_back("write");
    return ::write(file, bytes, count);
  };
  calls.sync = [&](int file) {
    order.push_back("sync");
    return ::fsync(file);
  };
  calls.rename = [&](const char* from, const char* to) {
    EXPECT_EQ(contents(from), "text");
    EXPECT_EQ(fs::path(from).parent_path(), folder.path()) << "beside the target";
    EXPECT_EQ(fs::path(to), path);
    order.push_back("rename");
    return std::rename(from, to);
  };
  EXPECT_EQ(write_file(path, "text", calls), std::nullopt);
  EXPECT_EQ(order, (std::vector<std::string>{"interrupted", "write", "sync", "rename", "sync"}));
}

TEST(FileWriterTest, KeepsModeAndFollowsLinks) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "real");
  const fs::path real = folder / "real/a.txt";
  ASSERT_EQ(write_file(real, "old"), std::nullopt);
  ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
  fs::create_symlink("real/a.txt", folder / "link");
  fs::create_symlink("link", folder / "link of link");
  EXPECT_EQ(write_file(folder / "link of link", "new"), std::nullopt);
  EXPECT_EQ(contents(real), "new");
  EXPECT_EQ(mode_of(real), mode_t{0640});
  EXPECT_TRUE(fs::is_symlink(folder / "link"));

  fs::create_symlink("real/later.txt", folder / "dangling");
  EXPECT_EQ(write_file(folder / "dangling", "x"), std::nullopt);
  EXPECT_EQ(contents(folder / "real/later.txt"), "x");

  const mode_t mask = ::umask(027);
  EXPECT_EQ(write_file(folder / "fresh", "x"), std::nullopt);
  ::umask(mask);
  EXPECT_EQ(mode_of(folder / "fresh"), mode_t{0640}) << "a new file obeys the user's mask";
}

TEST(FileWriterTest, RefusesWhatIsNoFile) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "sub");
  fs::create_symlink("loop", folder / "loop");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  for (const char* name : {"sub", "sub/", "loop", "pipe", "none/a.txt", ""}) {
    const fs::path path = *name == '\0' ? fs::path() : folder / name;
    EXPECT_NE(write_file(path, "x"), std::nullopt) << name;
  }
  EXPECT_EQ(folder.count(), 3U);
  EXPECT_NE(write_file("/dev/full", "x"), std::nullopt);
}

TEST(FileWriterTest, LeavesAProtectedFileAlone) {
  if (::geteuid() == 0) GTEST_SKIP() << "nothing is protected from this user";
  const TemporaryFolder folder;
  const fs::path path = folder / "a.txt";
  ASSERT_EQ(write_file(path, "old"), std::nullopt);
  ASSERT_EQ(::chmod(path.c_str(), 0400), 0);
  EXPECT_NE(write_file(path, "new"), std::nullopt);
  EXPECT_EQ(contents(path), "old");
}

}  // namespace
}  // namespace vantrel
