#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/run_state.h"
#include "database/adoaccess.h"
#include "magnetics/inductor.h"
#include "magnetics/transformer.h"
#include "operating/advanced.h"
#include "selection/details.h"
#include "selection/load_inputs.h"
#include "selection/missing_fields.h"
#include "support/fixtures.h"

namespace vantrel {

/// Both designers beside a design screen, on a small database with cores that are easy to reckon
/// with. The design screen asks for 1 mH at 1 A peak and 1 A rms, and 1 mH at 2 A for the PFC.
class DesignerTest : public ::testing::Test {
 protected:
  DesignerTest();

  /// Changes the database by a script.
  void sql(std::string_view script);
  void set(const char* field, const Variant& value) { advanced.field(field).SetValue(value); }
  double number(Screen& screen, const char* field, int index = -1) {
    return to_double(screen.field(field, index).value());
  }
  void fixCore(int index, const char* core) {
    inductor.findTickBox("ind_checkFixCore", index)->checked = true;
    show_core(*inductor.findPullDown("ind_comboCore", index), core);
  }
  void fixGap(int index, const Variant& gap) {
    inductor.field("ind_gapsize", index).SetFixed(true);
    inductor.field("ind_gapsize", index).SetValue(gap);
  }
  std::string core(int index) { return shown_core(*inductor.findPullDown("ind_comboCore", index)); }
  std::string transformerCore() { return shown_core(*transformer.findPullDown("tfr_ComboCore")); }
  bool isWithoutResults(int index);
  /// The messages since the last call.
  std::vector<std::string> takeMessages();

  test::TemporaryFolder folder;
  SysMsg messages;
  RunState state;
  MissingFields missing{messages};
  FieldContext context{messages, '.', {}, [this](VTLValue& field, const std::string& text) {
                         missing.Add(field, text);
                       }};
  adoaccess_class database{messages};
  ScreenRegistry screens;
  SelectionDetails details{database, messages, state};
  InputLoader loader{database, messages, details, state, screens, missing};
  Advanced advanced{context, state, {[](int) { return ""; }, [] { return ""; }}};
  CoreTable cores{database};
  std::vector<std::string> calls;
  Inductor inductor{context,
                    advanced,
                    loader,
                    missing,
                    cores,
                    {.print = [this] { calls.emplace_back("print"); },
                     .editUserData = [this] { calls.emplace_back("edit"); },
                     .showDatasheet = [this] { calls.emplace_back("sheet"); }}};
  Transformer transformer{context, advanced, loader, missing, cores};
};

using Texts = std::vector<std::string>;

inline constexpr const char* kMissing =
    "Required fields are missing, do you wish to see the list ?";

}  // namespace vantrel
