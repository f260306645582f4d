#pragma once

#include <QObject>

#include "core/screen.h"
#include "screens/value_editor.h"

class QCheckBox;
class QGridLayout;
class QLabel;

namespace vantrel {

/// One value as a row of a grid: label, editor, unit, and a tick for a value that can be fixed.
class FieldRow : public QObject {
  Q_OBJECT

 public:
  /// Columns of the grid; the last takes what is left.
  enum Column { kLabel, kValue, kUnit, kTick, kSlack, kColumnCount };

  /// Adds the field to `grid` in `row`. Object names tell screen, field and index.
  FieldRow(VTLValue& field, Appearance& look, QGridLayout& grid, int row, QWidget& parent);

  VTLValue& field() { return field_; }
  ValueEditor& editor() { return *editor_; }
  QCheckBox* tick() { return tick_; }
  QLabel& label() { return *label_; }
  QLabel& unit() { return *unit_; }
  /// Widest unit that the field can show, with any prefix.
  int unitWidth() const;
  void setShown(bool shown);
  bool isShown() const { return shown_; }

 signals:
  /// The user has stored a value, or has set or cleared the tick.
  void edited();

 private:
  void refresh();

  VTLValue& field_;
  QLabel* label_;
  ValueEditor* editor_;
  QLabel* unit_;
  QCheckBox* tick_ = nullptr;
  bool shown_ = true;
};

}  // namespace vantrel
