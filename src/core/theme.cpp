#include "core/theme.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace vantrel {

namespace {

struct Row {
  Role role;
  std::uint32_t light;
  std::uint32_t dark;
  std::uint32_t print;
};

// On paper the curves of the gain graph keep darker colours, told apart in grey by their dashes;
// the traces of the time domain are black.
constexpr Row kRows[] = {
    {Role::Window, 0xEEF1F4, 0x1E2227, 0xFFFFFF},
    {Role::Panel, 0xFFFFFF, 0x282D34, 0xFFFFFF},
    {Role::PanelBorder, 0xC9D0D8, 0x3F4752, 0x808080},
    {Role::Text, 0x1A1F26, 0xE6EAF0, 0x000000},
    {Role::Muted, 0x566070, 0xA7B0BD, 0x303030},
    {Role::Disabled, 0x8A94A1, 0x78828F, 0x606060},
    {Role::DisabledIcon, 0xA9B2BD, 0x5C6673, 0x808080},
    {Role::Input, 0xFFFFFF, 0x15181C, 0xFFFFFF},
    {Role::InputBorder, 0x7A8594, 0x7D8896, 0x606060},
    {Role::Locked, 0xE9EDF1, 0x333A43, 0xFFFFFF},
    {Role::Fixed, 0xD0D0FF, 0x3B3A78, 0xE8E8E8},
    {Role::FixedBorder, 0x5654C8, 0xA9A8FF, 0x000000},
    {Role::Accent, 0x1D5FBF, 0x6FA8FF, 0x000000},
    {Role::OnAccent, 0xFFFFFF, 0x0D1622, 0xFFFFFF},
    {Role::Flash, 0xCFE0FA, 0x1F3F6B, 0xFFFFFF},
    {Role::Warning, 0x8A4B00, 0xFFC46B, 0x000000},
    {Role::WarningBack, 0xFFF1D6, 0x41310F, 0xFFFFFF},
    {Role::Error, 0xB3261E, 0xFF8A80, 0x000000},
    {Role::ErrorBack, 0xFDE7E5, 0x4C211E, 0xFFFFFF},
    {Role::Ok, 0x1E6B3A, 0x7BD69A, 0x000000},
    {Role::Grid, 0xDDE2E8, 0x353C45, 0xD0D0D0},
    {Role::Curve0, 0x1F4FD8, 0x7AA2FF, 0x173CA6},
    {Role::Curve1, 0x1B7A3A, 0x3DDC6A, 0x145C2B},
    {Role::Curve2, 0x8A6400, 0xFFE14D, 0x6B4E00},
    {Role::TimeBackground, 0x000000, 0x000000, 0xFFFFFF},
    {Role::TimeText, 0xFFFFFF, 0xFFFFFF, 0x000000},
    {Role::Stage0, 0x000008, 0x000008, 0xD2D2FF},
    {Role::Stage1, 0x000800, 0x000800, 0xD2FFD2},
    {Role::Stage2, 0x080000, 0x080000, 0xFFD2D2},
    {Role::TraceVin, 0x00BE00, 0x00BE00, 0x000000},
    {Role::TraceIl, 0xDC0000, 0xDC0000, 0x000000},
    {Role::TraceVr, 0x0000FF, 0x0000FF, 0x000000},
    {Role::TraceVrLabel, 0x8C9CFF, 0x8C9CFF, 0x000000},
    {Role::TraceIr, 0xFFFF00, 0xFFFF00, 0x000000},
    {Role::TraceIc, 0x00FFFF, 0x00FFFF, 0x000000},
    {Role::TraceFreq, 0x008000, 0x008000, 0x000000},
    {Role::TraceFreqLabel, 0x00BE00, 0x00BE00, 0x000000},
    {Role::AxisVolts, 0xBEBEBE, 0xBEBEBE, 0x000000},
    {Role::AxisVoltsBack, 0x000060, 0x000060, 0xFFFFFF},
    {Role::AxisAmperes, 0x4040FF, 0x4040FF, 0x000000},
    {Role::AxisAmperesBack, 0x600000, 0x600000, 0xFFFFFF},
    {Role::AxisTime, 0x008C00, 0x008C00, 0x000000},
};

constexpr std::uint32_t Row::*kColumns[] = {&Row::light, &Row::dark, &Row::print};

constexpr bool rows_follow_roles() {
  for (std::size_t at = 0; at < std::size(kRows); ++at) {
    if (static_cast<std::size_t>(kRows[at].role) != at) return false;
  }
  return static_cast<std::size_t>(Role::AxisTime) + 1 == std::size(kRows);
}
static_assert(rows_follow_roles());

constexpr std::uint8_t part(std::uint32_t rgb, int shift) {
  return static_cast<std::uint8_t>((rgb >> shift) & 0xFFU);
}

}  // namespace

Colour theme_colour(Role role, Theme theme) {
  const std::uint32_t rgb =
      kRows[static_cast<std::size_t>(role)].*kColumns[static_cast<std::size_t>(theme)];
  return {part(rgb, 16), part(rgb, 8), part(rgb, 0)};
}

}  // namespace vantrel
