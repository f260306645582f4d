#include "selection/picture_list.h"

#include <algorithm>

#include "core/program_folder.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr BarPicture kPictures[] = {
    {"Simple", "display_standard-on.gif", "display_standard-off.gif"},
    {"Advanced", "display_advanced-on.gif", "display_advanced-off.gif"},
    {"Edt", "ViewEDT-on.gif", "ViewEDT-off.gif"},
    {"Pft", "ViewPFT-on.gif", "ViewPFT-off.gif"},
    {"Print", "print-on.gif", "print-off.gif"},
    {"Help", "help-on.gif", "help-off.gif"},
    {"Weblinks", "internet-on.gif", "internet-off.gif"},
    {"Materials", "ViewBOM-on.gif", "ViewBOM-off.gif"},
    {"Photoplot", "ViewPhotoplot-on.gif", "ViewPhotoplot-off.gif"},
    {"Schematic", "ViewSchematic-on.gif", "ViewSchematic-off.gif"},
    {"Datasheet", "ViewDatasheet-on.gif", "ViewDatasheet-off.gif"},
    {"Zoom In", "Zoom_In.gif", "Zoom_In.gif"},
    {"Zoom Out", "Zoom_Out.gif", "Zoom_Out.gif"},
    {"Save BOM", "Save_BOM.gif", "Save_BOM.gif"},
    {"Save Image", "Save_Image.gif", "Save_Image.gif"},
    {"Save Photoplot", "Save_Photoplot.gif", "Save_Photoplot.gif"},
    {"Save Schematic", "Save_Schematic.gif", "Save_Schematic.gif"},
    {"New", "Table New.gif", "Table New.gif"},
    {"Delete", "Table Delete.gif", "Table Delete.gif"},
    {"Load", "Table Load.gif", "Table Load.gif"},
    {"Save", "Table Save.gif", "Table Save.gif"},
    {"Export Data", "Table Export.gif", "Table Export.gif"},
    {"Back", "Move_Prev-On.gif", "Move_Prev-Off.gif"},
    {"Forward", "Move_Next-On.gif", "Move_Next-Off.gif"},
};

}  // namespace

std::span<const BarPicture> bar_pictures() { return kPictures; }

const BarPicture* find_bar_picture(std::string_view key) {
  if (key == "Save Gerber") key = "Save Photoplot";
  const auto* found = std::find_if(std::begin(kPictures), std::end(kPictures),
                                   [&](const BarPicture& picture) { return picture.key == key; });
  return found == std::end(kPictures) ? nullptr : found;
}

std::string bar_picture_path(std::string_view key, bool on) {
  const BarPicture* picture = find_bar_picture(key);
  if (picture == nullptr) return {};
  return std::string(kPictureFolder) + (on ? picture->on : picture->off);
}

std::string bar_drawing_path(std::string_view key) {
  constexpr std::string_view kState = "-on";
  std::string path = name_without_extension(bar_picture_path(key, true));
  if (path.empty()) return {};
  if (lower(path).ends_with(kState)) path.resize(path.size() - kState.size());
  return path + ".svg";
}

}  // namespace vantrel
