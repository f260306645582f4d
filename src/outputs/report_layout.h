#pragma once

#include <string>
#include <variant>
#include <vector>

#include "core/device_context.h"
#include "outputs/report_document.h"
#include "outputs/svg_device_context.h"

namespace vantrel {

/// A line of text on a page.
struct PlacedLine {
  Point at;  ///< Top of the line, at its left end or at its right one.
  std::string text;
  Font font;
  Colour colour;
  HorizontalAlign align = HorizontalAlign::Left;
};

/// A filled box: a rule or a background.
struct PlacedBox {
  Box box;
  Colour colour;
};

/// A picture of the report, shrunk or stretched into a box.
struct PlacedPicture {
  Box box;
  const Picture* picture;
};

using PlacedItem = std::variant<PlacedBox, PlacedLine, PlacedPicture>;

/// One page in pixels of 1/96 inch, with its items in the order of drawing.
struct ReportPage {
  Size size;
  std::vector<PlacedItem> items;
};

/// Sets a report on upright pages of that size. Tables break between rows and repeat their head,
/// figures stay whole, a title stays with what it heads; figures that want a page of their own get
/// one, turned if they are wide. Every page carries the report's subtitle and its number. The pages
/// refer to the pictures of the report, which must outlive them.
std::vector<ReportPage> report_pages(const ReportDocument& report, Size paper,
                                     const TextMeasure& measure);

/// Draws texts and boxes of a page; `place` draws its pictures.
void draw_report_page(const ReportPage& page, DeviceContext& surface,
                      const std::function<void(const PlacedPicture&)>& place);

}  // namespace vantrel
