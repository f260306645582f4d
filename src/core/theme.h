#pragma once

#include "core/device_context.h"

namespace vantrel {

/// Columns of the theme table: the two looks of the windows, and paper.
enum class Theme { Light, Dark, Print };

/// What a colour is used for.
enum class Role {
  Window,           ///< Windows, tool bars, tab pages.
  Panel,            ///< Frames, tiles, graph paper.
  PanelBorder,      ///< Edge of frames.
  Text,             ///< Text and values.
  Muted,            ///< Units, captions, notes, stale values.
  Disabled,         ///< Disabled text.
  DisabledIcon,     ///< Disabled icons; others take `Text`.
  Input,            ///< Background of inputs and lists.
  InputBorder,      ///< Edge of inputs, tick boxes, option rings.
  Locked,           ///< Background of a locked output, which has no edge.
  Fixed,            ///< Background of a fixed value.
  FixedBorder,      ///< Edge and lock of a fixed value.
  Accent,           ///< Main action, selection, focus.
  OnAccent,         ///< Text on `Accent`.
  Flash,            ///< Background of a flashing field.
  Warning,          ///< Banner text and warning picture.
  WarningBack,      ///< Background of `Warning`.
  Error,            ///< Invalid field and error picture.
  ErrorBack,        ///< Background of `Error`.
  Ok,               ///< Check marks.
  Grid,             ///< Grid lines of the gain graph.
  Curve0,           ///< Gain graph: lamp open.
  Curve1,           ///< Gain graph: running, or at maximum brightness.
  Curve2,           ///< Gain graph: at minimum brightness.
  TimeBackground,   ///< Time-domain control.
  TimeText,         ///< Stage labels and notes on it.
  Stage0,           ///< Background of the preheat stage.
  Stage1,           ///< Background of the ignition stage.
  Stage2,           ///< Background of the run stage.
  TraceVin,         ///< Half-bridge voltage.
  TraceIl,          ///< Inductor current.
  TraceVr,          ///< Lamp voltage.
  TraceVrLabel,     ///< Its label, lighter, since pure blue is dim on black.
  TraceIr,          ///< Lamp current.
  TraceIc,          ///< Capacitor current.
  TraceFreq,        ///< Frequency.
  TraceFreqLabel,   ///< Its label.
  AxisVolts,        ///< Text of the voltage axis.
  AxisVoltsBack,    ///< Behind it.
  AxisAmperes,      ///< Text of the current axis.
  AxisAmperesBack,  ///< Behind it.
  AxisTime,         ///< Text of the time axis.
};

/// The colour of a role.
Colour theme_colour(Role role, Theme theme);

}  // namespace vantrel
