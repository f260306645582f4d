#include <algorithm>

#include "core/save_dialog.h"
#include "core/theme.h"
#include "outputs/image_display.h"
#include "outputs/metafile_player.h"

namespace vantrel {
namespace {

/// Sheets are white paper whatever the theme of the windows, so what is drawn on them is in the
/// colours of the light one.
Colour ink(Role role) { return theme_colour(role, Theme::Light); }
Colour paper() { return ink(Role::Panel); }

/// 6 pt: smaller texts cannot be read on a screen.
constexpr double kSmallestOnScreen = 8;
/// Values are the smallest texts; enlarged by this they are as large as the designators.
constexpr double kMostEnlarged = 1.13;
constexpr double kSmallestValue = 6;
constexpr VerticalAlign kMiddle = VerticalAlign::Middle;
constexpr HorizontalAlign kCentre = HorizontalAlign::Centre;

Point on_surface(Point at, double scale, Point document) {
  return {at.x + document.x * scale, at.y + document.y * scale};
}

Box on_surface(Point at, double scale, const Box& document) {
  const Point corner = on_surface(at, scale, Point{document.left, document.top});
  return {corner.x, corner.y, document.width * scale, document.height * scale};
}

void draw_ring(DeviceContext& surface, const Box& box, double width) {
  surface.setNoBrush();
  surface.setPen({paper(), width + 2, {}});
  surface.ellipse(box);
  surface.setPen({ink(Role::Accent), width, {}});
  surface.ellipse(box);
}

/// The name of a ringed component on a plate above its ring.
void draw_plate(DeviceContext& surface, const Box& ring, const std::string& reference) {
  constexpr double kPadding = 4;
  surface.setFont({.size = 13, .bold = true});
  const Size words = surface.textExtent(reference);
  const Size plate{words.width + 2 * kPadding, words.height + kPadding};
  const double middle = ring.left + ring.width / 2;
  const double top = std::max(0.0, ring.top - plate.height - kPadding);
  surface.setNoPen();
  surface.setBrush(ink(Role::Accent));
  surface.rectangle({middle - plate.width / 2, top, plate.width, plate.height});
  surface.setTextColour(ink(Role::OnAccent));
  surface.setTextAlign({kCentre, kMiddle});
  surface.text({middle, top + plate.height / 2}, reference);
}

}  // namespace

void ImageDisplay::renderPicture(DeviceContext& surface, const ImagePicture& picture,
                                 const Box& box) const {
  if (picture.isBitmap) {
    surface.image(box, picture.bytes);
    return;
  }
  if (!picture.bytes.empty()) {
    PlayLimits limits;
    limits.clock = hooks_.clock;
    play_metafile(picture.bytes, surface, box, limits);
    return;
  }
  surface.setFont({.size = 14});
  surface.setTextColour(ink(Role::Muted));
  surface.setTextAlign({kCentre, kMiddle});
  surface.text({box.left + box.width / 2, box.top + box.height / 2},
               name_without_path(picture.file));
}

void ImageDisplay::renderTexts(DeviceContext& surface, Point at, double scale,
                               double smallest) const {
  surface.setTextColour(ink(Role::Text));
  surface.setTextAlign({HorizontalAlign::Left, kMiddle});
  for (const ImageText& text : document_.texts()) {
    surface.setFont({.face = text.face, .size = std::max(text.slot.size * scale, smallest)});
    surface.text(on_surface(at, scale, text.slot.at), text.text);
  }
}

void ImageDisplay::renderValues(DeviceContext& surface, const ImagePicture& picture, const Box& box,
                                double scale, double smallest, const Values& known) const {
  surface.setTextColour(ink(Role::Muted));
  const double unit = picture.unit * scale;
  for (const auto& [reference, slot] : picture.layout.values) {
    const auto value = known.find(reference);
    if (value == known.end() || value->second.empty()) continue;
    // Larger than its designator a value would lie over its neighbours; where it cannot be read,
    // the pointer tells it.
    const double drawn = slot.text.size * unit;
    const double size = std::min(std::max(drawn, smallest), drawn * kMostEnlarged);
    if (size < std::min(smallest, kSmallestValue)) continue;
    surface.setFont({.size = size});
    if (surface.textExtent(value->second).width > slot.width * unit) continue;
    surface.setTextAlign({slot.align, kMiddle});
    surface.text(on_surface({box.left, box.top}, unit, slot.text.at), value->second);
  }
}

void ImageDisplay::render_image_details(DeviceContext& surface, Point at, double scale,
                                        double smallest_text) const {
  const Size size = document_.size();
  const Values known = values();
  surface.save();
  surface.setNoPen();
  surface.setBrush(paper());
  surface.rectangle({at.x, at.y, size.width * scale, size.height * scale});
  for (const ImagePicture& picture : document_.pictures()) {
    const Box box = on_surface(at, scale, picture.box);
    renderPicture(surface, picture, box);
    renderValues(surface, picture, box, scale, smallest_text, known);
  }
  renderTexts(surface, at, scale, smallest_text);
  surface.restore();
}

void ImageDisplay::renderRings(DeviceContext& surface) const {
  constexpr double kFlashing = 3;
  constexpr double kSteady = 2;
  if (!highlight_.isShown()) return;
  surface.save();
  for (const ImageHighlight::Ring& ring : highlight_.rings()) {
    const Box box = on_surface(view_.origin(), view_.scale(), ImageHighlight::ringBox(ring.symbol));
    draw_ring(surface, box, highlight_.isSteady() ? kSteady : kFlashing);
    if (highlight_.isSteady()) draw_plate(surface, box, ring.reference);
  }
  surface.restore();
}

void ImageDisplay::redraw(DeviceContext& surface) const {
  render_image_details(surface, view_.origin(), view_.scale(), kSmallestOnScreen);
  renderRings(surface);
}

Picture ImageDisplay::picture() const {
  return {caption(), document_.size(),
          [this](DeviceContext& surface) { render_image_details(surface, {}, 1); }, 2};
}

void ImageDisplay::PrintScreen() {
  if (hooks_.print) hooks_.print(picture());
}

bool ImageDisplay::export_schematic() {
  const std::string path = select_savefile(dialogs_, sources_.folder, kExportTitle,
                                           short_name_ + ".bmp", kPictureFilter);
  return !path.empty() && export_schematic_to(path);
}

bool ImageDisplay::export_schematic_to(const std::string& path) {
  if (!hooks_.writePicture) return false;
  const auto failure = hooks_.writePicture(path, picture());
  if (!failure) return true;
  messages_.msg(name(),
                "Could not export file '" + name_without_path(path) + "' (" + *failure + ")",
                kMessageOk, kSeverityWarning);
  return false;
}

}  // namespace vantrel
