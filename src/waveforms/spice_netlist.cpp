#include "waveforms/spice_netlist.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "core/number_text.h"

namespace vantrel {

namespace {

constexpr double kPreheatSweep = 1000.0;  // us
constexpr double kRunTime = 1000.0;       // us
constexpr int kPeriodsOfMean = 8;
/// Length of the stretches over which amplitudes are measured, us.
constexpr double kMeasured = 200.0;

bool preheats(const TimeDomainMembers& members) {
  return time_domain_target(members.TargetNumber).preheats;
}

/// Start of the ignition ramp on the netlist's time axis, us.
double ramp_start(const TimeDomainMembers& members) {
  return preheats(members) ? kSimulatedPreheat : members.DeadTime;
}

double ramp_time(const TimeDomainMembers& members) {
  return preheats(members) ? members.IgnitionRampTime : kSweepTime;
}

std::string seconds(double us) { return general_text(us) + "u"; }

/// A value with the simulator's unit prefix, to 12 digits.
std::string scaled(double value) {
  struct Prefix {
    double scale;
    const char* text;
  };
  constexpr Prefix kPrefixes[] = {{1e9, "G"},  {1e6, "Meg"}, {1e3, "k"},  {1, ""},
                                  {1e-3, "m"}, {1e-6, "u"},  {1e-9, "n"}, {1e-12, "p"}};
  constexpr double kDigits = 1e9;
  for (const Prefix& prefix : kPrefixes) {
    const double number = std::round(value / prefix.scale * kDigits) / kDigits;
    if (std::fabs(number) >= 1) return general_text(number) + prefix.text;
  }
  return general_text(value);
}

/// The text with every "%name%" of the list replaced.
std::string filled(std::string_view text,
                   const std::vector<std::pair<std::string_view, std::string>>& values) {
  std::string result(text);
  for (const auto& [name, value] : values) {
    const std::string mark = "%" + std::string(name) + "%";
    for (std::size_t at = 0; (at = result.find(mark, at)) != std::string::npos;) {
      result.replace(at, mark.size(), value);
      at += value.size();
    }
  }
  return result;
}

std::string source(std::span<const FrequencyPoint> course) {
  std::string text;
  for (const FrequencyPoint& point : course) {
    text += "+ " + seconds(point.time_us) + " " + general_text(point.khz) + "\n";
  }
  return text;
}

constexpr std::string_view kCircuit =
    R"(* Vantrel: output stage of a lamp ballast, from %title% to run
*
* Batch run:  ngspice -b <this file>
* The measurements at the end are printed. To look at curves, start ngspice with this file without
* -b, then for instance: plot v(lamp)  or  plot i(Lres).
* Times of this file: 0 is the first switching, %ramp_start% the start of the ignition ramp.

* --- Values of the design ---------------------------------------------------------------------
* Supply of the half-bridge up to the ignition ramp and from there on, V
.param bus_preheat=%bus_preheat% bus_ignition=%bus_ignition%
* Resonant inductor (H) and capacitor (F)
.param L_res=%L% C_res=%C%
* DC blocking capacitor, and capacitance at the half-bridge node which the inductor current must
* recharge in the dead time, F
.param C_block=%C_block% C_node=%C_node%
* Time in which neither switch conducts, twice per period, s
.param dead=%dead%
* Lamp before ignition and in run, ohms; peak lamp voltage at which it ignites, V
.param R_cold=%R_cold% R_run=%R_run% V_ignition=%V_ignition%

* --- Oscillator ---------------------------------------------------------------------------------
* v(khz): the frequency in kHz. Change the corners to try another sweep.
Vkhz khz 0 PWL(
%course%+ )
* v(cycles) counts the periods: the frequency, integrated. v(angle) is where in its period the
* bridge is, shifted by half a dead time.
Bcycles 0 cycles I=v(khz)*1000
Ccycles cycles 0 1 IC=0
Bangle angle 0 V=6.283185307179586*(v(cycles)+{dead}*v(khz)*500)
* Gates: a sine, and a switch is on where the sine is above (high side) or below (low side) what it
* reaches in half a dead time. A switch acts on the zero crossing of its gate; the factor 200 has the
* simulator find that crossing to a nanosecond, for which steps alone would be too coarse.
Bhigh gate_high 0 V=200*(sin(v(angle))-sin(3.141592653589793*{dead}*v(khz)*1000))
Blow gate_low 0 V=200*(-sin(v(angle))-sin(3.141592653589793*{dead}*v(khz)*1000))

* --- Half-bridge --------------------------------------------------------------------------------
Vbus bus 0 PWL(0 {bus_preheat} %ramp_start% {bus_preheat} %ramp_step% {bus_ignition})
Shigh bus node gate_high 0 bridge_switch
Slow node 0 gate_low 0 bridge_switch
* Body diodes, close to ideal
Dhigh node bus body_diode
Dlow 0 node body_diode
Cnode node 0 {C_node} IC={bus_preheat}
.model bridge_switch SW(VT=0 VH=0 RON=0.01 ROFF=100Meg)
.model body_diode D(IS=1e-9 N=0.05 RS=0.01)

* --- Resonant tank ------------------------------------------------------------------------------
Lres node tank {L_res} IC=0
* Winding, switches and electrodes together
Rseries tank coupled 10
Cblock coupled lamp {C_block} IC=0
Cres lamp 0 {C_res} IC=0

* --- Lamp ---------------------------------------------------------------------------------------
* A resistance that is switched: v(top) and v(bottom) hold the highest and lowest lamp voltage since
* the start of the ramp; when half of what lies between them reaches the ignition voltage, v(lit)
* rises by 1 in 100 us and draws the resistance down from R_cold to R_run.
Btop 0 top I=time >= %ramp_start_s% ? max(v(lamp)-v(top), 0) : 0
Ctop top 0 1n IC=0
Bbottom 0 bottom I=time >= %ramp_start_s% ? min(v(lamp)-v(bottom), 0) : 0
Cbottom bottom 0 1n IC=0
Blit 0 lit I=(v(top)-v(bottom))/2 >= {V_ignition} ? 10000 : 0
Clit lit 0 1 IC=0
Bohms ohms 0 V={R_cold}+({R_run}-{R_cold})*min(v(lit), 1)
Blamp lamp 0 I=v(lamp)/v(ohms)

* --- Run and measurements -----------------------------------------------------------------------
* The trapezoid method would ring at the hard-switched node and spoil each dead time.
.options method=gear
.save v(node) v(lamp) v(khz) v(lit) i(Lres)
.tran 50n %end% 0 50n uic
.control
run
%measurements%if $?batchmode
  quit 0
end
.endc
.end
)";

constexpr std::string_view kPreheatMeasurements =
    R"(* Settled preheat, peak to peak
meas tran preheat_lamp_voltage PP v(lamp) from=%preheat_from% to=%ramp_start%
meas tran preheat_inductor_current PP i(Lres) from=%preheat_from% to=%ramp_start%
)";

