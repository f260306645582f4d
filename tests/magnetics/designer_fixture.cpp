#include "designer_fixture.h"

namespace vantrel {

namespace {

// Cores A and B have 2514 nH and 838 nH (at 0.1 mm) a turn squared; C is for the transformer.
constexpr const char* kDatabase = R"sql(
CREATE TABLE [Target:Info] ([TargetNo] INTEGER, [target] TEXT, [FullName] TEXT,
  [GroupName] TEXT, [URL] TEXT);
INSERT INTO [Target:Info] VALUES (0, 'TV6101', '', '', NULL), (1, 'TV6103', '', '', NULL);
CREATE TABLE [LoadInputs] ([LoadID] TEXT, [Destination] TEXT, [DestinationField] TEXT,
  [target] TEXT, [CopyRegardlessOfTarget] BOOLEAN, [ValueUnit] TEXT, [DefaultValue] TEXT,
  [Source] TEXT, [Locked] BOOLEAN, [InvisibleIfUnused] BOOLEAN, [InvisibleIfEmpty] BOOLEAN);
INSERT INTO [LoadInputs] VALUES
  ('InductorLRES', 'Inductor', 'ind_inductance,0', '*', 0, 'mH', NULL, 'Advanced,LValue', 0, 0, 0),
  ('InductorLRES', 'Inductor', 'ind_peakignitioncurrent,0', '*', 0, 'Apk', NULL,
   'Advanced,ignition_current', 0, 0, 0),
  ('InductorLRES', 'Inductor', 'ind_runningcurrent,0', '*', 0, 'Arms', NULL,
   'Advanced,preheat_current', 0, 0, 0),
  ('InductorLPFC', 'Inductor', 'ind_inductance,1', '*', 0, 'mH', NULL, 'Advanced,pfc_inductor',
   0, 0, 0),
  ('InductorLPFC', 'Inductor', 'ind_peakignitioncurrent,1', '*', 0, 'Apk', NULL,
   'Advanced,max_pfc_current', 0, 0, 0),
  ('InductorLPFC', 'Inductor', 'ind_runningcurrent,1', '*', 0, 'A', NULL,
   'Advanced,max_pfc_current', 0, 0, 0),
  ('Transformer', 'Transformer', 'tfr_inputvoltage', '*', 0, 'V', NULL,
   'Advanced,min_input_voltage', 0, 0, 0),
  ('Transformer', 'Transformer', 'tfr_totalballastpower', '*', 0, 'W', NULL,
   'Advanced,running_lamp_power', 0, 0, 0),
  ('Transformer', 'Transformer', 'tfr_outputvoltage', '*', 0, 'V', '12', NULL, 0, 0, 0),
  ('Transformer', 'Transformer', 'tfr_runfrequency', '*', 0, 'KHz', '40', NULL, 0, 0, 0),
  ('Transformer', 'Transformer', 'tfr_peakfluxdensity', '*', 0, 'mT', '200', NULL, 0, 0, 0),
  ('Transformer', 'Transformer', 'tfr_imag', '*', 0, 'nA', '40000000', NULL, 0, 0, 0);
CREATE TABLE [INDUCTOR:Core Types] ([Core Size] TEXT, [Le Value] REAL, [Ae Value] REAL,
  [Core Factor] REAL, [Winding Area] REAL, [Maximum Allowable Gap] REAL, [UserData] BOOLEAN);
INSERT INTO [INDUCTOR:Core Types] VALUES
  ('B', 100, 100, 1, 100, 0.5, 0), ('A', 50, 50, 1, 50, 1.0, 0),
  ('EF25', 57.5, 52.5, 1.095, 61, 1.5, 0);
)sql";

}  // namespace

DesignerTest::DesignerTest() {
  if (!database.create_database(folder.path() / "design.mdb")) ADD_FAILURE();
  sql(kDatabase);
  for (Screen* screen : {static_cast<Screen*>(&advanced), static_cast<Screen*>(&inductor),
                         static_cast<Screen*>(&transformer)}) {
    screens.add(*screen);
  }
  state.CurrentTarget = 1;
  set("allow_inductor", "Yes");
  set("allow_transformer", "YES");
  set("line_input_pfc", "no");
  set("LValue", 1.0);
  set("ignition_current", 1.0);
  set("preheat_current", 1.0);
  set("pfc_inductor", 1.0);
  set("max_pfc_current", 2.0);
  set("min_input_voltage", 207.0);
  set("running_lamp_power", 100.0);
  EXPECT_TRUE(inductor.initialise());
  EXPECT_TRUE(transformer.initialise());
}

void DesignerTest::sql(std::string_view script) {
  if (!database.execute_script(script)) ADD_FAILURE() << database.last_error();
}

bool DesignerTest::isWithoutResults(int index) {
  for (const char* field :
       {"ind_al", "ind_numberofturns", "ind_peakfluxdensity", "ind_primarydiameter"}) {
    if (!inductor.field(field, index).IsItEmpty()) return false;
  }
  return true;
}

std::vector<std::string> DesignerTest::takeMessages() {
  std::vector<std::string> texts = test::texts(messages);
  messages.clear();
  return texts;
}

}  // namespace vantrel
