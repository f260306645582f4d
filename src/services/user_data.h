#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "database/adoaccess.h"
#include "services/messages/sysmsg.h"
#include "services/sql_table_edit.h"

namespace vantrel {

/// What the editor of user data has done by other parts of the program; each may be empty.
struct UserDataHooks {
  /// The user's lamps have changed; `edited` is the ID of the lamp that was, -1 when it is gone or
  /// there are several.
  std::function<void(std::int32_t edited)> lampsChanged;
  std::function<void()> coresChanged;  ///< The user's cores have changed.
  /// The save dialog of every export: the chosen path, empty on Cancel. May be empty.
  std::function<std::string(std::string_view title, std::string_view name, std::string_view filter)>
      selectSaveFile = {};
};

/// The form in which the user enters lamps and inductor cores. Only rows of the user are seen here.
class EditUserData {
 public:
  static constexpr std::string_view kName = "EditUserData";
  /// Kind of record and group of a lamp of the user.
  static constexpr std::int32_t kItemRecord = 2;
  static constexpr std::int32_t kUserLampGroup = 9;

  /// `dialogs` may be missing: then no file can be asked for. All must outlive the form.
  EditUserData(adoaccess_class& database, SysMsg& messages, FileDialogs* dialogs,
               UserDataHooks hooks);

  /// Opens the cores and shows the form. False, with a message, when they cannot be edited.
  bool InitialiseInductor();
  /// The same for lamps.
  bool InitialiseLamp();
  /// Whether the form may be closed; asks what to do with unsaved changes.
  bool mayClose() { return SQLTableEdit1.RecordSetOKToProceed(); }

  const std::string& caption() const { return caption_; }

  /// Asks for a file and writes the user's rows to it as CSV, titles first. True when written.
  bool ExportRows();
  bool ExportRowsTo(const std::filesystem::path& file);
  /// Asks for a file of that form and adds its rows, all of them or, when one cannot be stored,
  /// none. Rows that the user has already are left out. True when the file was taken.
  bool ImportRows();
  bool ImportRowsFrom(const std::filesystem::path& file);

  SQLTableEdit SQLTableEdit1;
  /// Shows the form until it is closed; empty without windows.
  std::function<void()> show;

 private:
  enum class Kind { None, Lamps, Cores };

  void begin(Kind kind, const char* caption);
  bool openAndShow(const char* table, const char* single_name);
  void addRecord();
  void tellChanged(std::int32_t edited);
  std::int32_t presentId() const;
  std::vector<std::string> titles() const;
  std::optional<std::vector<std::vector<std::string>>> storedTexts();
  bool insertRows(const std::vector<std::vector<std::string>>& rows);
  bool say(const std::string& text, bool result);

  adoaccess_class& database_;
  SysMsg& messages_;
  FileDialogs* dialogs_;
  UserDataHooks hooks_;
  Kind kind_ = Kind::None;
  std::string caption_;
};

}  // namespace vantrel
