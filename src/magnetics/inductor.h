#pragma once

#include <string_view>

#include "core/screen.h"
#include "magnetics/core_table.h"
#include "magnetics/designer_controls.h"
#include "magnetics/inductor_design.h"
#include "magnetics/inductor_fields.h"
#include "operating/advanced.h"
#include "selection/load_inputs.h"
#include "selection/missing_fields.h"

namespace vantrel {

/// The inductor designer: the resonant inductor and the PFC inductor side by side, as members 0 and
/// 1 (InductorIndex) of every control group. A routine that takes an index raises a Fault for any
/// other one, unless it says otherwise.
class Inductor : public Screen {
 public:
  /// `addMissingField` of the context must lead to `missing`.
  Inductor(FieldContext& context, Advanced& advanced, InputLoader& loader, MissingFields& missing,
           CoreTable& cores, DesignerHooks hooks = {});

  /// Loads the inputs of the inductors that the selection needs and designs them; afresh it takes
  /// the user's fixes off first. True when all succeeded, also when the selection needs none.
  bool Calculate(bool start_afresh);
  /// Fills the inputs of an inductor from the design screen. True when none came out empty.
  bool CommandLoadInputsAction(int index);
  /// Designs an inductor from the fields as they are and honours the fixes. False, with a message,
  /// when there is no such design or the index is none.
  bool DesignInductor(int index);
  /// Empties the results of an inductor, apart from those that the user has fixed.
  void ClearInductorOutputs(int index);

  /// Offers the cores for both inductors; to be called once the database is open. False, with a
  /// message, when there is no core list.
  bool initialise();
  /// The same with the core list read anew.
  bool ReInitialise();

  void PrintScreen() { call_hook(hooks_.print); }
  void CommandEditUserData() { call_hook(hooks_.editUserData); }
  void ShowDatasheet() { call_hook(hooks_.showDatasheet); }
  /// Acts on a button of the screen; false when it has no such button.
  bool command_click(std::string_view button, int index = -1);

 private:
  bool design(int index);
  bool designAfter(bool start_afresh, int index);
  void releaseFixes(int index);
  InductorInputs readInputs(int index);
  void showDesign(int index, const InductorDesign& design);
  bool offer(const std::vector<CoreType>* cores);
  PullDown& comboCore(int index);
  TickBox& checkFixCore(int index);

  SysMsg& messages_;
  Advanced& advanced_;
  InputLoader& loader_;
  MissingFields& missing_;
  CoreTable& cores_;
  DesignerHooks hooks_;
};

}  // namespace vantrel
