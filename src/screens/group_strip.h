#pragma once

#include <QWidget>
#include <array>

#include "screens/tile_button.h"
#include "selection/browser_view.h"

class QScrollBar;

namespace vantrel {

/// A group of the chooser: its picture over the two lines of its title.
class GroupTileButton : public TileButton {
  Q_OBJECT

 public:
  GroupTileButton(Appearance& look, const ProgramFolder& folder, QWidget* parent = nullptr);

  /// Shows a group; the listed one is marked.
  void show(const GroupTile& tile, bool listed);
  using QWidget::show;
  int groupIndex() const { return tile_.groupIndex; }
  QSize sizeHint() const override;

 protected:
  void DrawXButton(QPainter& painter) override;

 private:
  GroupTile tile_;
  bool listed_ = false;
};

/// Four groups of the browser side by side under a scroll bar.
class GroupStrip : public QWidget {
  Q_OBJECT

 public:
  GroupStrip(browser_control& browser, Appearance& look, const ProgramFolder& folder,
             QWidget* parent = nullptr);

  /// Shows what the browser has in sight.
  void refresh();

 signals:
  void groupPressed(int group_index);

 protected:
  void wheelEvent(QWheelEvent* event) override;

 private:
  browser_control& browser_;
  QScrollBar* scroll_;
  std::array<GroupTileButton*, kGroupsInSight> tiles_;
};

}  // namespace vantrel
