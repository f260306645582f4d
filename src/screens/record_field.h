#pragma once

#include <QLineEdit>
#include <cstddef>

#include "screens/appearance.h"
#include "services/sql_table_edit.h"

class QComboBox;
class QGridLayout;
class QTimer;

namespace vantrel {

class CTooltip;

/// A line for one field of a record. A character that the field refuses shows an error edge for a
/// short while and a tip that says what the field takes, and does nothing else.
class RecordLine : public QLineEdit {
  Q_OBJECT

 public:
  /// `edit` and `look` must outlive the line.
  RecordLine(SQLTableEdit& edit, std::size_t field, Appearance& look, QWidget* parent);

  /// The error edge is on show.
  bool isRefusing() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void refuse();

  const Appearance& look_;
  CTooltip* rule_;
  QTimer* refusal_;
};

/// One field of a record as a row of a grid: its caption, and a line or a list of choices.
class RecordField : public QObject {
  Q_OBJECT

 public:
  /// Fills the row of the field's number; everything handed in must outlive the object, which
  /// `parent` owns together with the widgets.
  RecordField(SQLTableEdit& edit, std::size_t field, Appearance& look, QGridLayout& grid,
              QWidget* parent);

  /// Shows what the record holds.
  void refresh();
  /// The widget that takes the keyboard.
  QWidget& editor() const;

 private:
  void makeChoices(QWidget* parent);

  SQLTableEdit& edit_;
  std::size_t field_;
  RecordLine* line_ = nullptr;
  QComboBox* choices_ = nullptr;
};

}  // namespace vantrel
