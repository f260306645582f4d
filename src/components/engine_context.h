#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "components/design_rows.h"
#include "components/preferred/preferred_values.h"
#include "core/progress_screen.h"
#include "core/run_state.h"
#include "core/screen.h"
#include "core/variable_class.h"
#include "operating/advanced.h"
#include "operating/targets/target.h"
#include "selection/details.h"
#include "selection/missing_fields.h"
#include "services/messages/calculation_log.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What a component calculation uses of the program; everything must outlive it.
struct CalculatorServices {
  adoaccess_class& database;
  SysMsg& messages;
  CalculationLog& log;
  SelectionDetails& details;
  const RunState& state;
  const ScreenRegistry& screens;
  MissingFields& missing;
  Advanced& advanced;
  TargetFactory& targets;
  ProgressScreen& progress;
};

/// The names that stages and rules are chosen by.
struct PresentSelection {
  std::string ic;      ///< Name of the control IC.
  std::string input;   ///< `line_input_schematic` of the design screen.
  std::string config;  ///< Short code of the lamp configuration.
};

/// Caption of the message boxes of a calculation.
inline constexpr std::string_view kBoxTitle = "Vantrel";

/// What the parts of one component calculation share: its variables, the rows that it reads, and
/// whether it has to stop.
struct EngineContext {
  explicit EngineContext(const CalculatorServices& used);

  /// Reads the names of the present selection.
  void readSelection();
  /// The variable of a valid index.
  const VariableEntry& entry(std::int32_t index) const {
    return variables.entries()[static_cast<std::size_t>(index)];
  }
  /// The index of a new variable, nothing when it could not be created.
  std::optional<std::int32_t> create(std::string_view name);

  void log(std::string_view text) { services.log.write(text); }
  /// Logs a line and shows it.
  void logAndShow(std::string_view text) { services.log.write(text, true); }
  /// Logs and shows the line and stops the calculation.
  void fatal(std::string_view text);
  /// Shows a plain message box.
  void box(std::string_view text) { services.messages.messageBox(kBoxTitle, text); }

  /// The number as it is shown, with its prefix and unit: "4.7 nF".
  std::string scaledText(const Variant& value, std::string_view unit);

  CalculatorServices services;
  VariableClass variables;
  DesignRows rows;
  PresentSelection selection;
  bool abort = false;                ///< Set by every fatal condition.
  std::int32_t series = kSeriesE24;  ///< The user's series of preferred values.
  const Target* target = nullptr;    ///< The object of the chosen IC.
  const Target* generic = nullptr;   ///< The object that serves every IC.
};

/// Name of a target object's type.
std::string_view type_name(const Target* target);

}  // namespace vantrel
