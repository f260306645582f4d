#pragma once

#include "screens/tile_button.h"
#include "selection/selection_card.h"

namespace vantrel {

/// The selected item of a slot as a wide tile: the group's picture, what is chosen here, the item
/// and its group. Pressing it means choosing another one.
class SelectionTile : public TileButton {
  Q_OBJECT

 public:
  SelectionTile(int slot, Appearance& look, const ProgramFolder& folder, QWidget* parent = nullptr);

  /// Shows the item; a tile that is not `available` tells that the IC decides.
  void show(const SelectionCard& card, bool available);
  using QWidget::show;
  QSize sizeHint() const override;

 protected:
  void DrawXButton(QPainter& painter) override;

 private:
  QString lastLine() const;

  QString caption_;
  QString name_;
  QString group_;
};

}  // namespace vantrel
