#pragma once

#include <QObject>
#include <QPointer>
#include <utility>

#include "core/signal.h"

namespace vantrel {

/// Connects a view to a signal of the model, which outlives it: the slot is left out once `view` is
/// gone.
template <typename View, typename Slot, typename... Args>
void connect_view(Signal<Args...>& signal, View* view, Slot slot) {
  signal.connect([guard = QPointer<QObject>(view), slot = std::move(slot)](Args... args) {
    if (!guard.isNull()) slot(args...);
  });
}

}  // namespace vantrel
