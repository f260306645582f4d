#include "services/user_data.h"

#include <utility>

#include "selection/record_fields.h"

namespace vantrel {

namespace {

constexpr const char* kDatabaseName = "VTL.mdb";
constexpr const char* kCoreTable = "[INDUCTOR:Core Types] where UserData = Yes";
constexpr const char* kLampTable = "[DATA:Lamp] where UserData = Yes";

/// A field of one of the forms. An empty column is named as the caption.
struct FormField {
  const char* caption;
  const char* column;
  std::int32_t type;
  std::int32_t flags;
  bool numeric;
};

constexpr FormField kCoreFields[] = {
    {"Core Description", "Core Size", kFieldBox, 79, false},
    {"Le Value", "Le Value", kFieldBox, 79, true},
    {"Ae Value", "Ae Value", kFieldBox, 79, true},
    {"Core Factor", "Core Factor", kFieldBox, 79, true},
    {"Winding Area", "Winding Area", kFieldBox, 79, true},
    {"Max Allowable Gap", "Maximum Allowable Gap", kFieldBox, 79, true},
    {"No. of Pins on Former", "Number of Pins on Former", kFieldBox, 79, true},
};

constexpr FormField kLampFields[] = {
    {"Name", "", kFieldBox, 79, false},
    {"PullDownName", "", kFieldBox, 15, false},
    {"Run Lamp Power (W)", "", kFieldBox, 15, true},
    {"Run Lamp Voltage (VPk)", "", kFieldBox, 15, true},
    {"Max Lamp Preheat Voltage (VPk)", "", kFieldBox, 15, true},
    {"Max Lamp Ignition Voltage (VPk)", "", kFieldBox, 15, true},
    {"Preheat Current (A)", "", kFieldBox, 15, true},
    {"Preheat Time (Sec)", "", kFieldBox, 15, true},
    {"Max (%)", "", kFieldBox, 15, true},
    {"Pmax% (W)", "", kFieldBox, 15, true},
    {"Vmax% (VPk)", "", kFieldBox, 15, true},
    {"Min (%)", "", kFieldBox, 15, true},
    {"Pmin% (W)", "", kFieldBox, 15, true},
    {"Vmin% (VPk)", "", kFieldBox, 15, true},
    {"Voltage Mode Vph", "", kFieldBox, 15, true},
    {"Compact Yes/No", "", kFieldPulldown, 64, false},
    {"Has RDC", "Has RDC Yes/No", kFieldPulldown, 64, false},
};
constexpr std::size_t kCompactField = 15;
constexpr std::size_t kRdcField = 16;

template <std::size_t Count>
void add_fields(SQLTableEdit& edit, const FormField (&fields)[Count]) {
  for (const FormField& field : fields) {
    edit.AddField(field.caption, field.column, field.type, field.flags).Numeric = field.numeric;
  }
}

}  // namespace

EditUserData::EditUserData(adoaccess_class& database, SysMsg& messages, FileDialogs* dialogs,
                           UserDataHooks hooks)
    : SQLTableEdit1(database, messages, std::string(kName), kDatabaseName),
      database_(database),
      messages_(messages),
      dialogs_(dialogs),
      hooks_(std::move(hooks)) {
  SQLTableEdit1.events.recordAdded = [this] { addRecord(); };
  SQLTableEdit1.events.recordSaved = [this] { tellChanged(presentId()); };
  SQLTableEdit1.events.recordDeleted = [this] { tellChanged(-1); };
}

void EditUserData::begin(Kind kind, const char* caption) {
  kind_ = kind;
  caption_ = caption;
  SQLTableEdit1.initialise();
}

bool EditUserData::openAndShow(const char* table, const char* single_name) {
  if (!SQLTableEdit1.EditDatabase(table, single_name)) return false;
  if (show) show();
  return true;
}

bool EditUserData::InitialiseInductor() {
  begin(Kind::Cores, "User Core Types");
  SQLTableEdit1.AddSelector("Select Core Types", "Core Size");
  add_fields(SQLTableEdit1, kCoreFields);
  return openAndShow(kCoreTable, "User Core");
}

bool EditUserData::InitialiseLamp() {
  begin(Kind::Lamps, "User Lamps");
  SQLTableEdit1.AddSelector("Select Lamp", "Name");
  add_fields(SQLTableEdit1, kLampFields);
  for (const char* choice : {"CFL", "Linear", "Halogen"}) {
    SQLTableEdit1.AddPulldown(choice, choice, kCompactField);
  }
  for (const char* choice : {"No", "Yes"}) SQLTableEdit1.AddPulldown(choice, choice, kRdcField);
  return openAndShow(kLampTable, "Lamp");
}

/// Fills the columns of a new row that the form does not show.
void EditUserData::addRecord() {
  SQLTableEdit1.SetFieldValue("UserData", true);
  SQLTableEdit1.SetFieldValue("Include", true);
  if (kind_ != Kind::Lamps) return;
  SQLTableEdit1.SetFieldValue("RecordType", kItemRecord);
  SQLTableEdit1.SetFieldValue("Group", kUserLampGroup);
  SQLTableEdit1.SetFieldValue("ID", database_.Unique_ID("ID", "[DATA:Lamp]"));
}

std::int32_t EditUserData::presentId() const {
  const Variant id = SQLTableEdit1.GetFieldValue("ID");
  return id.is_numeric() ? number_value(id) : -1;
}

void EditUserData::tellChanged(std::int32_t edited) {
  if (kind_ == Kind::Cores && hooks_.coresChanged) hooks_.coresChanged();
  if (kind_ == Kind::Lamps && hooks_.lampsChanged) hooks_.lampsChanged(edited);
}

bool EditUserData::say(const std::string& text, bool result) {
  messages_.msg(kName, text);
  return result;
}

}  // namespace vantrel
