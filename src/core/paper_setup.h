#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/device_context.h"
#include "core/ports.h"

namespace vantrel {

/// How the paper lies: as each output asks for, or always the same way.
enum class PaperOrientation { Automatic, Portrait, Landscape };

/// Names of the orientations, in their order.
inline constexpr std::array<const char*, 3> kOrientationNames{"Automatic", "Portrait", "Landscape"};

/// The papers that can be chosen.
struct PaperKind {
  const char* name;
  double width;  ///< Millimetres, upright.
  double height;
};
inline constexpr std::array<PaperKind, 2> kPapers{{{"A4", 210, 297}, {"Letter", 215.9, 279.4}}};

/// The sheet that everything is printed on.
struct PaperSetup {
  static constexpr double kLeastMargin = 5;  ///< Millimetres.
  static constexpr double kMostMargin = 50;

  std::size_t paper = 0;  ///< Place in kPapers.
  PaperOrientation orientation = PaperOrientation::Automatic;
  double left = 15;  ///< Margins in millimetres of the sheet as it lies.
  double top = 15;
  double right = 15;
  double bottom = 15;

  /// True when a job that asks for landscape, or does not, gets it.
  bool landscape(bool wanted) const {
    return orientation == PaperOrientation::Automatic ? wanted
                                                      : orientation == PaperOrientation::Landscape;
  }
  friend bool operator==(const PaperSetup&, const PaperSetup&) = default;
};

/// The sheet as it stands upright, in pixels of 1/96 inch.
Size upright_sheet(const PaperSetup& setup);

/// Takes over the paper or the orientation of that name in any case; false for an unknown one.
bool set_paper(PaperSetup& setup, std::string_view name);
bool set_orientation(PaperSetup& setup, std::string_view name);

/// The setup that was stored last; what is missing or out of range is as in a fresh one.
PaperSetup read_paper_setup(SettingsStore& settings);
void store_paper_setup(SettingsStore& settings, const PaperSetup& setup);

}  // namespace vantrel
