#include "app/sweep_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>

namespace vantrel {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// What stands in a file: whole lines only.
struct Content {
  std::string foreign;    ///< Why it is no file of this sweep, empty if it is.
  std::size_t rows = 0;   ///< Without the header.
  std::size_t bytes = 0;  ///< Of the header and those rows.
};

Content read_content(const std::string& path, std::string_view header,
                     const std::function<std::string(std::size_t)>& key_of) {
  Content content;
  std::ifstream in(path, std::ios::binary);
  std::string line;
  const auto whole_line = [&] {
    if (!std::getline(in, line)) return false;
    if (in.eof()) return false;
    line += '\n';
    return true;
  };
  if (!in.is_open()) {
    content.foreign = "cannot be read";
    return content;
  }
  if (!whole_line()) {
    if (!header.starts_with(line)) content.foreign = "has another header";
    return content;
  }
  if (line != header) {
    content.foreign = "has another header";
    return content;
  }
  content.bytes = line.size();
  while (whole_line()) {
    const std::string key = key_of(content.rows);
    if (key.empty() || !line.starts_with(key + ",") || !line.ends_with(kLineEnd)) {
      content.foreign = "holds another sweep from row " + std::to_string(content.rows + 1) + " on";
      return content;
    }
    ++content.rows;
    content.bytes += line.size();
  }
  if (in.bad()) content.foreign = "cannot be read";
  return content;
}

}  // namespace

SweepFile::~SweepFile() { close(); }

void SweepFile::close() {
  if (file_ >= 0) ::close(file_);
  file_ = -1;
}

std::string SweepFile::failure() const { return path_ + ": " + std::strerror(errno); }

std::string SweepFile::open(const std::filesystem::path& path) {
  path_ = path.string();
  file_ = ::open(path_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
  if (file_ < 0) return failure();
  if (::flock(file_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return path_ + ": another sweep writes this file";
  }
  return {};
}

std::string SweepFile::start(const std::filesystem::path& path, std::string_view header) {
  if (std::string why = open(path); !why.empty()) return why;
  struct stat info {};
  const bool regular = ::fstat(file_, &info) == 0 && S_ISREG(info.st_mode);
  if (regular && ::ftruncate(file_, 0) != 0) return failure();
  return append(header);
}

std::string SweepFile::resume(const std::filesystem::path& path, std::string_view header,
                              const std::function<std::string(std::size_t)>& key_of) {
  std::error_code error;
  if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error)) {
    return path.string() + ": no regular file, so no sweep can be resumed there";
  }
  if (std::string why = open(path); !why.empty()) return why;
  const Content content = read_content(path_, header, key_of);
  if (!content.foreign.empty()) return path_ + ": " + content.foreign;
  if (::ftruncate(file_, static_cast<off_t>(content.bytes)) != 0) return failure();
  rows_ = content.rows;
  return content.bytes == 0 ? append(header) : std::string();
}

std::string SweepFile::append(std::string_view row) {
  while (!row.empty()) {
    const ssize_t written = ::write(file_, row.data(), row.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return failure();
    row.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

std::string SweepFile::finish() {
  // Pipes and terminals have nothing to bring to a disk.
  if (::fsync(file_) != 0 && errno != EINVAL && errno != EROFS) return failure();
  return {};
}

}  // namespace vantrel
