#include "core/program_folder.h"

#include <algorithm>
#include <span>
#include <system_error>

#include "core/text_parsing.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSeparators = "\\/";

/// The steps of a path; nothing when it would leave the folder it starts from.
std::optional<std::vector<std::string>> steps_of(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) return std::nullopt;
  std::vector<std::string> steps;
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of(kSeparators), path.size());
    const std::string_view step = path.substr(0, end);
    if (step == "..") return std::nullopt;
    if (!step.empty() && step != ".") steps.emplace_back(step);
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return steps;
}

/// Entries of a folder whose names match a step but for case, the exact one first.
std::vector<fs::path> matches(const fs::path& folder, const std::string& step) {
  std::vector<fs::path> found;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (equal_ignoring_case(name, step)) found.push_back(entry->path());
  }
  std::sort(found.begin(), found.end(), [&](const fs::path& a, const fs::path& b) {
    const bool a_exact = a.filename().string() == step;
    const bool b_exact = b.filename().string() == step;
    return a_exact != b_exact ? a_exact : a < b;
  });
  return found;
}

std::optional<fs::path> find_below(const fs::path& folder, std::span<const std::string> steps) {
  std::error_code error;
  if (steps.empty()) return fs::exists(folder, error) ? std::optional(folder) : std::nullopt;
  // The exact name needs no walk through the folder; most paths take this way.
  const fs::path exact = folder / steps.front();
  if (fs::exists(exact, error)) {
    if (auto found = find_below(exact, steps.subspan(1))) return found;
  }
  for (const fs::path& candidate : matches(folder, steps.front())) {
    if (candidate == exact) continue;
    if (auto found = find_below(candidate, steps.subspan(1))) return found;
  }
  return std::nullopt;
}

}  // namespace

ProgramFolder::ProgramFolder(fs::path home, fs::path installed)
    : home_(std::move(home)), installed_(std::move(installed)) {}

std::optional<fs::path> ProgramFolder::find(std::string_view path) const {
  const auto steps = steps_of(path);
  if (!steps) return std::nullopt;
  if (auto found = find_below(home_, *steps)) return found;
  if (installed_.empty()) return std::nullopt;
  return find_below(installed_, *steps);
}

std::optional<fs::path> ProgramFolder::writable(std::string_view path) const {
  const auto steps = steps_of(path);
  if (!steps) return std::nullopt;
  const std::span<const std::string> all(*steps);
  // As much of the path as exists, and the rest as it is spelled.
  for (std::size_t known = all.size() + 1; known-- > 0;) {
    auto found = find_below(home_, all.first(known));
    if (!found) continue;
    for (const std::string& step : all.subspan(known)) *found /= step;
    return found;
  }
  fs::path fresh = home_;
  for (const std::string& step : all) fresh /= step;
  return fresh;
}

std::string name_without_path(std::string_view path) {
  const auto last = path.find_last_of(kSeparators);
  return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string name_without_extension(std::string_view path) {
  return std::string(path.substr(0, path.rfind('.')));
}

bool delete_file(const fs::path& path) {
  std::error_code error;
  fs::remove(path, error);
  return !fs::exists(fs::symlink_status(path, error));
}

}  // namespace vantrel
