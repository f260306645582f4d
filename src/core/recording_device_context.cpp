#include "core/recording_device_context.h"

#include <algorithm>
#include <iterator>

namespace vantrel {

namespace {

constexpr double kLetterWidth = 0.55;
constexpr double kLineHeight = 1.2;
constexpr double kAscent = 0.95;

double share_before(HorizontalAlign align) {
  switch (align) {
    case HorizontalAlign::Left:
      return 0;
    case HorizontalAlign::Centre:
      return 0.5;
    case HorizontalAlign::Right:
      break;
  }
  return 1;
}

double share_above(VerticalAlign align) {
  switch (align) {
    case VerticalAlign::Top:
      return 0;
    case VerticalAlign::Middle:
      return 0.5;
    case VerticalAlign::Baseline:
      return kAscent / kLineHeight;
    case VerticalAlign::Bottom:
      break;
  }
  return 1;
}

}  // namespace

Size RecordingDeviceContext::textExtent(std::string_view words) {
  // A letter of several bytes counts once.
  const auto letters = std::count_if(words.begin(), words.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  });
  const double em = state().font.size;
  return {static_cast<double>(letters) * em * kLetterWidth, em * kLineHeight};
}

std::vector<DrawingCall> RecordingDeviceContext::calls(DrawingCall::Kind kind) const {
  std::vector<DrawingCall> found;
  std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(found),
               [kind](const DrawingCall& call) { return call.kind == kind; });
  return found;
}

std::vector<std::string> RecordingDeviceContext::texts() const {
  std::vector<std::string> all;
  for (const DrawingCall& call : calls_) {
    if (call.kind == DrawingCall::Kind::Text) all.push_back(call.text);
  }
  return all;
}

const DrawingCall* RecordingDeviceContext::findText(std::string_view words) const {
  const auto found = std::find_if(calls_.begin(), calls_.end(), [words](const DrawingCall& call) {
    return call.kind == DrawingCall::Kind::Text && call.text == words;
  });
  return found == calls_.end() ? nullptr : &*found;
}

void RecordingDeviceContext::keep(DrawingCall::Kind kind, std::span<const Point> points) {
  calls_.push_back({kind, {points.begin(), points.end()}, {}, state(), {}});
}

void RecordingDeviceContext::drawPolyline(std::span<const Point> points) {
  keep(DrawingCall::Kind::Polyline, points);
}

void RecordingDeviceContext::drawPolygon(std::span<const Point> points) {
  keep(DrawingCall::Kind::Polygon, points);
}

void RecordingDeviceContext::drawPolyPolygon(std::span<const std::vector<Point>> outlines) {
  for (const std::vector<Point>& outline : outlines) {
    keep(DrawingCall::Kind::PolyPolygon, outline);
  }
}

void RecordingDeviceContext::drawRectangle(const Box& box) {
  const Point corners[] = {{box.left, box.top}, {box.right(), box.bottom()}};
  keep(DrawingCall::Kind::Rectangle, corners);
}

void RecordingDeviceContext::drawEllipse(const Box& box) {
  const Point corners[] = {{box.left, box.top}, {box.right(), box.bottom()}};
  keep(DrawingCall::Kind::Ellipse, corners);
}

void RecordingDeviceContext::drawImage(const Box& box, std::span<const std::uint8_t> /*file*/) {
  const Point corners[] = {{box.left, box.top}, {box.right(), box.bottom()}};
  keep(DrawingCall::Kind::Image, corners);
}

void RecordingDeviceContext::drawText(Point at, std::string_view words) {
  calls_.push_back({DrawingCall::Kind::Text, {at}, std::string(words), state(), textExtent(words)});
}

Box text_box(const DrawingCall& call) {
  const Point at = call.points.front();
  const TextAlign align = call.state.textAlign;
  const double before = share_before(align.horizontal) * call.extent.width;
  const double above = share_above(align.vertical) * call.extent.height;
  if (call.state.font.angle == 0) {
    return {at.x - before, at.y - above, call.extent.width, call.extent.height};
  }
  return {at.x - above, at.y - (call.extent.width - before), call.extent.height, call.extent.width};
}

}  // namespace vantrel
