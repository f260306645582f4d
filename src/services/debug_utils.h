#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "database/adoaccess.h"
#include "services/debug_utils_usage.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Checks of the design database for those who write its rows. A check writes lines into a report
/// and goes on past everything that it finds.
class DebugUtils {
 public:
  static constexpr std::string_view kName = "DebugUtils";
  static constexpr const char* kDescriptions = "Development Check : Component Descriptions";
  static constexpr const char* kUsage = "Development Check : Component Usage";
  /// First entry of the pick-list, which only asks for a choice.
  static constexpr const char* kSelectComponent = "Select Component";
  static constexpr const char* kAllReferences = "All Reference Designators";

  DebugUtils(adoaccess_class& database, SysMsg& messages);

  /// Reads the references of all component tables into the pick-list.
  void load();
  static std::vector<std::string> Tests() { return {kDescriptions, kUsage}; }
  const std::vector<std::string>& Components() const { return components_; }

  /// Runs a test by its name; `component`, an entry of the pick-list, is for the usage test. False,
  /// with a message, when none of that name is selected or no component is.
  bool Start(std::string_view test, std::string_view component = kSelectComponent);
  /// The same in parts, so that the caller can do something between them: `Begin` sets the test up,
  /// then each `Step` does a part of it and gives false after the last one.
  bool Begin(std::string_view test, std::string_view component = kSelectComponent);
  bool Step();
  /// Leaves out the parts that are not done; the report keeps what there is.
  void Cancel() { steps_.clear(); }
  std::size_t StepCount() const { return steps_.size(); }
  std::size_t StepsDone() const { return steps_done_; }
  const std::vector<std::string>& Report() const { return report_; }
  /// How many lines of the report tell of something wrong.
  int Findings() const { return findings_; }

  /// Adds the component table of a target to the list of tables to check, once each. False when the
  /// target has none, which is reported.
  bool PrepareBOMTables(std::string_view target);
  const std::vector<std::string>& BOMTables() const { return tables_; }
  /// Reports something about a record of a component table; records count from 1.
  void BOMReport(int record, const std::string& table, const std::string& text,
                 const std::string& stage, const std::string& reference);

  /// Called with each line of the report.
  std::function<void(const std::string& line)> onLine;

 private:
  /// What a description row says of its reference.
  struct Description {
    std::string reference;
    bool described = false;
    bool is_number = false;  ///< It rounds the value or matches it to a series.
  };

  void beginDescriptions();
  void endDescriptions();
  void readDescriptions();
  void prepareAllTables();
  void collectUnits(const std::string& table);
  void checkTable(const std::string& table);
  void checkRow(int record, const std::string& table, const RecordSet& row);
  bool lacksUnit(const RecordSet& row, const std::vector<std::string>& references) const;
  bool isDescribed(const std::vector<std::string>& references) const;
  void beginUsage(const std::string& component);
  void reportUsage(const std::string& reference);
  std::optional<std::vector<UsageTarget>> readTargets(bool report);
  void line(const std::string& text);
  void finding(const std::string& text);

  adoaccess_class& database_;
  SysMsg& messages_;
  std::vector<std::string> components_;
  std::vector<std::string> tables_;
  std::vector<Description> descriptions_;
  std::set<std::string> with_unit_;  ///< References that some row gives a unit.
  std::set<std::string> unique_;     ///< References of the component tables checked so far.
  int records_ = 0;                  ///< Their rows.
  std::vector<UsageTarget> targets_;
  /// The parts of the test under way.
  std::vector<std::function<void()>> steps_;
  std::size_t steps_done_ = 0;
  std::vector<std::string> report_;
  int findings_ = 0;
};

}  // namespace vantrel
