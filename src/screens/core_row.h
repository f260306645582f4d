#pragma once

#include <QObject>
#include <QStringList>
#include <span>

#include "core/screen.h"
#include "screens/appearance.h"

class QCheckBox;
class QComboBox;

namespace vantrel {

class FramePanel;

/// The core of a designer in a panel, above its fields: a pull-down of core sizes
/// and the tick that fixes the choice.
class CoreRow : public QObject {
  Q_OBJECT

 public:
  /// `list` and `tick` belong to `screen` and are members of the same control group, if any.
  CoreRow(Screen& screen, PullDown& list, TickBox& tick, Appearance& look, FramePanel& panel);

  QComboBox& list() { return *combo_; }
  QCheckBox& tick() { return *box_; }
  void setStale(bool stale);

 signals:
  /// The user has chosen a core or has set or cleared the tick.
  void edited();

 private:
  void refresh();

  Screen& screen_;
  PullDown& list_;
  TickBox& tick_;
  Appearance& look_;
  QComboBox* combo_;
  QCheckBox* box_;
  QStringList sizes_;
  bool stale_ = false;
};

/// Aligns the columns of panels, with room for the pull-down over the columns of value and unit.
void align_with_core(std::span<FramePanel* const> panels, CoreRow& core);

}  // namespace vantrel
