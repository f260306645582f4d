#include "outputs/svg_device_context.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "core/number_text.h"

namespace vantrel {

namespace {

/// A number to two decimals; what is no number stands at 0.
std::string px(double length) {
  return std::isfinite(length) ? general_text(std::round(length * 100) / 100) : "0";
}

std::string attribute(std::string_view name, std::string_view value) {
  return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::string hex(Colour colour) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) {
    text += kDigits[part >> 4];
    text += kDigits[part & 15];
  }
  return text;
}

/// A paint and how much of it: `kind` is "fill" or "stroke".
std::string paint(const std::string& kind, Colour colour) {
  std::string text = attribute(kind, hex(colour));
  if (colour.alpha < 255) {
    text += attribute(kind + "-opacity", px(colour.alpha / 255.0));
  }
  return text;
}

std::string stroke(const Pen& pen) {
  std::string text = paint("stroke", pen.colour) + attribute("stroke-width", px(pen.width));
  if (pen.dashes.empty()) return text;
  std::string dashes;
  for (const double length : pen.dashes) dashes += (dashes.empty() ? "" : " ") + px(length);
  return text + attribute("stroke-dasharray", dashes) + attribute("stroke-linecap", "butt");
}

std::string outline_of(std::span<const Point> points) {
  std::string text;
  for (const Point point : points) {
    text += (text.empty() ? "M" : "L") + px(point.x) + " " + px(point.y);
  }
  return text;
}

std::string box_attributes(const Box& box) {
  return attribute("x", px(box.left)) + attribute("y", px(box.top)) +
         attribute("width", px(std::max(0.0, box.width))) +
         attribute("height", px(std::max(0.0, box.height)));
}

const char* anchor(HorizontalAlign align) {
  if (align == HorizontalAlign::Left) return "start";
  return align == HorizontalAlign::Centre ? "middle" : "end";
}

/// Distance of the baseline below the point that a text is aligned to. Fonts differ little in
/// where they put it: nine tenths of the em stand above the line, two tenths below.
double baseline_below(VerticalAlign align, double em) {
  constexpr double kAscent = 0.905;
  constexpr double kDescent = 0.212;
  switch (align) {
    case VerticalAlign::Top:
      return kAscent * em;
    case VerticalAlign::Middle:
      return (kAscent - kDescent) / 2 * em;
    case VerticalAlign::Baseline:
      return 0;
    case VerticalAlign::Bottom:
      break;
  }
  return -kDescent * em;
}

std::string base64(std::span<const std::uint8_t> bytes) {
  constexpr const char* kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j) group = group << 8 | (j < count ? bytes[i + j] : 0u);
    for (std::size_t j = 0; j < 4; ++j) {
      text += j <= count ? kLetters[group >> (18 - 6 * j) & 63] : '=';
    }
  }
  return text;
}

}  // namespace

std::string escaped_markup(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      case '\'':
        result += "&#39;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= ' ' || c == '\n') result += c;
    }
  }
  return result;
}

SvgDeviceContext::SvgDeviceContext(Size size, std::string clip_prefix, TextMeasure measure)
    : size_(size), clip_prefix_(std::move(clip_prefix)), measure_(std::move(measure)) {}

std::string SvgDeviceContext::clipReference() {
  const Box clip = *state().clip;
  auto found = std::find(clips_.begin(), clips_.end(), clip);
  if (found == clips_.end()) found = clips_.insert(clips_.end(), clip);
  return clip_prefix_ + std::to_string(found - clips_.begin());
}

void SvgDeviceContext::closeGroup() {
  if (group_open_) body_ += "</g>\n";
  group_open_ = false;
}

void SvgDeviceContext::settle() {
  if (!takeChanged() && group_open_) return;
  closeGroup();
  const DrawingState& now = state();
  body_ += "<g" + (now.pen ? stroke(*now.pen) : attribute("stroke", "none")) +
           (now.brush ? paint("fill", *now.brush) : attribute("fill", "none"));
  if (now.fillRule == FillRule::EvenOdd) body_ += attribute("fill-rule", "evenodd");
  if (now.clip) body_ += attribute("clip-path", "url(#" + clipReference() + ")");
  body_ += ">";
  group_open_ = true;
}

