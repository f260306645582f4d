#pragma once

#include <QLineEdit>

#include "core/vtl_value.h"
#include "screens/appearance.h"

class QTimer;

namespace vantrel {

/// The editor of one value. It shows what the field holds, takes what is typed, and paints the
/// background that tells an input from an output and a fixed value from both.
class ValueEditor : public QLineEdit {
  Q_OBJECT

 public:
  /// Digits that fit into every editor.
  static constexpr int kDigits = 9;

  /// `field` and `look` must outlive the editor.
  ValueEditor(VTLValue& field, Appearance& look, QWidget* parent = nullptr);

  VTLValue& field() { return field_; }
  /// Shows the value as out of date, or as current again.
  void setStale(bool stale);
  bool isStale() const { return stale_; }
  /// True while the typed text is no number.
  bool isInvalid() const { return !reason_.isEmpty(); }
  bool isFlashing() const;
  /// Stores what is being typed, as leaving the editor does.
  void commit();
  /// Makes room for as many digits, for numbers and texts alike, which then stand at the right.
  void setDigits(int digits);
  /// Puts a symbol in front of a value that is beyond its limit.
  void setWarning(bool warning);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  /// A typed value has been stored.
  void committed();
  /// An arrow key asks for the editor below (+1) or above (-1).
  void stepRequested(int step);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Face {
    Role background;
    Role edge;
    int edgeWidth;  ///< 0 for none.
    const char* symbol;
  };

  void refresh();
  void settle();
  void typed(const QString& text);
  void restore();
  void startFlash();
  void tellReason(const QString& reason);
  Face face() const;
  QString toolTipText() const;

  VTLValue& field_;
  Appearance& look_;
  QTimer* flash_timer_;
  int flash_left_ = 0;
  bool stale_ = false;
  bool warning_ = false;
  int digits_ = 0;  ///< Room that was asked for; 0 for that of the type.
  QString reason_;
};

}  // namespace vantrel
