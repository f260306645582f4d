#pragma once

namespace vantrel {

// What the designs of inductors and transformers have in common.

/// The circle constant in 32 bits, as the designs have always used it.
inline constexpr double kCircleConstant = 3.1415927F;
inline constexpr double kCurrentDensity = 5;            ///< A per mm2 of copper.
inline constexpr double kInitialPermeability = 2000;    ///< Of the core material.
inline constexpr double kFillDivisor = 0.8;             ///< Usable part of the window.
inline constexpr double kPermeabilityConstant = 1.257;  ///< Of vacuum, in 1e-9 H per mm.
inline constexpr double kSmallestWireDiameter = 0.2;    ///< mm.

/// Copper area in mm2 for an rms current in A.
double wire_area(double current);

/// Diameter in mm of a round wire of that area, cut down to a tenth of a millimetre.
double cut_diameter(double area);

/// The diameter of the wire that is used: not below the smallest one.
double used_diameter(double diameter);

/// AL value in H per turn squared of a core with that effective permeability and core constant.
double al_value(double permeability, double core_factor);

}  // namespace vantrel
