#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/device_context.h"

namespace vantrel {

/// Measures a line of text as a DeviceContext with that font would.
using TextMeasure = std::function<Size(const Font& font, std::string_view words)>;

/// Text with "&", "<", ">" and quotes written as entities; control characters are left out.
std::string escaped_markup(std::string_view text);

/// Draws the elements of an SVG picture that stands inside a page. It has no identifiers besides
/// those of its clips, which start with a prefix, so that pictures on one page never share one.
class SvgDeviceContext : public DeviceContext {
 public:
  /// `measure` gives the widths that the texts keep whatever fonts the reader has.
  SvgDeviceContext(Size size, std::string clip_prefix, TextMeasure measure);

  Size size() const override { return size_; }
  Size textExtent(std::string_view words) override { return measure_(state().font, words); }

  /// The "svg" element with all that was drawn; `label` tells what it shows.
  std::string element(std::string_view label);

 private:
  void drawPolyline(std::span<const Point> points) override;
  void drawPolygon(std::span<const Point> points) override;
  void drawPolyPolygon(std::span<const std::vector<Point>> outlines) override;
  void drawRectangle(const Box& box) override;
  void drawEllipse(const Box& box) override;
  void drawText(Point at, std::string_view words) override;
  void drawImage(const Box& box, std::span<const std::uint8_t> file) override;

  void settle();
  void closeGroup();
  void path(const std::string& outline);
  std::string clipReference();

  Size size_;
  std::string clip_prefix_;
  TextMeasure measure_;
  std::string body_;
  bool group_open_ = false;
  std::vector<Box> clips_;
};

}  // namespace vantrel
