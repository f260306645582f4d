#pragma once

#include "core/device_context.h"
#include "outputs/metafile_reader.h"

namespace vantrel {

/// From the logical units of a metafile to pixels of the surface. The picture lies on the target at
/// first; the records move and scale its window.
class MetafileMapping {
 public:
  /// The header has a size.
  MetafileMapping(const MetafileHeader& header, const Box& target);

  /// Reads a record that alters the mapping; false for any other record. An extent of 0 is none.
  bool read(const MetafileRecord& record);

  /// Never further away than the painter can count.
  Point map(MetafilePoint point) const;
  /// With its edges in order.
  Box map(const MetafileBox& box) const;
  /// A length in the direction of x or y, never negative.
  double width(double units) const;
  double height(double units) const;

 private:
  void setWindow(double x_origin, double y_origin, double width, double height);
  void settle();

  Box target_;
  double zoom_x_;  ///< Pixels of the target to a pixel of the picture's own size.
  double zoom_y_;
  int mode_;
  Point origin_;
  Size extent_;
  double scale_x_ = 1;  ///< Pixels to a logical unit; below 0 where the axis is reversed.
  double scale_y_ = 1;
};

}  // namespace vantrel
