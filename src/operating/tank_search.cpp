#include "operating/tank_search.h"

#include <algorithm>
#include <iterator>

#include "operating/target_traits.h"

namespace vantrel {

namespace {

// Preferred capacitors in nF. 10 stands alone for its decade.
constexpr float kCapacitors[] = {3.3F, 3.9F, 4.7F, 5.6F, 6.8F, 7.5F, 8.2F, 10.0F};

/// Where ICs that search by capacitor begin, in nF.
constexpr float kFirstCapacitor = 6.8F;

constexpr float kFirstL = 0.001F;
constexpr double kStepL = 0.0001;
constexpr float kLastL = 0.01F;

float farads(float nanofarads) {
  return static_cast<float>(static_cast<double>(nanofarads) / 1000000000.0);
}

float difference(float a, float b) { return static_cast<float>(static_cast<double>(a) - b); }

float divided(float value, double divisor) {
  return static_cast<float>(static_cast<double>(value) / divisor);
}

}  // namespace

bool exceeds_preheat_limit(float limit, float voltage) {
  const auto tolerated = static_cast<float>(static_cast<double>(limit) + 2.0);
  return !(tolerated > voltage);
}

float FindNextLowestCFromPossibleCValues(float value) {
  const auto found = std::find_if(std::rbegin(kCapacitors), std::rend(kCapacitors),
                                  [value](float c) { return c < value; });
  return found == std::rend(kCapacitors) ? -1.0F : *found;
}

Evaluation TankSearch::Evaluate(std::int32_t target, bool is_current_mode) {
  const TargetTraits& traits = target_traits(target);
  OperatingBlock& b = block_;
  calculator_.CalculationFailed = false;
  b.VPreheat = calculate("calculate_preheat_voltage", b.VBusPreheat, b.L, b.C, b.IPreheat);
  if (is_current_mode && traits.preheats && exceeds_preheat_limit(b.VPreheatMax, b.VPreheat)) {
    return Evaluation::Rejected;
  }
  b.FPreheat = calculate("calculate_preheat_frequency", b.IPreheat, b.C, b.VPreheat);
  b.FIgnition =
      calculate("calculate_ignition_frequency", divided(b.VBus, 2), b.VIgnition, b.L, b.C);
  b.RLamp = calculate("calculate_lamp_resistance", b.VLamp, b.PLamp);
  if (traits.dimming) b.RLampMin = calculate("calculate_lamp_resistance", b.VMin, b.PMin);
  b.FRun = calculate("calculate_run_frequency", b.L, b.C, b.RLamp, b.VBus, b.VLamp, b.PLamp);
  if (b.FRun < b.FBallast) return Evaluation::Rejected;
  if (traits.dimming) {
    b.FMin = calculate("calculate_min_run_frequency", b.L, b.C, b.RLamp, b.VLamp, b.PLamp,
                       b.FracMin, b.VMin, b.VBusMin);
  }
  b.IIgnition = calculate("calculate_ignition_current", b.FIgnition, b.C, b.VIgnition);
  b.FResonance = calculate("calculate_resonance", b.C, b.L);
  if (traits.dimming) {
    b.PhiMax = calculate("calculate_phimax", b.L, b.C, divided(b.FRun, 1000), b.PLamp, b.VLamp);
    b.PhiMin =
        calculate("calculate_phimin", b.L, b.C, divided(b.FMin, 1000), b.FracMin, b.PLamp, b.VMin);
  }
  return calculator_.CalculationFailed ? Evaluation::Failed : Evaluation::Accepted;
}

void TankSearch::StorePossibleResult(float l, float c, float /*preheat_current*/,
                                     float preheat_voltage, float run_frequency,
                                     float ignition_frequency) {
  results_.push_back({.C = c,
                      .L = l,
                      .VPreheat = preheat_voltage,
                      .FRun = run_frequency,
                      .FIgnition = ignition_frequency,
                      .FPreheat = block_.FPreheat});
}

void TankSearch::searchCapacitors(const TankSearchSettings& settings, float current_c) {
  const bool one_capacitor = settings.fixedC || !target_traits(settings.target).preheats;
  for (const float listed : kCapacitors) {
    if (!settings.fixedC) block_.C = farads(one_capacitor ? current_c : listed);
    Evaluation code = Evaluate(settings.target, settings.currentMode);
    // A tank that the user fixed whole is shown whatever its merits, as long as it has values.
    if (settings.fixedL && settings.fixedC && code != Evaluation::Failed) {
      code = Evaluation::Accepted;
    }
    if (code == Evaluation::Accepted) {
      StorePossibleResult(block_.L, block_.C, block_.IPreheat, block_.VPreheat, block_.FRun,
                          block_.FIgnition);
    }
    if (one_capacitor || code == Evaluation::Accepted) return;
  }
}

void TankSearch::search(const TankSearchSettings& settings, float current_c) {
  results_.clear();
  if (!settings.fixedL) block_.L = kFirstL;
  do {
    searchCapacitors(settings, current_c);
    // The step gathers its error in 32 bits: an integer loop would visit other inductors.
    if (!settings.fixedL) block_.L = static_cast<float>(static_cast<double>(block_.L) + kStepL);
  } while (!settings.fixedL && !(kLastL < block_.L));
}

std::size_t TankSearch::pick(std::int32_t target) const {
  if (!target_traits(target).widestIgnition) return results_.size() - 1;
  std::size_t best = 0;
  float best_difference = difference(results_[0].FIgnition, results_[0].FRun);
  for (std::size_t i = 1; i < results_.size(); ++i) {
    const float margin = difference(results_[i].FIgnition, results_[i].FRun);
    if (margin > best_difference) {
      best_difference = margin;
      best = i;
    }
  }
  return best;
}

std::optional<std::size_t> TankSearch::SearchAndSelect(const TankSearchSettings& settings) {
  const bool steps_down = !settings.fixedC && !target_traits(settings.target).preheats;
  float current_c = kFirstCapacitor;
  while (true) {
    search(settings, current_c);
    if (results_.empty()) return std::nullopt;
    if (results_.size() == 1) return 0;
    const std::size_t chosen = pick(settings.target);
    if (!steps_down || !(results_[chosen].FRun > results_[chosen].FIgnition)) return chosen;
    const float next = FindNextLowestCFromPossibleCValues(current_c);
    if (next < 0) return chosen;
    current_c = next;
  }
}

}  // namespace vantrel
