#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "operating/operating_block.h"
#include "operating/tank_calculator.h"

namespace vantrel {

/// A tank that passed the search, in base units and 32 bits.
struct PossibleResult {
  float C = 0;
  float L = 0;
  float Reserved = 0;  ///< The record's third place; nothing writes it.
  float VPreheat = 0;
  float FRun = 0;
  float FIgnition = 0;
  float FPreheat = 0;
};

/// What bounds a tank search.
struct TankSearchSettings {
  std::int32_t target = 0;
  bool currentMode = false;
  bool fixedL = false;  ///< The block's L is the user's.
  bool fixedC = false;  ///< The block's C is the user's.
};

/// Outcome of evaluating one tank.
enum class Evaluation {
  Rejected = 0,  ///< Preheat voltage too high or run frequency too low.
  Accepted = 1,
  Failed = 2  ///< A formula had no answer.
};

/// True when a preheat voltage reaches 2 V above the lamp's limit, compared in 32 bits.
bool exceeds_preheat_limit(float limit, float voltage);

/// The largest capacitor of the search's list (in nF) that lies below `value`, -1 without one.
float FindNextLowestCFromPossibleCValues(float value);

/// Finds the resonant tank of a design among a grid of inductors and a list of capacitors.
class TankSearch {
 public:
  TankSearch(TankCalculator& calculator, OperatingBlock& block)
      : calculator_(calculator), block_(block) {}

  /// Calculates the operating points of the block's tank into the block. Ends at the first test
  /// that the tank fails; the results behind it keep their values.
  Evaluation Evaluate(std::int32_t target, bool is_current_mode);

  /// Searches and picks the best candidate: its index in `PossibleResults`, or nothing when no tank
  /// passed. The block keeps the values of the last tank evaluated.
  std::optional<std::size_t> SearchAndSelect(const TankSearchSettings& settings);

  /// The candidates of the last search in the order in which they were found.
  const std::vector<PossibleResult>& PossibleResults() const { return results_; }

 private:
  void search(const TankSearchSettings& settings, float current_c);
  void searchCapacitors(const TankSearchSettings& settings, float current_c);
  std::size_t pick(std::int32_t target) const;
  void StorePossibleResult(float l, float c, float preheat_current, float preheat_voltage,
                           float run_frequency, float ignition_frequency);

  template <typename... Arguments>
  float calculate(std::string_view name, Arguments... arguments) {
    const float values[] = {arguments...};
    return calculator_.CalculateResult(name, std::span<const float>(values));
  }

  TankCalculator& calculator_;
  OperatingBlock& block_;
  std::vector<PossibleResult> results_;
};

}  // namespace vantrel
