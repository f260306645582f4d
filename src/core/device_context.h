#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

/// 8 bits a part; alpha 255 is opaque.
struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  std::uint8_t alpha = 255;
  friend bool operator==(const Colour&, const Colour&) = default;
};

/// Lengths and positions are in pixels of 1/96 inch, x to the right, y down.
struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};
struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};
struct Box {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  double right() const { return left + width; }
  double bottom() const { return top + height; }
  bool contains(Point p) const {
    return p.x >= left && p.x <= right() && p.y >= top && p.y <= bottom();
  }
  friend bool operator==(const Box&, const Box&) = default;
};

/// Where two boxes overlap; without size when they do not.
inline Box common_part(const Box& a, const Box& b) {
  const double left = std::max(a.left, b.left);
  const double top = std::max(a.top, b.top);
  return {left, top, std::max(0.0, std::min(a.right(), b.right()) - left),
          std::max(0.0, std::min(a.bottom(), b.bottom()) - top)};
}

struct Pen {
  Colour colour;
  double width = 1;
  /// Lengths of dash and gap in turn; empty for a solid line.
  std::vector<double> dashes;
  friend bool operator==(const Pen&, const Pen&) = default;
};

struct Font {
  std::string face = "Arial";
  double size = 12;  ///< Height of the em.
  bool bold = false;
  bool italic = false;
  double angle = 0;  ///< Direction of the text in degrees, counter-clockwise.
  friend bool operator==(const Font&, const Font&) = default;
};

enum class HorizontalAlign { Left, Centre, Right };
enum class VerticalAlign { Top, Middle, Baseline, Bottom };

/// Which point of a text, along its own direction, stands at the given position.
struct TextAlign {
  HorizontalAlign horizontal = HorizontalAlign::Left;
  VerticalAlign vertical = VerticalAlign::Top;
  friend bool operator==(const TextAlign&, const TextAlign&) = default;
};

/// Which parts inside crossing outlines are filled: those that an odd number of lines surrounds, or
/// all that the lines go round.
enum class FillRule { EvenOdd, Winding };

/// Everything that steers how the next shape looks.
struct DrawingState {
  std::optional<Pen> pen = Pen{};
  std::optional<Colour> brush;  ///< Fill of closed shapes; nothing for no fill.
  FillRule fillRule = FillRule::EvenOdd;
  Font font;
  Colour textColour;
  TextAlign textAlign;
  std::optional<Box> clip;  ///< Nothing outside it is drawn.
  Point position;           ///< Where `lineTo` starts.
};

/// A surface to draw on. A drawing routine is written once against it and serves windows, paper,
/// files and tests. State is kept here; an implementation only draws.
class DeviceContext {
 public:
  virtual ~DeviceContext() = default;

  virtual Size size() const = 0;

  void setPen(const Pen& pen) { change().pen = pen; }
  void setNoPen() { change().pen.reset(); }
  void setBrush(Colour colour) { change().brush = colour; }
  void setNoBrush() { change().brush.reset(); }
  void setFillRule(FillRule rule) { change().fillRule = rule; }
  void setFont(const Font& font) { change().font = font; }
  void setTextColour(Colour colour) { change().textColour = colour; }
  void setTextAlign(TextAlign align) { change().textAlign = align; }
  /// Narrows the clip to the part that lies in `box` too. SVG files ignore clips, so a routine that
  /// is exported cuts its lines itself.
  void clip(const Box& box) {
    std::optional<Box>& present = change().clip;
    present = present ? common_part(*present, box) : box;
  }
  /// Keeps the present state until the matching `restore`.
  void save() { saved_.push_back(state_); }
  /// Back to the last saved state; without one nothing happens.
  void restore() {
    if (saved_.empty()) return;
    change() = std::move(saved_.back());
    saved_.pop_back();
  }

  void moveTo(Point to) { state_.position = to; }
  /// A line from the present position, which moves to its end.
  void lineTo(Point to) {
    const Point ends[] = {state_.position, to};
    drawPolyline(ends);
    state_.position = to;
  }
  /// One continuous line; a dash pattern runs on through its corners.
  void polyline(std::span<const Point> points) { drawPolyline(points); }
  void polygon(std::span<const Point> points) { drawPolygon(points); }
  /// Closed outlines that are filled as one shape.
  void polyPolygon(std::span<const std::vector<Point>> outlines) { drawPolyPolygon(outlines); }
  void rectangle(const Box& box) { drawRectangle(box); }
  void ellipse(const Box& box) { drawEllipse(box); }
  /// One line of UTF-8 text.
  void text(Point at, std::string_view words) { drawText(at, words); }
  /// A bitmap as its file's bytes, stretched over a box; one that cannot be read leaves no trace.
  void image(const Box& box, std::span<const std::uint8_t> file) { drawImage(box, file); }
  /// Width and height of a line of text in the present font, along its direction.
  virtual Size textExtent(std::string_view words) = 0;

 protected:
  const DrawingState& state() const { return state_; }
  /// True once after the state has changed since the last call.
  bool takeChanged() { return std::exchange(changed_, false); }

 private:
  virtual void drawPolyline(std::span<const Point> points) = 0;
  virtual void drawPolygon(std::span<const Point> points) = 0;
  virtual void drawPolyPolygon(std::span<const std::vector<Point>> outlines) = 0;
  virtual void drawRectangle(const Box& box) = 0;
  virtual void drawEllipse(const Box& box) = 0;
  virtual void drawText(Point at, std::string_view words) = 0;
  virtual void drawImage(const Box& box, std::span<const std::uint8_t> file) = 0;

  DrawingState& change() {
    changed_ = true;
    return state_;
  }

  DrawingState state_;
  std::vector<DrawingState> saved_;
  bool changed_ = true;
};

/// A drawing that can be written to a file.
struct Picture {
  std::string title;
  Size size;
  std::function<void(DeviceContext&)> draw;
  double scale = 1;  ///< Pixels of a bitmap per pixel of the drawing.
};

/// Writes a picture in the format of the file's extension; gives the reason when it fails.
using PictureWriter = std::function<std::optional<std::string>(const std::filesystem::path& file,
                                                               const Picture& picture)>;

}  // namespace vantrel
