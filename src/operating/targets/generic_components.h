#pragma once

#include "core/variant.h"
#include "operating/targets/target.h"

namespace vantrel {

// The component formulas that hold for every control IC unless its own table replaces them. The
// arguments are in base units unless said otherwise and come in the order of the rule's parameters.

// Oscillator, in generic_components_oscillator.cpp.

/// Timing resistor for the lower of two frequencies; also sets the start frequency alone.
double component_RT(double ct, double f1, double f2, double rdt);
/// Resistor in parallel to the timing resistor that raises the frequency to that of preheat.
double component_RPH(double rt, double ct, double frequency, double rdt);
/// Dead-time resistor.
double component_RDT(double ct, double dead_time);
/// Resistor in parallel to the timing resistor that raises the frequency to that of the run; not
/// connected when the run frequency is below `limit` or the resistor is 1 megohm and more, or not
/// positive. Held in 32 bits.
Variant component_RRUN(const Variant& rt, const Variant& ct, double frequency,
                       const Variant& dead_time, double limit);
/// Resistor of the minimum frequency, in kilohms, for the lower of two frequencies.
double component_RFMIN(double f1, double f2);
/// Preheat current reference: sqrt(2) times the three arguments.
double component_RIPH(double current, double rcs, double rfmin);
/// Phase reference at minimum brightness; phase in degrees with its sign.
double component_RMIN(double rfmin, double phase);
/// Phase reference at maximum brightness.
double component_RMAX(double rfmin, double rmin, double phase);
/// Resistor of the over-current threshold, fed by 50 uA.
double component_ROC(double rcs, double current);
/// Ramp capacitor: time by volts per ampere.
double component_CRAMP(double time, double slope);

// Power stage, in generic_components_power.cpp.

/// Mains choke by lamp configuration, rated in amperes. A failure is the caller's.
Variant component_L1(const ComponentContext& context, double power, double voltage);
/// X capacitor by power.
double component_C1(double power);
Variant component_CBUSxActivePFC(double bus_voltage, double power);
/// Each of two bus capacitors in series.
Variant component_CBUS12xActivePFC(double bus_voltage, double power);
/// Each of the two capacitors of a doubler; the voltage plays no part.
Variant component_CBUS12xVoltageDoubler(const Variant& voltage, double power);
Variant component_CBUSxFullBridgeRectifier(double line_voltage, double power);
/// 50 uF for each ten units, at least 50 uF.
double component_CBUSxDC(double power);
/// Twice the argument. A failure is the caller's.
double component_CBUSx(double value);
/// Rating only: the choke's current.
Variant component_L2(double power, double voltage);
/// Brown-out divider by the highest line voltage.
double component_RVDC(double line_voltage);
/// Placed only for a lamp that has the resistor.
Variant component_RDC(const ComponentContext& context);
Variant component_MLS(double voltage, double power);
/// Lower resistor of a 2.5 V divider below 1640 kilohms.
double component_R9orRBUS(double bus_voltage);
Variant component_MPFC(double current, double bus_voltage);
/// Current sense resistor of the PFC stage, 0.5 V.
double component_RS(double current);
/// Supply dropper, 5 mA down to 15 V: a plain number, so it is worked out anew in each pass.
Variant component_RSxDCInput(double bus_voltage);
/// The inductance as it is, rated 15 % above the ignition current.
Variant component_LRESs(const Variant& inductance, double current);
Variant component_CRESs(const Variant& capacitance);
Variant component_MHSorMLS(double voltage, double power);
/// Lower resistor of the bus divider, in kilohms.
double component_RVBUS(double bus_voltage);
/// The inductance as it is, rated 15 % above the peak current.
Variant component_LPFC(const Variant& inductance, double current);
/// Start-up resistor: 400 uA at the lowest line peak.
double component_RSUPPLY(double line_voltage);

}  // namespace vantrel
