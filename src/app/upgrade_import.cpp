#include "app/upgrade_import.h"

#include "database/adoaccess.h"

namespace vantrel {

namespace {

constexpr std::string_view kOldDatabasePath = "\\Data\\VTL.mdb.OLD";
constexpr std::string_view kDatabasePath = "\\Data\\VTL.mdb";
constexpr const char* kUserTables[] = {"[INDUCTOR:Core Types]", "[DATA:LAMP]"};

}  // namespace

void import_user_rows(const ProgramFolder& folder, SysMsg& messages) {
  const auto old_file = folder.find(kOldDatabasePath);
  const auto target = folder.find(kDatabasePath);
  if (!old_file || !target) return;

  adoaccess_class old_database(messages);
  if (!old_database.open_access(*old_file)) {
    messages.messageBox("Vantrel update", "Could not open Vantrel user database for import");
    return;
  }
  for (const char* table : kUserTables) {
    old_database.execute(std::string("insert into ") + table + " in '" + quoted(target->string()) +
                         "' select * from " + table + " where UserData = Yes");
  }
  old_database.close_access();
  delete_file(*old_file);
}

}  // namespace vantrel
