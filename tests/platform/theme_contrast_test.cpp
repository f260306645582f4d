#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/theme.h"

namespace vantrel {
namespace {

double linear(std::uint8_t part) {
  const double value = part / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(Colour c) {
  return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue);
}

/// Contrast of two colours as the web accessibility guidelines define it, 1 to 21.
double contrast(Colour a, Colour b) {
  const double x = luminance(a);
  const double y = luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

double contrast(Role on, Role back, Theme theme) {
  return contrast(theme_colour(on, theme), theme_colour(back, theme));
}

struct Pair {
  Role on;
  Role back;
  double light;
  double dark;
};

TEST(Theme, ContrastsAreThoseTheLookWasDesignedWith) {
  // Worked out for the design of the windows, to one decimal.
  for (const Pair& each : std::initializer_list<Pair>{{Role::PanelBorder, Role::Window, 1.4, 1.7},
                                                      {Role::Text, Role::Panel, 16.6, 11.5},
                                                      {Role::Text, Role::Window, 14.6, 13.2},
                                                      {Role::Muted, Role::Panel, 6.4, 6.3},
                                                      {Role::Muted, Role::Window, 5.6, 7.3},
                                                      {Role::Muted, Role::Locked, 5.4, 5.2},
                                                      {Role::Disabled, Role::Panel, 3.1, 3.6},
                                                      {Role::Text, Role::Input, 16.6, 14.7},
                                                      {Role::InputBorder, Role::Panel, 3.7, 3.9},
                                                      {Role::Text, Role::Locked, 14.1, 9.5},
                                                      {Role::Text, Role::Fixed, 11.2, 8.4},
                                                      {Role::FixedBorder, Role::Fixed, 4.0, 4.7},
                                                      {Role::FixedBorder, Role::Panel, 6.0, 6.4},
                                                      {Role::Accent, Role::OnAccent, 6.1, 7.6},
                                                      {Role::Accent, Role::Panel, 6.1, 5.8},
                                                      {Role::Text, Role::Flash, 12.4, 8.8},
                                                      {Role::Warning, Role::WarningBack, 6.1, 8.0},
                                                      {Role::Error, Role::ErrorBack, 5.5, 6.0},
                                                      {Role::Ok, Role::Panel, 6.5, 7.9},
                                                      {Role::TraceVin, Role::Stage0, 8.3, 8.3},
                                                      {Role::TraceIl, Role::Stage0, 4.0, 4.0},
                                                      {Role::TraceVr, Role::Stage0, 2.4, 2.4},
                                                      {Role::TraceIr, Role::Stage0, 19.5, 19.5},
                                                      {Role::TraceIc, Role::Stage0, 16.7, 16.7},
                                                      {Role::TraceFreq, Role::Stage0, 4.1, 4.1},
                                                      {Role::TimeText, Role::Stage0, 20.9, 20.9},
                                                      {Role::AxisVolts, Role::Stage0, 11.3, 11.3},
                                                      {Role::AxisAmperes, Role::Stage0, 3.4, 3.4},
                                                      {Role::AxisTime, Role::Stage0, 4.7, 4.7}}) {
    EXPECT_NEAR(contrast(each.on, each.back, Theme::Light), each.light, 0.06)
        << static_cast<int>(each.on);
    EXPECT_NEAR(contrast(each.on, each.back, Theme::Dark), each.dark, 0.06)
        << static_cast<int>(each.on);
  }
}

TEST(Theme, CurvesAndPaperAreLegible) {
  for (const Role curve : {Role::Curve0, Role::Curve1, Role::Curve2}) {
    EXPECT_GE(contrast(curve, Role::Panel, Theme::Light), 5.35);
    EXPECT_GE(contrast(curve, Role::Panel, Theme::Dark), 5.55);
    EXPECT_GE(contrast(curve, Role::Panel, Theme::Print), 7);
  }
  for (const Role stage : {Role::Stage0, Role::Stage1, Role::Stage2}) {
    EXPECT_GE(contrast(Role::TimeText, stage, Theme::Print), 14.3);
  }
}

}  // namespace
}  // namespace vantrel
