#include "outputs/form_layout.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "outputs/page_breaks.h"

namespace vantrel {
namespace {

/// Shares of a row: its label, and its number, which ends where the unit begins.
constexpr double kLabelShare = 0.5;
constexpr double kNumberShare = 0.28;
constexpr double kWidestLabel = 230;
constexpr double kWidestNumber = 110;
constexpr double kGap = 6;
constexpr double kColumnGap = 12;
constexpr double kLeastForColumns = 500;
/// Bold letters are wider than those that are measured.
constexpr double kBoldShare = 0.85;
constexpr const char* kFixedMark = "fixed";

class FormPlacer {
 public:
  explicit FormPlacer(DeviceContext& measure) : measure_(measure) {}

  /// Where a control goes: left edge, width, top. Each gives the bottom of what it has placed.
  struct Place {
    double left;
    double width;
    double top;
  };

  double walk(const std::vector<FormControl>& controls, Place place, bool inside) {
    for (std::size_t i = 0; i < controls.size();) {
      const std::size_t frames = framesFrom(controls, i, place.width);
      if (frames > 0) {
        place.top = columns(controls, i, frames, place);
        i += frames;
      } else {
        place.top = one(controls[i], place, inside);
        ++i;
      }
    }
    return place.top;
  }

  double one(const FormControl& control, Place place, bool inside) {
    using Placing = double (*)(FormPlacer&, const FormControl&, Place);
    struct Row {
      std::string_view type;
      bool anywhere;
      Placing placing;
    };
    constexpr Placing kFrame = [](auto& to, auto& it, Place at) { return to.frame(it, at); };
    constexpr Placing kEntry = [](auto& to, auto& it, Place at) { return to.entry(it, at); };
    constexpr Placing kLabel = [](auto& to, auto& it, Place at) { return to.label(it, at); };
    constexpr Placing kTabs = [](auto& to, auto& it, Place at) { return to.tabs(it, at); };
    constexpr Placing kValue = [](auto& to, auto& it, Place at) { return to.value(it, at); };
    constexpr Row kTypes[] = {{"Frame", true, kFrame}, {"ComboBox", true, kEntry},
                              {"Label", true, kLabel}, {"TextBox", true, kEntry},
                              {"SSTab", false, kTabs}, {"VTLValue", false, kValue}};
    for (const Row& row : kTypes) {
      if (row.type != control.type) continue;
      return row.anywhere || inside ? row.placing(*this, control, place) : place.top;
    }
    return place.top;
  }

  FormLayout take(double height) { return {{kFormWidth, height}, std::move(placed_)}; }

 private:
  /// How many frames from `first` on share two columns.
  static std::size_t framesFrom(const std::vector<FormControl>& controls, std::size_t first,
                                double width) {
    if (width < kLeastForColumns) return 0;
    std::size_t end = first;
    while (end < controls.size() && controls[end].type == "Frame" && !controls[end].wide) ++end;
    return end - first;
  }

  double columns(const std::vector<FormControl>& controls, std::size_t first, std::size_t count,
                 const Place& place) {
    const double width = (place.width - kColumnGap) / 2;
    std::array<double, 2> bottoms{place.top, place.top};
    for (std::size_t i = first; i < first + count; ++i) {
      const std::size_t side = bottoms[1] < bottoms[0] ? 1 : 0;
      const double left = place.left + (side == 0 ? 0 : width + kColumnGap);
      bottoms[side] = frame(controls[i], {left, width, bottoms[side]});
    }
    return std::max(bottoms[0], bottoms[1]);
  }

  double frame(const FormControl& control, Place place) {
    const std::size_t own = begin(control);
    const double left = place.left + kFramePadding;
    const double width = place.width - 2 * kFramePadding;
    const double inner =
        walk(control.controls, {left, width, heading(own, control.caption, left, width, place.top)},
             true);
    const double bottom = inner + kFormLine;
    placed_[own].place = {place.left, place.top, place.width, bottom - kFramePadding - place.top};
    return bottom;
  }

