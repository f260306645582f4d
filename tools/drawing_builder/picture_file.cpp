#include "drawing_builder/picture_file.h"

#include <cmath>

#include "drawing_builder/lettering.h"
#include "drawing_builder/painter.h"

namespace vantrel::drawing {

namespace {

constexpr int kLastOverlay = 12;
constexpr std::string_view kUsualResult = "00.00";

bool read_setting(Picture& picture, const SourceLine& line) {
  const std::string& word = line.words[0];
  if (word == "folder" && line.words.size() == 2) {
    picture.folder = line.words[1];
    return true;
  }
  const std::optional<std::vector<double>> v = numbers(line, 1);
  if (!v) return false;
  if (word == "size" && v->size() == 2 && (*v)[0] > 0 && (*v)[1] > 0) {
    picture.width = (*v)[0];
    picture.height = (*v)[1];
    return true;
  }
  if (word != "overlay" || v->size() != 4) return false;
  const int number = static_cast<int>((*v)[0]);
  if (number < 1 || number > kLastOverlay) return false;
  picture.overlays.push_back({number, {(*v)[1], (*v)[2]}, (*v)[3]});
  return true;
}

/// Areas of all letters and overlays, which must not overlap.
std::vector<std::pair<std::string, Area>> written_areas(const Picture& picture) {
  std::vector<std::pair<std::string, Area>> areas;
  for (const Shape& shape : picture.shapes) {
    if (shape.kind == Shape::Kind::Letters) areas.emplace_back(shape.letters, shape_area(shape));
  }
  for (const Picture::Overlay& overlay : picture.overlays) {
    areas.emplace_back("overlay " + std::to_string(overlay.number),
                       text_area(kUsualResult, overlay.at, Align::Left, overlay.size));
  }
  return areas;
}

void check(const Picture& picture, const Origin& origin, Problems& problems) {
  const Area sheet{0, 0, picture.width, picture.height};
  for (const Shape& shape : picture.shapes) {
    if (!sheet.covers(shape_area(shape))) report(problems, origin, "a shape leaves the picture");
  }
  const auto areas = written_areas(picture);
  for (std::size_t i = 0; i < areas.size(); ++i) {
    if (!sheet.covers(areas[i].second)) {
      report(problems, origin, "'" + areas[i].first + "' leaves the picture");
    }
    for (std::size_t k = 0; k < i; ++k) {
      if (!areas[i].second.overlaps(areas[k].second)) continue;
      report(problems, origin, "'" + areas[i].first + "' overlaps '" + areas[k].first + "'");
    }
  }
}

}  // namespace

std::string Picture::layout() const {
  std::string text;
  const auto add = [&](double steps) {
    text += " " + std::to_string(std::lround(steps * kUnitsPerStep));
  };
  for (const Overlay& overlay : overlays) {
    text += "overlay " + std::to_string(overlay.number);
    for (const double steps : {overlay.at.x, overlay.at.y, overlay.size}) add(steps);
    text += "\n";
  }
  return text;
}

Picture read_picture(const std::vector<SourceLine>& lines, Problems& problems) {
  Picture picture;
  for (const SourceLine& line : lines) {
    if (std::optional<Shape> shape = parse_shape(line, problems)) {
      if (!shape->points.empty()) picture.shapes.push_back(std::move(*shape));
    } else if (!read_setting(picture, line)) {
      report(problems, line.origin, "'" + line.words[0] + "' cannot be read in a picture");
    }
  }
  const Origin origin = lines.empty() ? Origin{} : Origin{lines.front().origin.file, 0};
  if (picture.folder.empty() || picture.width <= 0) {
    report(problems, origin, "the picture needs a folder and a size");
  }
  check(picture, origin, problems);
  return picture;
}

}  // namespace vantrel::drawing
