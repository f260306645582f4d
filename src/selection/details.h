#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/run_state.h"
#include "core/variant.h"
#include "database/adoaccess.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What `TargetDetails` can tell of a control IC.
enum TargetInfo { kTargetName = 0, kTargetFullName = 1, kTargetGroupName = 2, kTargetUrl = 3 };

/// What `ConfigDetails` can tell of a lamp configuration.
enum ConfigInfo {
  kConfigName = 0,
  kConfigLamps = 1,     ///< "Single", "Dual" or empty
  kConfigTopology = 2,  ///< "Series", "Parallel" or empty
  kConfigHeating = 3,   ///< "Current Mode", "Voltage Mode" or empty
  kConfigShortCode = 4  ///< "SLCM" and the like
};

/// Names of control ICs and lamp configurations by number.
class SelectionDetails {
 public:
  SelectionDetails(adoaccess_class& database, SysMsg& messages, const RunState& state)
      : database_(database), messages_(messages), state_(state) {}

  /// One text (a TargetInfo) of a control IC, the selected one unless `target` is given. Empty for
  /// any other info, and, with a report, for an unknown number or an unreadable table. The table is
  /// read at first use and kept.
  Variant TargetDetails(int info, std::optional<std::int32_t> target = {});

  /// One text (a ConfigInfo) of a lamp configuration, the selected one unless `config` is given. An
  /// unknown number or info is reported and gives "Unknown cfg type" or "Unknown cfg info".
  std::string ConfigDetails(int info, std::optional<std::int32_t> config = {});

 private:
  struct Target {
    std::string texts[4];
  };
  bool fillTargets();

  adoaccess_class& database_;
  SysMsg& messages_;
  const RunState& state_;
  std::vector<Target> targets_;
};

}  // namespace vantrel
