#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "components/bill_store.h"
#include "components/component_engine.h"
#include "components/output_rows.h"
#include "core/screen.h"
#include "selection/load_inputs.h"

namespace vantrel {

/// What the buttons of the component calculator have done by other parts of the program; an empty
/// designer counts as successful.
struct CalculatorHooks {
  std::function<bool()> designInductors;
  std::function<bool()> designTransformer;
};

/// The component calculator: the inputs of a calculation beside the operating points, its options,
/// and its outputs.
class Calculator : public Screen {
 public:
  /// Line that says how the last calculation ended.
  static constexpr const char* kStatusLine = "calculation_status";

  Calculator(FieldContext& context, const CalculatorServices& services, InputLoader& loader,
             BillStore& bill, CalculatorHooks hooks = {});

  /// Prepares the screen for the selected IC: titles, the list of outputs, the inputs with their
  /// defaults, with `load_operating_points` also from the design screen, and the objects whose
  /// functions are called. True when no input's source was empty.
  bool Reset(bool load_operating_points);
  /// See ComponentEngine.
  bool CalculateComponents(bool full_bom, bool outputs_only);
  /// Calculates all components by an engine of its own, which is gone afterwards: it reads this
  /// screen and fills the same bill, while the outputs and variables here stay.
  bool CalculateApart();
  /// Designs the magnetics and then calculates all components. True when every part succeeded.
  bool DesignBallast();

  /// The series of preferred values that components are matched to, a PreferredSeries.
  std::int32_t series();
  void selectSeries(std::int32_t series);
  /// Whether the preheat and ignition times follow each other on the ICs that tie them; off while
  /// stored values are read back.
  void linkTimes(bool on) { times_linked_ = on; }

  /// Names of the components that the last calculation left open.
  const std::vector<std::string>& missingItems() const { return missing_items_; }

  ComponentEngine& engine() { return engine_; }
  const OutputRows& outputs() const { return outputs_; }

  /// Acts on a button of the screen; false when it has no such button.
  bool command_click(std::string_view button);

 private:
  EngineView view();
  void addControls();
  void followIgnition(const Variant& ignition);
  void followPreheat(const Variant& preheat);
  bool areTimesTied() const;
  void status(const std::string& text);

  CalculatorServices services_;
  InputLoader& loader_;
  BillStore& bill_;
  CalculatorHooks hooks_;
  OutputRows outputs_;
  ComponentEngine engine_;
  std::vector<std::string> missing_items_;
  bool times_linked_ = true;
};

}  // namespace vantrel
