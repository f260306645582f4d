#include "core/file_writer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>

namespace vantrel {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;
constexpr int kMostNames = 16;
constexpr mode_t kCommonMode = 0666;

/// Leaves `write_file` from wherever a step has failed.
struct WriteFailure {
  std::string reason;
};

[[noreturn]] void fail(int error) { throw WriteFailure{std::generic_category().message(error)}; }

/// The file that a chain of symbolic links ends at; it need not exist.
fs::path end_of_links(fs::path path) {
  for (int links = 0; links < kMostLinks; ++links) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
    const fs::path next = fs::read_symlink(path, error);
    if (error) fail(error.value());
    path = path.parent_path() / next;
  }
  fail(ELOOP);
}

/// Mode of the file that will be replaced; nothing when there is none.
std::optional<mode_t> mode_of_old(const fs::path& target) {
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) {
    if (errno == ENOENT) return std::nullopt;
    fail(errno);
  }
  if (S_ISDIR(status.st_mode)) fail(EISDIR);
  if (!S_ISREG(status.st_mode)) throw WriteFailure{"Not a regular file"};
  // The rename alone would replace a file that its owner has protected.
  if (::access(target.c_str(), W_OK) != 0) fail(errno);
  return status.st_mode & 07777;
}

std::string random_name() {
  std::random_device source;
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), source(), 36).ptr;
  return ".vantrel-" + std::string(digits.begin(), end) + ".tmp";
}

/// Runs `step` on new names in a folder until one is free; nothing when it fails otherwise.
std::optional<fs::path> under_free_name(const fs::path& folder,
                                        const std::function<bool(const fs::path&)>& step) {
  for (int tries = 0; tries < kMostNames; ++tries) {
    fs::path path = folder / random_name();
    if (step(path)) return path;
    if (errno != EEXIST) break;
  }
  return std::nullopt;
}

/// A new file that is gone again unless it was renamed. While it is written it has no name where
/// the file system can do without, so that a process that is killed leaves nothing behind.
class TemporaryFile {
 public:
  TemporaryFile(fs::path folder, const FileCalls& calls)
      : calls_(calls), folder_(std::move(folder)) {
    // Made with the common mode, so that the user's mask decides as for any other file.
    file_ = ::open(folder_.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, kCommonMode);
    if (file_ >= 0) return;
    path_ = under_free_name(folder_, [this](const fs::path& path) {
      file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kCommonMode);
      return file_ >= 0;
    });
    if (!path_) fail(errno);
  }
  ~TemporaryFile() {
    if (file_ >= 0) ::close(file_);
    if (path_ && !renamed_) ::unlink(path_->c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  void mode(mode_t mode) {
    if (::fchmod(file_, mode) != 0) fail(errno);
  }

  void write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
      const ssize_t written = calls_.write(file_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) fail(errno);
      if (written == 0) throw WriteFailure{"Only a part could be written"};
      bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
  }

  void commit(const fs::path& target) {
    if (calls_.sync(file_) != 0) fail(errno);
    if (!path_) giveName();
    if (::close(std::exchange(file_, -1)) != 0) fail(errno);
    if (calls_.rename(path_->c_str(), target.c_str()) != 0) fail(errno);
    renamed_ = true;
  }

 private:
  /// A link cannot replace a file, so the finished one gets a name that can be renamed.
  void giveName() {
    const std::string open_file = "/proc/self/fd/" + std::to_string(file_);
    path_ = under_free_name(folder_, [&](const fs::path& path) {
      return ::linkat(AT_FDCWD, open_file.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
    });
    if (!path_) fail(errno);
  }

  const FileCalls& calls_;
  fs::path folder_;
  std::optional<fs::path> path_;
  int file_ = -1;
  bool renamed_ = false;
};

/// Puts the new name on the disk. The file stands already, so a failure is none of the write.
void sync_folder(const fs::path& folder, const FileCalls& calls) {
  const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return;
  calls.sync(file);
  ::close(file);
}

void replace_file(const fs::path& path, std::span<const std::uint8_t> bytes,
                  const FileCalls& calls) {
  const fs::path target = end_of_links(path);
  if (!target.has_filename()) fail(EISDIR);
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  const std::optional<mode_t> old_mode = mode_of_old(target);
  TemporaryFile temporary(folder, calls);
  if (old_mode) temporary.mode(*old_mode);
  temporary.write(bytes);
  temporary.commit(target);
  sync_folder(folder, calls);
}

}  // namespace

FileCalls system_file_calls() { return {::write, ::fsync, std::rename}; }

std::optional<std::string> write_file(const fs::path& path, std::span<const std::uint8_t> bytes,
                                      const FileCalls& calls) {
  try {
    replace_file(path, bytes, calls);
    return std::nullopt;
  } catch (const WriteFailure& failure) {
    return failure.reason;
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

std::optional<std::string> write_file(const fs::path& path, std::string_view text,
                                      const FileCalls& calls) {
  return write_file(
      path, std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()), calls);
}

}  // namespace vantrel
