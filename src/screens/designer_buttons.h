#pragma once

#include <QWidget>

#include "screens/appearance.h"

class QHBoxLayout;
class QPushButton;

namespace vantrel {

/// A row of buttons from the left, the main action first.
class DesignerButtons : public QWidget {
  Q_OBJECT

 public:
  explicit DesignerButtons(Appearance& look, QWidget* parent = nullptr);

  QPushButton* addMain(const QString& name, const QString& caption);
  /// `icon` names a picture; none when it is empty.
  QPushButton* add(const QString& name, const QString& caption, const char* icon = "");
  /// Adds a widget behind all the free room.
  void addRight(QWidget* widget);

 private:
  Appearance& look_;
  QHBoxLayout* row_;
  int buttons_ = 0;
};

}  // namespace vantrel
