#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/device_context.h"

namespace vantrel {

/// One drawn shape and the state it was drawn in. A rectangle, an ellipse and an image have the
/// two opposite corners of their box as points, a text its position. Each outline of a poly-polygon
/// is a call of its own.
struct DrawingCall {
  enum class Kind { Polyline, Polygon, PolyPolygon, Rectangle, Ellipse, Text, Image };
  Kind kind;
  std::vector<Point> points;
  std::string text;
  DrawingState state;
  Size extent;  ///< Of a text.
};

/// Keeps what is drawn instead of showing it. All its letters are equally wide, so that positions
/// do not hang on the fonts of a machine.
class RecordingDeviceContext : public DeviceContext {
 public:
  explicit RecordingDeviceContext(Size size) : size_(size) {}

  Size size() const override { return size_; }
  Size textExtent(std::string_view words) override;

  const std::vector<DrawingCall>& calls() const { return calls_; }
  /// The calls of one kind, in order.
  std::vector<DrawingCall> calls(DrawingCall::Kind kind) const;
  /// All texts, in order.
  std::vector<std::string> texts() const;
  /// The first call that draws this text; nothing when there is none.
  const DrawingCall* findText(std::string_view words) const;

 private:
  void drawPolyline(std::span<const Point> points) override;
  void drawPolygon(std::span<const Point> points) override;
  void drawPolyPolygon(std::span<const std::vector<Point>> outlines) override;
  void drawRectangle(const Box& box) override;
  void drawEllipse(const Box& box) override;
  void drawText(Point at, std::string_view words) override;
  void drawImage(const Box& box, std::span<const std::uint8_t> file) override;
  void keep(DrawingCall::Kind kind, std::span<const Point> points);

  Size size_;
  std::vector<DrawingCall> calls_;
};

/// The box that a recorded text covers, for a text that runs to the right or straight up.
Box text_box(const DrawingCall& call);

}  // namespace vantrel