  double tabs(const FormControl& control, Place place) {
    for (const FormControl& tab : control.controls) {
      const std::size_t own = begin(tab);
      const double top = heading(own, tab.caption, place.left, place.width, place.top);
      const double bottom = walk(tab.controls, {place.left, place.width, top}, true);
      placed_[own].place = {place.left, place.top, place.width, bottom - place.top};
      place.top = bottom;
    }
    return place.top;
  }

  double label(const FormControl& control, Place place) {
    const std::size_t own = begin(control);
    return end(own, place, lines(own, control.caption, place.left, place.width, place.top));
  }

  /// Caption and text side by side.
  double entry(const FormControl& control, Place place) {
    const std::size_t own = begin(control);
    const double left = std::min(place.width * kLabelShare, kWidestLabel);
    const std::size_t caption = lines(own, control.caption, place.left, left - kGap, place.top);
    const std::string text =
        control.value + (control.fixed ? std::string("  ") + kFixedMark : std::string());
    const std::size_t value = lines(own, text, place.left + left, place.width - left, place.top);
    return end(own, place, std::max(caption, value));
  }

  /// Label, value and unit; a number ends where the others of its frame end.
  double value(const FormControl& control, Place place) {
    if (control.unit.empty() && !fitsAsNumber(control.value, place.width)) {
      return entry(control, place);
    }
    const std::size_t own = begin(control);
    const double label_width = std::min(place.width * kLabelShare, kWidestLabel);
    const double number_width = std::min(place.width * kNumberShare, kWidestNumber);
    const std::size_t caption =
        lines(own, control.caption, place.left, label_width - kGap, place.top);
    const double number_end = place.left + label_width + number_width;
    const std::size_t number =
        lines(own, control.value, number_end, number_width, place.top, HorizontalAlign::Right);
    std::string unit = control.unit;
    if (control.fixed) unit += (unit.empty() ? "" : "  ") + std::string(kFixedMark);
    const std::size_t units = lines(own, unit, number_end + kGap,
                                    place.left + place.width - number_end - kGap, place.top);
    return end(own, place, std::max({caption, number, units}));
  }

  bool fitsAsNumber(const std::string& text, double width) {
    return measure_.textExtent(text).width <= std::min(width * kNumberShare, kWidestNumber);
  }

  std::size_t begin(const FormControl& control) {
    placed_.push_back({control.type, {}, {}});
    return placed_.size() - 1;
  }
  double end(std::size_t own, const Place& place, std::size_t count) {
    const double height = static_cast<double>(count) * kFormLine;
    placed_[own].place = {place.left, place.top, place.width, height};
    return place.top + height;
  }

  /// The caption of a container; gives its bottom.
  double heading(std::size_t own, const std::string& caption, double left, double width,
                 double top) {
    const std::size_t count = lines(own, caption, left, width * kBoldShare, top);
    for (PlacedText& text : placed_[own].texts) text.bold = true;
    return top + static_cast<double>(count) * kFormLine;
  }

  std::size_t lines(std::size_t own, const std::string& text, double at, double width, double top,
                    HorizontalAlign align = HorizontalAlign::Left) {
    if (text.empty()) return 1;
    const std::vector<std::string> words = wrapped_lines(measure_, text, width);
    for (std::size_t i = 0; i < words.size(); ++i) {
      const double line = top + static_cast<double>(i) * kFormLine;
      placed_[own].texts.push_back({{at, line}, align, words[i]});
    }
    return words.size();
  }

  DeviceContext& measure_;
  std::vector<PlacedControl> placed_;
};

}  // namespace

FormLayout lay_out_form(const std::vector<FormControl>& controls, DeviceContext& measure) {
  FormPlacer placer(measure);
  return placer.take(placer.walk(controls, {0, kFormWidth, 0}, false));
}

FormLayout lay_out_frame(const FormControl& container, DeviceContext& measure) {
  FormPlacer placer(measure);
  return placer.take(placer.one(container, {0, kFormWidth, 0}, true));
}

}  // namespace vantrel
