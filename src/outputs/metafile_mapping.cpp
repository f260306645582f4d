#include "outputs/metafile_mapping.h"

#include <algorithm>
#include <cmath>

namespace vantrel {
namespace {

constexpr int kIsotropic = 7;
/// Units to an inch of the modes that have a size of their own, whose y goes up; 0 for the others.
constexpr double kUnitsPerInch[] = {0, 0, 254, 2540, 100, 1000, 1440, 0, 0};
/// The raster painter counts pixels in 16 bits.
constexpr double kFarthestPixel = 32000;
constexpr double kLargestWindow = 1e6;

double bounded(double value, double most) { return std::clamp(value, -most, most); }

}  // namespace

MetafileMapping::MetafileMapping(const MetafileHeader& header, const Box& target)
    : target_(target),
      zoom_x_(target.width / header.size().width),
      zoom_y_(target.height / header.size().height),
      mode_(kMetafileAnisotropic) {
  setWindow(header.bounds.left, header.bounds.top, header.width(), header.height());
}

void MetafileMapping::setWindow(double x_origin, double y_origin, double width, double height) {
  origin_ = {bounded(x_origin, kLargestWindow), bounded(y_origin, kLargestWindow)};
  const bool sound = std::abs(width) >= 1 && std::abs(height) >= 1;
  if (sound) extent_ = {bounded(width, kLargestWindow), bounded(height, kLargestWindow)};
  settle();
}

void MetafileMapping::settle() {
  const double units = kUnitsPerInch[mode_];
  if (units > 0) {
    scale_x_ = zoom_x_ * kMetafilePixelsPerInch / units;
    scale_y_ = -zoom_y_ * kMetafilePixelsPerInch / units;
    return;
  }
  scale_x_ = target_.width / extent_.width;
  scale_y_ = target_.height / extent_.height;
  if (mode_ != kIsotropic) return;
  const double scale = std::min(std::abs(scale_x_), std::abs(scale_y_));
  scale_x_ = std::copysign(scale, scale_x_);
  scale_y_ = std::copysign(scale, scale_y_);
}

bool MetafileMapping::read(const MetafileRecord& record) {
  const auto scaled = [&record](double extent, std::size_t numerator, std::size_t denominator) {
    const int by = record.number(denominator);
    return by == 0 ? extent : extent * record.number(numerator) / by;
  };
  switch (record.function()) {
    case MetafileFunction::SetMapMode:
      if (record.number(0) >= 1 && record.number(0) <= kMetafileAnisotropic)
        mode_ = record.number(0);
      settle();
      return true;
    case MetafileFunction::SetWindowOrigin:
      setWindow(record.number(1), record.number(0), extent_.width, extent_.height);
      return true;
    case MetafileFunction::OffsetWindowOrigin:
      setWindow(origin_.x + record.number(1), origin_.y + record.number(0), extent_.width,
                extent_.height);
      return true;
    case MetafileFunction::SetWindowExtent:
      setWindow(origin_.x, origin_.y, record.number(1), record.number(0));
      return true;
    case MetafileFunction::ScaleWindowExtent:
      setWindow(origin_.x, origin_.y, scaled(extent_.width, 3, 2), scaled(extent_.height, 1, 0));
      return true;
    default:
      return false;
  }
}

Point MetafileMapping::map(MetafilePoint point) const {
  return {bounded(target_.left + (point.x - origin_.x) * scale_x_, kFarthestPixel),
          bounded(target_.top + (point.y - origin_.y) * scale_y_, kFarthestPixel)};
}

Box MetafileMapping::map(const MetafileBox& box) const {
  const Point one = map(MetafilePoint{box.left, box.top});
  const Point other = map(MetafilePoint{box.right, box.bottom});
  return {std::min(one.x, other.x), std::min(one.y, other.y), std::abs(one.x - other.x),
          std::abs(one.y - other.y)};
}

double MetafileMapping::width(double units) const {
  return std::min(std::abs(units * scale_x_), kFarthestPixel);
}

double MetafileMapping::height(double units) const {
  return std::min(std::abs(units * scale_y_), kFarthestPixel);
}

}  // namespace vantrel
