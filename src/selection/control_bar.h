#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/signal.h"
#include "selection/slots.h"

namespace vantrel {

/// The strip that every design screen carries: the current selection, what may be changed of it,
/// and the status line.
class control_bar {
 public:
  /// Sets the selected item of a slot; an unknown slot is left alone.
  void SetInfo(int slot, std::int32_t id, const std::string& name);
  /// ID of the selected item of a slot, -1 while there is none.
  std::int32_t GetInfo(int slot) const;
  /// Name of the selected item of a slot, empty while there is none.
  const std::string& GetInfoName(int slot) const;

  /// Opens or shuts the choice of line input and lamp configuration and the way to the advanced
  /// screen. All three are open at first.
  void SetAvailable(bool input, bool config, bool advanced);
  /// True when the item of the slot may be chosen; only INPUT and CONFIG can be shut.
  bool IsSlotAvailable(int slot) const;
  bool IsAdvancedAvailable() const { return advanced_available_; }

  void set_status(std::string_view text);
  const std::string& status() const { return status_; }

  /// Raised when anything that the bar shows has changed.
  Signal<> changed;

 private:
  struct Info {
    std::int32_t id = -1;
    std::string name;
    bool available = true;
  };
  std::array<Info, kSlotCount> infos_;
  bool advanced_available_ = true;
  std::string status_;
};

}  // namespace vantrel
