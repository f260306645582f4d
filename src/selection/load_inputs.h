#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/run_state.h"
#include "core/screen.h"
#include "database/adoaccess.h"
#include "selection/details.h"
#include "selection/missing_fields.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// The index of a screen in the list of loaded screens, by its name regardless of case; -1 when
/// there is none, with a message when `report` is set.
int GetFormIndexFromName(const ScreenRegistry& screens, std::string_view name, bool report,
                         SysMsg& messages);

/// Fills a screen from other screens by the rows of the table of that purpose.
class InputLoader {
 public:
  using FrameList = std::vector<std::pair<Screen*, std::string>>;

  /// `log` takes note of a row that names an unknown field, once for each name; it may be empty.
  InputLoader(adoaccess_class& database, SysMsg& messages, SelectionDetails& details,
              const RunState& state, const ScreenRegistry& screens, MissingFields& missing,
              std::function<void(const std::string&)> log = {});

  /// Clears the frames and loads all rows of `load_id`; with `skip_sources` only their defaults.
  /// Messages carry the name of `caller`. True when no source field was empty; otherwise the user
  /// is asked whether to see the list of what is missing.
  bool LoadInputs(std::string_view load_id, Screen& caller, bool skip_sources,
                  const FrameList& frames);

  /// True while a load runs: fields that follow each other by hand must not do so meanwhile.
  bool IsLoading() const { return loading_; }

 private:
  void load(const std::string& owner, RecordSet& rows, bool skip_sources);
  void hideUnused(const std::string& owner, RecordSet& rows);
  void loadRow(const std::string& owner, const RecordSet& row, bool skip_sources);
  VTLValue* destinationField(const std::string& owner, const RecordSet& row, Screen& screen);
  void loadValue(const RecordSet& row, VTLValue& field, const std::string& unit,
                 const std::string& owner, bool skip_sources);
  void copySource(const std::string& source, VTLValue& field, const std::string& unit,
                  const std::string& owner);
  void copyConverted(VTLValue& source, VTLValue& field, const std::string& unit);
  void deriveIgnitionTime();
  void noteUnknown(const Screen& screen, std::string_view field);

  adoaccess_class& database_;
  SysMsg& messages_;
  SelectionDetails& details_;
  const RunState& state_;
  const ScreenRegistry& screens_;
  MissingFields& missing_;
  std::function<void(const std::string&)> log_;
  std::set<std::string> noted_;
  std::string target_;
  bool loading_ = false;
};

}  // namespace vantrel
