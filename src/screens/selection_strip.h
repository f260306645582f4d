#pragma once

#include <QComboBox>
#include <QWidget>
#include <array>

#include "app/session.h"
#include "selection/control_bar.h"

class QToolButton;

namespace vantrel {

/// A pull-down of what may be selected in one slot. It is filled when it drops down, with the
/// groups as headings.
class SlotList : public QComboBox {
  Q_OBJECT

 public:
  SlotList(int slot, Session& session, control_bar& bar, QWidget* parent = nullptr);

  /// Shows the present selection.
  void refresh();
  void showPopup() override;

 private:
  void fill();
  void choose(int row);

  int slot_;
  Session& session_;
  control_bar& bar_;
};

/// The four selections of a design as pull-downs, each with a button that opens the chooser.
class SelectionStrip : public QWidget {
  Q_OBJECT

 public:
  SelectionStrip(Session& session, control_bar& bar, QWidget* parent = nullptr);
  void refresh();

 private:
  std::array<SlotList*, kSlotCount> lists_;
  std::array<QToolButton*, kSlotCount> buttons_;
  control_bar& bar_;
};

}  // namespace vantrel
