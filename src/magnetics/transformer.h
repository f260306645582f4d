#pragma once

#include <cstdint>
#include <string_view>

#include "core/screen.h"
#include "magnetics/core_table.h"
#include "magnetics/designer_controls.h"
#include "magnetics/transformer_design.h"
#include "operating/advanced.h"
#include "selection/load_inputs.h"
#include "selection/missing_fields.h"

namespace vantrel {

/// Backgrounds of the core's pull-down, red in the lowest byte.
inline constexpr std::uint32_t kFreeCoreColour = 0xffffff;   ///< White.
inline constexpr std::uint32_t kFixedCoreColour = 0xffd0d0;  ///< Pale blue.

/// The designer of the electronic transformer's power transformer.
class Transformer : public Screen {
 public:
  /// `addMissingField` of the context must lead to `missing`.
  Transformer(FieldContext& context, Advanced& advanced, InputLoader& loader,
              MissingFields& missing, CoreTable& cores, DesignerHooks hooks = {});

  /// Loads the inputs and designs the transformer if the selection has one; afresh it frees the
  /// core first. True when that succeeded, also when the selection has none.
  bool Calculate(bool start_afresh);
  /// Fills the inputs from the design screen. True when none came out empty.
  bool CommandLoadTheInputs();
  /// Designs the transformer from the fields as they are and honours a fixed core. False, with a
  /// message, when there is no such design; true when the selection has no transformer.
  bool DesignTransformer();

  /// Offers the cores; to be called once the database is open. False, with a message, when
  /// there is no core list.
  bool initialise();
  /// The same with the core list read anew.
  bool ReInitialise();

  /// Background of the core's pull-down, which tells whether the core is fixed.
  std::uint32_t comboCoreColour();

  void PrintScreen() { call_hook(hooks_.print); }
  void CommandEditUserData() { call_hook(hooks_.editUserData); }
  void ShowDatasheet() { call_hook(hooks_.showDatasheet); }
  /// Acts on a button of the screen; false when it has no such button.
  bool command_click(std::string_view button);

 private:
  bool design();
  void clearOutputs();
  TransformerInputs readInputs();
  void showDesign(const TransformerDesign& design);
  bool offer(const std::vector<CoreType>* cores);
  PullDown& comboCore();
  TickBox& fixCoreSize();

  SysMsg& messages_;
  Advanced& advanced_;
  InputLoader& loader_;
  MissingFields& missing_;
  CoreTable& cores_;
  DesignerHooks hooks_;
};

}  // namespace vantrel
