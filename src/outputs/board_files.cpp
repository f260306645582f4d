#include "outputs/board_files.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCaller = "ImageDisplay";
constexpr std::array<std::string_view, 8> kGerberFiles{
    "tvboard1.drl", "tvboard1.drr", "tvboard1.gbl", "tvboard1.gbo",
    "tvboard1.gbs", "tvboard1.gm1", "tvboard1.gto", "tvboard1.txt"};
constexpr std::array<std::string_view, 3> kLayerFiles{"Layer1.gif", "Layer2.gif", "Layer3.gif"};

std::string listed(std::string& list, std::string_view name) {
  return list.empty() ? std::string(name) : list + ", " + std::string(name);
}

}  // namespace

BoardFiles::BoardFiles(SysMsg& messages, FileDialogs* dialogs, const ProgramFolder& folder,
                       FileCalls calls)
    : messages_(messages), dialogs_(dialogs), folder_(folder), calls_(std::move(calls)) {}

bool BoardFiles::export_gerber() {
  const auto target = dialogs_ == nullptr ? std::nullopt : dialogs_->askFolder(kGerberTitle);
  return target && !target->empty() && exportGerberTo(*target);
}

bool BoardFiles::export_layers() {
  const auto target = dialogs_ == nullptr ? std::nullopt : dialogs_->askFolder(kLayersTitle);
  return target && !target->empty() && exportLayersTo(*target);
}

bool BoardFiles::exportGerberTo(const std::string& target) {
  return copy("\\Gerber\\", kGerberFiles, target);
}

bool BoardFiles::exportLayersTo(const std::string& target) {
  return copy("\\Graphics\\", kLayerFiles, target);
}

bool BoardFiles::copy(std::string_view source, std::span<const std::string_view> names,
                      const std::string& target) {
  std::string present;
  for (const std::string_view name : names) {
    if (fs::exists(fs::path(target) / name)) present = listed(present, name);
  }
  if (!present.empty() && messages_.msg(kCaller,
                                        "These files exist already and will be replaced:¬" +
                                            present + "¬¬Do you want to continue?",
                                        kMessageYesNo) != kYes) {
    return false;
  }
  std::string failed;
  for (const std::string_view name : names) {
    const auto path = folder_.find(std::string(source).append(name));
    std::ifstream file;
    if (path) file.open(*path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!path || file.bad() || bytes.empty() ||
        write_file(fs::path(target) / name, bytes, calls_)) {
      failed = listed(failed, name);
    }
  }
  if (failed.empty()) {
    messages_.msg(kCaller, "Files exported to '" + target + "'", kMessageOk, kSeverityInformation);
    return true;
  }
  messages_.msg(kCaller, "Could not export to '" + target + "': " + failed, kMessageOk,
                kSeverityWarning);
  return false;
}

}  // namespace vantrel
