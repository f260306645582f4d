#pragma once

#include <QWidget>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/field_row.h"

class QGridLayout;
class QLabel;

namespace vantrel {

/// A panel with a bold caption and whatever the window puts into its grid.
class Panel : public QWidget {
  Q_OBJECT

 public:
  Panel(const QString& caption, Appearance& look, QWidget* parent = nullptr);

  QGridLayout& grid() { return *grid_; }
  QLabel& captionLabel() { return *caption_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

  Appearance& look_;

 private:
  QLabel* caption_;
  QGridLayout* grid_;
};

/// A frame of a screen: its fields as rows, in control order. Fields that the screen hides leave no
/// gap, and a frame without any visible row hides itself.
class FramePanel : public Panel {
  Q_OBJECT

 public:
  /// Shows the frame `frame` of `screen`; of a control group only the fields with `index`, all
  /// when it is negative. Fields that `first` names stand above the others, in its order.
  FramePanel(Screen& screen, std::string_view frame, Appearance& look, int index = -1,
             QWidget* parent = nullptr, std::span<const char* const> first = {});

  const std::string& frameName() const { return frame_; }
  const std::vector<FieldRow*>& rows() const { return rows_; }
  void setStale(bool stale);
  /// Rows follow the model; called whenever fields, frames or tabs have changed.
  void refresh();
  /// First row of the grid that no field takes.
  int freeRow() const;

 signals:
  /// The user has changed a value or a tick of this frame.
  void edited();
  /// The panel has appeared or gone.
  void shownChanged();

 private:
  std::vector<VTLValue*> fieldsOfFrame(int index, std::span<const char* const> first) const;
  void moveFocus(const ValueEditor& from, int step);

  Screen& screen_;
  std::string frame_;
  std::vector<FieldRow*> rows_;
  bool has_rows_ = false;
};

/// Gives the panels of one column the same widths for label, unit and tick, so that values stand
/// below each other.
void align_columns(std::span<FramePanel* const> panels);

}  // namespace vantrel
