#include "screens/value_editor.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include "core/number_text.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kFlashHalfPeriod = 250;  // ms
constexpr int kFlashHalfPeriods = 6;
constexpr int kSymbolSize = 12;
constexpr int kTextMargin = 6;
constexpr int kSymbolMargin = 20;
constexpr qreal kCorner = 3;

}  // namespace

ValueEditor::ValueEditor(VTLValue& field, Appearance& look, QWidget* parent)
    : QLineEdit(parent), field_(field), look_(look), flash_timer_(new QTimer(this)) {
  setFrame(false);
  ThemeStyle::setOwnBackground(*this);
  setAlignment(field.ValueType() == kNumeric ? Qt::AlignRight : Qt::AlignLeft);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  flash_timer_->setInterval(kFlashHalfPeriod);
  connect(flash_timer_, &QTimer::timeout, this, [this] {
    if (--flash_left_ <= 0) flash_timer_->stop();
    update();
  });
  connect(this, &QLineEdit::textEdited, this, &ValueEditor::typed);
  connect_view(field.displayChanged, this, [this] { refresh(); });
  connect_view(field.flashRequested, this, [this] { startFlash(); });
  connect_view(look.changed, this, [this] { settle(); });
  refresh();
}

void ValueEditor::refresh() {
  if (field_.IsEditing()) return;
  reason_.clear();
  const QString shown = to_qstring(field_.DisplayText());
  if (text() != shown) setText(shown);
  setReadOnly(!field_.IsEditable());
  // Outputs are reached by the arrow keys; Tab stops at what can be typed.
  setFocusPolicy(field_.IsEditable() ? Qt::StrongFocus : Qt::ClickFocus);
  setToolTip(toolTipText());
  setAccessibleName(to_qstring(field_.ValueLabel()).simplified() + " " +
                    to_qstring(field_.UnitText()));
  settle();
}

QString ValueEditor::toolTipText() const {
  QString tip = to_qstring(field_.Tooltip());
  if (field_.IsItEmpty() || field_.ValueType() != kNumeric) return tip;
  const QString exact =
      to_qstring(to_text(field_.value())) + " " + to_qstring(field_.ValueBaseUnits());
  return tip.isEmpty() ? exact.trimmed() : tip + "\n" + exact.trimmed();
}

void ValueEditor::typed(const QString& text) {
  field_.Edit(text.toStdString());
  const bool refused = field_.ValueType() == kNumeric && !text.trimmed().isEmpty() &&
                       !typed_number(text.toStdString(), field_.ValueBaseUnits());
  tellReason(refused ? "'" + text + "' is not a number; a value in " +
                           to_qstring(field_.ValueBaseUnits()) +
                           " is accepted, and a prefix such as 4.7k or 100n"
                     : QString());
}

void ValueEditor::tellReason(const QString& reason) {
  reason_ = reason;
  setToolTip(reason.isEmpty() ? toolTipText() : reason);
  setAccessibleDescription(reason);
  settle();
}

void ValueEditor::commit() {
  if (!field_.IsEditing() || isInvalid()) return;
  std::string why;
  if (field_.Commit(&why)) {
    refresh();
    emit committed();
  } else {
    tellReason(to_qstring(why));
  }
}

void ValueEditor::restore() {
  field_.CancelEdit();
  refresh();
  selectAll();
}

void ValueEditor::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      if (!field_.IsEditing()) break;
      restore();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!field_.IsEditing()) break;
      commit();
      selectAll();
      return;
    case Qt::Key_Up:
      emit stepRequested(-1);
      return;
    case Qt::Key_Down:
      emit stepRequested(1);
      return;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

void ValueEditor::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
    QTimer::singleShot(0, this, &QLineEdit::selectAll);
  }
  update();
}

void ValueEditor::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason) commit();
  update();
}

void ValueEditor::setStale(bool stale) {
  if (stale == stale_) return;
  stale_ = stale;
  settle();
}

void ValueEditor::setWarning(bool warning) {
  warning_ = warning;
  settle();
}

bool ValueEditor::isFlashing() const { return flash_timer_->isActive(); }

void ValueEditor::startFlash() {
  flash_left_ = kFlashHalfPeriods;
  flash_timer_->start();
  update();
}

ValueEditor::Face ValueEditor::face() const {
  const bool lit = flash_timer_->isActive() && flash_left_ % 2 == 0;
  if (lit) return {Role::Flash, Role::Accent, 2, nullptr};
  if (isInvalid()) return {Role::ErrorBack, Role::Error, 2, "error"};
  const bool editing = field_.IsEditing() || (hasFocus() && !isReadOnly());
  if (field_.IsFixed()) {
    return {Role::Fixed, editing ? Role::Accent : Role::FixedBorder, editing ? 2 : 1, "lock"};
  }
  if (!isReadOnly()) {
    return {Role::Input, editing ? Role::Accent : Role::InputBorder, editing ? 2 : 1, nullptr};
  }
  const char* symbol = warning_ ? "warning" : stale_ && !text().isEmpty() ? "clock" : nullptr;
  return {Role::Locked, Role::Accent, hasFocus() ? 1 : 0, symbol};
}

void ValueEditor::paintEvent(QPaintEvent* event) {
  const Face look = face();
  {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal inset = look.edgeWidth * 0.5;
    painter.setPen(look.edgeWidth > 0 ? QPen(look_.colour(look.edge), look.edgeWidth) : Qt::NoPen);
    painter.setBrush(look_.colour(look.background));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kCorner,
                            kCorner);
    if (look.symbol != nullptr) {
      const Role role = look.edge == Role::Error         ? Role::Error
                        : look.edge == Role::FixedBorder ? Role::FixedBorder
                        : warning_                       ? Role::Warning
                                                         : Role::Muted;
      painter.drawPixmap(QPointF(kTextMargin, (height() - kSymbolSize) / 2.0),
                         look_.pixmap(look.symbol, role, kSymbolSize, devicePixelRatioF()));
    }
  }
  QLineEdit::paintEvent(event);
}

void ValueEditor::settle() {
  setTextMargins(face().symbol != nullptr ? kSymbolMargin : kTextMargin, 0, kTextMargin, 0);
  const bool muted = stale_ && isReadOnly();
  QPalette shown = look_.palette();
  shown.setColor(QPalette::Base, Qt::transparent);
  shown.setColor(QPalette::Text, look_.colour(muted ? Role::Muted : Role::Text));
  setPalette(shown);
  update();
}

void ValueEditor::setDigits(int digits) {
  digits_ = digits;
  setAlignment(Qt::AlignRight);
  updateGeometry();
}

QSize ValueEditor::sizeHint() const {
  const QFontMetrics metrics(font());
  if (digits_ == 0 && field_.ValueType() != kNumeric) {
    return {metrics.averageCharWidth() * 22 + 26, metrics.height() + 8};
  }
  const int digits = digits_ == 0 ? kDigits : digits_;
  return {metrics.horizontalAdvance(QString(digits, '0')) + 26, metrics.height() + 8};
}

}  // namespace vantrel
