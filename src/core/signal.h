#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace vantrel {

/// A list of callables that are run, in order of connection, when the signal is raised. Slots live
/// as long as the signal; a slot may connect further slots, which run from the next raise on.
template <typename... Args>
class Signal {
 public:
  using Slot = std::function<void(Args...)>;

  void connect(Slot slot) { slots_.push_back(std::move(slot)); }

  void raise(Args... args) const {
    const std::size_t count = slots_.size();
    for (std::size_t i = 0; i < count; ++i) {
      const Slot slot = slots_[i];
      slot(args...);
    }
  }

 private:
  std::vector<Slot> slots_;
};

}  // namespace vantrel
