#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "waveforms/time_domain_cursor.h"

namespace vantrel {

namespace {

constexpr std::uint8_t kBandAlpha = 60;
constexpr double kFlagPadding = 4;
const std::vector<double> kDots{1, 2};

void upright(DeviceContext& surface, const Box& plot, double x, const std::vector<double>& dashes,
             Colour ink) {
  surface.setPen({ink, 1, dashes});
  const double middle = std::floor(x) + 0.5;
  surface.moveTo({middle, plot.top});
  surface.lineTo({middle, plot.bottom()});
}

void plate(DeviceContext& surface, const Box& box, Colour colour) {
  surface.setNoPen();
  surface.setBrush(colour);
  surface.rectangle(box);
}

void flag(DeviceContext& surface, const Box& plot, double x, std::string_view name, Theme theme) {
  const Size size = surface.textExtent(name);
  const double width = size.width + 2 * kFlagPadding;
  plate(surface, {x - width / 2, plot.bottom() - size.height - kFlagPadding, width, size.height},
        theme_colour(Role::TimeText, theme));
  surface.setTextColour(theme_colour(Role::TimeBackground, theme));
  surface.setTextAlign({HorizontalAlign::Centre, VerticalAlign::Top});
  surface.text({x, plot.bottom() - size.height - kFlagPadding}, name);
}

void draw_band(DeviceContext& surface, const TimeDomainView& view, std::array<double, 2> band,
               Theme theme) {
  const Box plot = view.plotArea();
  const PlotColumns& columns = view.PlotPoints();
  const auto [left, right] = std::minmax(
      {std::clamp(band[0], plot.left, plot.right()), std::clamp(band[1], plot.left, plot.right())});
  const Colour ink = theme_colour(Role::TimeText, theme);
  Colour tint = ink;
  tint.alpha = kBandAlpha;
  plate(surface, {left, plot.top, right - left, plot.height}, tint);
  const double length = (right - left) * columns.window / columns.width;
  surface.setTextColour(ink);
  surface.setTextAlign({HorizontalAlign::Centre, VerticalAlign::Middle});
  surface.text({(left + right) / 2, plot.top + plot.height / 2},
               format_mask(length, "0.0") + " us");
}

}  // namespace

void draw_overlay(DeviceContext& surface, const TimeDomainView& view,
                  const TimeDomainOverlay& overlay, Theme theme) {
  const PlotColumns& columns = view.PlotPoints();
  if (columns.first >= columns.count()) return;
  const Box plot = view.plotArea();
  const Colour ink = theme_colour(Role::TimeText, theme);
  surface.save();
  surface.setFont({.bold = true});
  const auto measuring = [&](std::optional<double> time, const std::vector<double>& dashes,
                             std::string_view name) {
    if (!time) return;
    const double x = kPlotMargin + (*time - columns.offset) * columns.width / columns.window;
    if (x < plot.left || x > plot.right()) return;
    upright(surface, plot, x, dashes, ink);
    flag(surface, plot, x, name, theme);
  };
  measuring(overlay.measuring.a, {}, "A");
  measuring(overlay.measuring.b, kDots, "B");
  if (overlay.cursor && *overlay.cursor >= columns.first && *overlay.cursor < columns.count()) {
    upright(surface, plot, columns.at(*overlay.cursor).X, {}, ink);
  }
  if (overlay.band) draw_band(surface, view, *overlay.band, theme);
  surface.restore();
}

}  // namespace vantrel
