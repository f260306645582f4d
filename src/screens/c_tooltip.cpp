#include "screens/c_tooltip.h"

#include <QChildEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <algorithm>

namespace vantrel {

namespace {

constexpr int kMargin = 8;
constexpr int kPointer = 8;  // height of what points at the control
constexpr int kPictureSize = 16;
constexpr int kLineCharacters = 60;
constexpr qreal kCorner = 5;

struct Picture {
  const char* name;
  Role role;
};

Picture picture_of(TooltipIcon icon) {
  switch (icon) {
    case TooltipIcon::Warning:
      return {"warning", Role::Warning};
    case TooltipIcon::Error:
      return {"error", Role::Error};
    default:
      return {"information", Role::Accent};
  }
}

/// The window of a tip: an outline, filled, with its labels inside.
class TipWindow : public QWidget {
 public:
  TipWindow(const CTooltip& tip, const Appearance& look)
      : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint),
        balloon_(tip.Style == TooltipStyle::Balloon),
        fore_(tip.ForeColor.value_or(look.colour(Role::Text))),
        back_(tip.BackColor.value_or(look.colour(Role::Panel))),
        edge_(look.colour(Role::InputBorder)) {
    setObjectName("tooltip");
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin + (balloon_ ? kPointer : 0), kMargin, kMargin);
    row->setSpacing(kMargin);
    if (tip.Icon != TooltipIcon::None) {
      auto* picture = new QLabel(this);
      const Picture shown = picture_of(tip.Icon);
      picture->setPixmap(look.pixmap(shown.name, shown.role, kPictureSize, devicePixelRatioF()));
      row->addWidget(picture, 0, Qt::AlignTop);
    }
    auto* lines = new QVBoxLayout;
    lines->setSpacing(2);
    if (!tip.Title.isEmpty()) lines->addWidget(label(tip.Title, true));
    lines->addWidget(label(tip.words(), false));
    row->addLayout(lines, 1);
  }

  /// The place of what points at the control, from the left edge.
  void pointAt(int x) {
    const int least = static_cast<int>(kCorner) + kPointer;
    point_ = std::clamp(x, least, std::max(least, width() - least));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal top = balloon_ ? kPointer : 0;
    QPainterPath outline;
    outline.addRoundedRect(QRectF(rect()).adjusted(0.5, top + 0.5, -0.5, -0.5), kCorner, kCorner);
    if (balloon_) {
      QPainterPath tip;
      tip.addPolygon(QPolygonF({QPointF(point_ - kPointer, top + 1), QPointF(point_, 0.5),
                                QPointF(point_ + kPointer, top + 1)}));
      tip.closeSubpath();
      outline = outline.united(tip);
    }
    painter.setPen(edge_);
    painter.setBrush(back_);
    painter.drawPath(outline);
  }

 private:
  QLabel* label(const QString& text, bool bold) {
    auto* line = new QLabel(text, this);
    line->setTextFormat(Qt::PlainText);
    QPalette colours = line->palette();
    colours.setColor(QPalette::WindowText, fore_);
    line->setPalette(colours);
    QFont own = line->font();
    own.setBold(bold);
    line->setFont(own);
    const int widest = line->fontMetrics().averageCharWidth() * kLineCharacters;
    if (line->sizeHint().width() > widest) {
      line->setWordWrap(true);
      line->setFixedWidth(widest);
    }
    return line;
  }

  bool balloon_;
  QColor fore_;
  QColor back_;
  QColor edge_;
  int point_ = 0;
};

bool asks_for_tip(const QEvent& event) {
  if (event.type() == QEvent::ToolTip) return true;
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::ShiftModifier;
}

bool ends_tip(QEvent::Type type) {
  constexpr QEvent::Type kEnds[] = {
      QEvent::Leave, QEvent::Hide,     QEvent::MouseButtonPress, QEvent::Wheel,
      QEvent::Close, QEvent::FocusOut, QEvent::WindowDeactivate, QEvent::KeyPress};
  return std::ranges::find(kEnds, type) != std::end(kEnds);
}

/// Where the pointer is, or the middle of a control that was asked by the keyboard.
QPoint pointer_of(const QWidget& host, const QEvent& event) {
  if (event.type() == QEvent::ToolTip) return static_cast<const QHelpEvent&>(event).globalPos();
  return host.mapToGlobal(host.rect().center());
}

}  // namespace

CTooltip::CTooltip(Appearance& look, QObject* parent) : QObject(parent), look_(look) {}

CTooltip::~CTooltip() { Destroy(); }

QString CTooltip::words() const {
  return TipText.isEmpty() && !host_.isNull() ? host_->toolTip() : TipText;
}

bool CTooltip::Create(QWidget& host) {
  Destroy();
  if (TipText.isEmpty() && host.toolTip().isEmpty()) return false;
  host_ = &host;
  // The control's own tip is what is read out.
  if (!TipText.isEmpty()) host.setToolTip(TipText);
  host.installEventFilter(this);
  return true;
}

void CTooltip::Destroy() {
  hide();
  if (host_.isNull()) return;
  host_->removeEventFilter(this);
  host_.clear();
}

void CTooltip::showAt(const QPoint& pointer) {
  hide();
  if (host_.isNull() || words().isEmpty()) return;
  auto window = std::make_unique<TipWindow>(*this, look_);
  window->adjustSize();
  const QPoint below = host_->mapToGlobal(QPoint(0, host_->height()));
  const int target = Centre ? below.x() + host_->width() / 2 : pointer.x();
  const QRect area = host_->screen()->availableGeometry();
  const int most_left = std::max(area.left(), area.right() - window->width());
  const int left = std::clamp(Centre ? target - window->width() / 2 : target - 2 * kPointer,
                              area.left(), most_left);
  const int most_top = std::max(area.top(), area.bottom() - window->height());
  window->move(left, std::min(below.y(), most_top));
  window->pointAt(target - left);
  window->show();
  window_ = std::move(window);
}

void CTooltip::hide() { window_.reset(); }

const QWidget* CTooltip::shown() const { return window_.get(); }

bool CTooltip::eventFilter(QObject* watched, QEvent* event) {
  if (watched != host_) return false;
  if (asks_for_tip(*event) && !words().isEmpty()) {
    showAt(pointer_of(*host_, *event));
    return true;
  }
  if (ends_tip(event->type())) hide();
  return false;
}

ToolTipUtility::ToolTipUtility(QWidget& form, Appearance& look) : QObject(&form), look_(look) {
  watch(form);
}

void ToolTipUtility::watch(QWidget& part) {
  part.removeEventFilter(this);
  part.installEventFilter(this);
  for (QObject* child : part.children()) {
    auto* inner = qobject_cast<QWidget*>(child);
    if (inner != nullptr && !inner->isWindow()) watch(*inner);
  }
}

bool ToolTipUtility::eventFilter(QObject* watched, QEvent* event) {
  auto* part = qobject_cast<QWidget*>(watched);
  if (part == nullptr) return false;
  if (event->type() == QEvent::ChildPolished) {
    auto* child = qobject_cast<QWidget*>(static_cast<QChildEvent*>(event)->child());
    if (child != nullptr && !child->isWindow()) watch(*child);
    return false;
  }
  if (part->toolTip().isEmpty() || !asks_for_tip(*event)) return false;
  // From now on the tip itself listens to the control, ahead of this.
  auto* tip = new CTooltip(look_, part);
  if (tip->Create(*part)) tip->showAt(pointer_of(*part, *event));
  return true;
}

}  // namespace vantrel
