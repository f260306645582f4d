#include "screens/line_view.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPainter>
#include <QTextBlock>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kGap = 6;
constexpr int kMarkSize = 8;
constexpr int kFewestDigits = 3;

void paint_disc(QPainter& painter, const QRectF& box, const QColor& colour) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(box);
}

void paint_arrow(QPainter& painter, const QRectF& box, const QColor& colour) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(
      QPolygonF{box.topLeft(), QPointF(box.right(), box.center().y()), box.bottomLeft()});
}

}  // namespace

LineView::LineView(Appearance& look, QWidget* parent)
    : QPlainTextEdit(parent), look_(look), margin_(new QWidget(this)) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(font().pointSizeF());
  setFont(fixed);
  margin_->installEventFilter(this);
  connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { settleMargin(); });
  connect(this, &QPlainTextEdit::updateRequest, margin_, [this] { margin_->update(); });
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { markLine(); });
  connect(this, &QPlainTextEdit::textChanged, this, [this] { markLine(); });
  connect_view(look.changed, this, [this] { markLine(); });
  settleMargin();
}

void LineView::setMarks(Marks marks) {
  marks_ = std::move(marks);
  refreshMarks();
}

void LineView::refreshMarks() {
  margin_->update();
  viewport()->update();
}

void LineView::selectLine(int line) {
  if (line == currentLine()) return;
  setTextCursor(QTextCursor(document()->findBlockByNumber(line)));
  ensureCursorVisible();
}

void LineView::settleMargin() {
  const int digits =
      std::max(kFewestDigits, static_cast<int>(QString::number(blockCount()).size()));
  const int width = fontMetrics().horizontalAdvance('9') * digits + kMarkSize + 3 * kGap;
  setViewportMargins(width, 0, 0, 0);
  const QRect inside = contentsRect();
  margin_->setGeometry(inside.left(), inside.top(), width, viewport()->height());
}

void LineView::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  settleMargin();
}

void LineView::markLine() {
  if (document()->isEmpty()) {
    setExtraSelections({});  // a mark would lie over the placeholder text
    return;
  }
  QTextEdit::ExtraSelection current;
  current.format.setBackground(look_.colour(Role::Locked));
  current.format.setProperty(QTextFormat::FullWidthSelection, true);
  current.cursor = textCursor();
  current.cursor.clearSelection();
  setExtraSelections({current});
  refreshMarks();
}

void LineView::forVisibleLines(const std::function<void(int line, const QRectF& area)>& use) const {
  const int bottom = viewport()->height();
  for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
    const QRectF area = blockBoundingGeometry(block).translated(contentOffset());
    if (area.top() > bottom) return;
    use(block.blockNumber(), area);
  }
}

void LineView::paintEvent(QPaintEvent* event) {
  if (marks_.watched) {
    QPainter painter(viewport());
    forVisibleLines([&](int line, const QRectF& area) {
      if (!marks_.watched(line)) return;
      painter.fillRect(QRectF(0, area.top(), viewport()->width(), area.height()),
                       look_.colour(Role::Flash));
    });
  }
  QPlainTextEdit::paintEvent(event);
}

bool LineView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == margin_ && event->type() == QEvent::Paint) {
    paintMargin();
    return true;
  }
  return QPlainTextEdit::eventFilter(watched, event);
}

void LineView::paintMargin() {
  QPainter painter(margin_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(margin_->rect(), look_.colour(Role::Window));
  painter.setFont(font());
  const int right = margin_->width() - kGap;
  const bool empty = document()->isEmpty();
  forVisibleLines([&](int line, const QRectF& area) {
    if (empty) return;
    const QRectF mark(kGap, area.center().y() - kMarkSize / 2.0, kMarkSize, kMarkSize);
    if (marks_.watched && marks_.watched(line)) {
      paint_arrow(painter, mark, look_.colour(Role::Accent));
    }
    if (marks_.breaks && marks_.breaks(line)) paint_disc(painter, mark, look_.colour(Role::Error));
    painter.setPen(look_.colour(line == currentLine() ? Role::Text : Role::Muted));
    painter.drawText(QRectF(0, area.top(), right, area.height()), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(line + 1));
  });
}

}  // namespace vantrel