void SvgDeviceContext::path(const std::string& outline) {
  body_ += "<path" + attribute("d", outline) + "/>";
}

void SvgDeviceContext::drawPolyline(std::span<const Point> points) {
  settle();
  body_ += "<path" + attribute("d", outline_of(points)) + attribute("fill", "none") + "/>";
}

void SvgDeviceContext::drawPolygon(std::span<const Point> points) {
  settle();
  path(outline_of(points) + "Z");
}

void SvgDeviceContext::drawPolyPolygon(std::span<const std::vector<Point>> outlines) {
  settle();
  std::string all;
  for (const std::vector<Point>& outline : outlines) all += outline_of(outline) + "Z";
  path(all);
}

void SvgDeviceContext::drawRectangle(const Box& box) {
  settle();
  body_ += "<rect" + box_attributes(box) + "/>";
}

void SvgDeviceContext::drawEllipse(const Box& box) {
  settle();
  body_ += "<ellipse" + attribute("cx", px(box.left + box.width / 2)) +
           attribute("cy", px(box.top + box.height / 2)) + attribute("rx", px(box.width / 2)) +
           attribute("ry", px(box.height / 2)) + "/>";
}

void SvgDeviceContext::drawText(Point at, std::string_view words) {
  if (words.find_first_not_of(' ') == std::string_view::npos) return;
  settle();
  const DrawingState& now = state();
  const Font& font = now.font;
  const double below = baseline_below(now.textAlign.vertical, font.size);
  body_ += "<text";
  if (font.angle == 0) {
    body_ += attribute("x", px(at.x)) + attribute("y", px(at.y + below));
  } else {
    body_ += attribute("transform", "translate(" + px(at.x) + " " + px(at.y) + ") rotate(" +
                                        px(-font.angle) + ")") +
             attribute("y", px(below));
  }
  body_ += attribute("font-size", px(font.size)) + paint("fill", now.textColour) +
           attribute("stroke", "none");
  if (font.face != Font{}.face) body_ += attribute("font-family", escaped_markup(font.face));
  if (font.bold) body_ += attribute("font-weight", "bold");
  if (font.italic) body_ += attribute("font-style", "italic");
  if (now.textAlign.horizontal != HorizontalAlign::Left) {
    body_ += attribute("text-anchor", anchor(now.textAlign.horizontal));
  }
  const double width = measure_(font, words).width;
  if (width > 0 && words.size() > 1) {
    body_ += attribute("textLength", px(width)) + attribute("lengthAdjust", "spacingAndGlyphs");
  }
  body_ += ">" + escaped_markup(words) + "</text>";
}

void SvgDeviceContext::drawImage(const Box& box, std::span<const std::uint8_t> file) {
  const bool is_png = file.size() > 1 && file[1] == 'P';
  settle();
  body_ += "<image" + box_attributes(box) + attribute("preserveAspectRatio", "none") +
           attribute("href", std::string("data:image/") + (is_png ? "png" : "bmp") + ";base64," +
                                 base64(file)) +
           "/>";
}

std::string SvgDeviceContext::element(std::string_view label) {
  closeGroup();
  std::string text =
      "<svg" + attribute("viewBox", "0 0 " + px(size_.width) + " " + px(size_.height)) +
      attribute("style", "max-width:" + px(size_.width) + "px") + attribute("role", "img") +
      attribute("aria-label", escaped_markup(label)) + ">\n";
  for (std::size_t i = 0; i < clips_.size(); ++i) {
    text += "<clipPath" + attribute("id", clip_prefix_ + std::to_string(i)) + "><rect" +
            box_attributes(clips_[i]) + "/></clipPath>\n";
  }
  return text + "<g" + attribute("font-family", "Arial, &quot;Liberation Sans&quot;, sans-serif") +
         attribute("stroke-linejoin", "round") + attribute("stroke-linecap", "round") + ">\n" +
         body_ + "</g></svg>\n";
}

}  // namespace vantrel