constexpr std::string_view kRunMeasurements =
    R"(* Ignition: time from the start of the ramp until the lamp conducts; none when it never does
meas tran ignition_delay TRIG AT=%ramp_start% TARG v(lit) VAL=0.0001 RISE=1
meas tran ignition_current MAX i(Lres) from=%ramp_start% to=%end%
* Run, peak to peak
meas tran run_lamp_voltage PP v(lamp) from=%run_from% to=%end%
meas tran run_inductor_current PP i(Lres) from=%run_from% to=%end%
)";

}  // namespace

std::vector<FrequencyPoint> commanded_frequency(const TimeDomainMembers& members) {
  const double begin = ramp_start(members);
  const double end = begin + ramp_time(members);
  if (!preheats(members)) {
    return {
        {0, members.StartFrequency}, {begin, members.StartFrequency}, {end, members.RunFrequency}};
  }
  return {{0, members.StartFrequency},
          {kPreheatSweep, members.PreheatFrequency},
          {begin, members.PreheatFrequency},
          {end, members.RunFrequency}};
}

std::vector<FrequencyPoint> measured_frequency(const TimeDomainMembers& members,
                                               const TimeDomainStages& stages,
                                               std::span<const TimeDomainSample> samples) {
  std::vector<FrequencyPoint> course;
  const double shift = ramp_start(members) - stages[1].StartTime;
  int periods = 0;
  double since = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    // Where the repeat block stands for the rest of the preheat the count begins anew.
    if (samples[i].TimeUs - samples[i - 1].TimeUs > 2 * kTimeStepUs) periods = 0;
    if (samples[i - 1].SwitchState != 0 || samples[i].SwitchState == 0) continue;
    const double time = samples[i].TimeUs + (samples[i].Stage > 0 ? shift : 0.0);
    if (periods == kPeriodsOfMean) {
      course.push_back({(since + time) / 2, 1000.0 * kPeriodsOfMean / (time - since)});
      periods = 0;
    }
    if (periods == 0) since = time;
    ++periods;
  }
  return course;
}

std::string spice_netlist(const TimeDomainMembers& members,
                          std::span<const FrequencyPoint> course) {
  const std::vector<FrequencyPoint> commanded = commanded_frequency(members);
  const double begin = ramp_start(members);
  const double end = begin + ramp_time(members) + kRunTime;
  std::string measurements =
      std::string(preheats(members) ? kPreheatMeasurements : "") + std::string(kRunMeasurements);
  const std::string text =
      filled(kCircuit, {{"measurements", std::move(measurements)},
                        {"course", source(course.empty() ? commanded : course)}});
  return filled(text, {{"title", preheats(members) ? "preheat" : "the frequency sweep"},
                       {"ramp_start", seconds(begin)},
                       {"ramp_step", seconds(begin + kTimeStepUs)},
                       {"ramp_start_s", general_text(begin * 1e-6)},
                       {"bus_preheat", scaled(members.PreheatBus)},
                       {"bus_ignition", scaled(members.IgnitionBus)},
                       {"L", scaled(members.LValue)},
                       {"C", scaled(members.CValue)},
                       {"C_block", scaled(members.CBlock)},
                       {"C_node", scaled(members.CNode)},
                       {"dead", scaled(members.DeadTime * 1e-6)},
                       {"R_cold", scaled(kColdLamp)},
                       {"R_run", scaled(members.LampRunResistance)},
                       {"V_ignition", scaled(members.MaxIgnitionVoltage)},
                       {"preheat_from", seconds(begin - kMeasured)},
                       {"run_from", seconds(end - kMeasured)},
                       {"end", seconds(end)}});
}

}  // namespace vantrel
