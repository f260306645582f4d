#include "screens/recent_list.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QStyledItemDelegate>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kDetailRole = Qt::UserRole + 1;
constexpr int kMarginX = 6;
constexpr int kMarginY = 4;

QString day_of(const QDateTime& when) {
  const qint64 days = when.daysTo(QDateTime::currentDateTime());
  const QString time = QLocale().toString(when.time(), QLocale::ShortFormat);
  if (days == 0) return "Today " + time;
  if (days == 1) return "Yesterday " + time;
  return QLocale().toString(when.date(), QLocale::ShortFormat);
}

QString detail_of(const QFileInfo& file) {
  const QString folder = QDir::toNativeSeparators(file.absolutePath());
  return file.exists() ? day_of(file.lastModified()) + "   " + folder : "Missing   " + folder;
}

/// Two lines: the name in bold, the rest muted.
class TwoLines : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {0, 2 * option.fontMetrics.height() + 2 * kMarginY};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool enabled = (option.state & QStyle::State_Enabled) != 0;
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    if (selected) painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
    const auto text = selected ? QPalette::HighlightedText : QPalette::Text;
    const auto muted = selected  ? QPalette::HighlightedText
                       : enabled ? QPalette::PlaceholderText
                                 : QPalette::Text;
    QRect line = option.rect.adjusted(kMarginX, kMarginY, -kMarginX, 0);
    line.setHeight(option.fontMetrics.height());
    QFont bold = option.font;
    bold.setBold(true);
    write(*painter, line, bold, option.palette.color(group, text), Qt::ElideRight,
          index.data(Qt::DisplayRole).toString());
    line.translate(0, line.height());
    write(*painter, line, option.font, option.palette.color(group, muted), Qt::ElideMiddle,
          index.data(kDetailRole).toString());
  }

 private:
  static void write(QPainter& painter, const QRect& line, const QFont& font, const QColor& colour,
                    Qt::TextElideMode elide, const QString& text) {
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(font).elidedText(text, elide, line.width()));
  }
};

}  // namespace

RecentList::RecentList(RecentProjects& recent, QWidget* parent)
    : QListWidget(parent), recent_(recent) {
  setObjectName("recent");
  setAccessibleName("Recent projects");
  setItemDelegate(new TwoLines(this));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setResizeMode(QListView::Adjust);
  viewport()->setBackgroundRole(QPalette::Button);
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { choose(*item); });
  connect_view(recent.changed, this, [this] { fill(); });
  fill();
}

void RecentList::fill() {
  clear();
  for (const QString& path : recent_.paths()) {
    const QFileInfo file(path);
    auto* item = new QListWidgetItem(file.completeBaseName(), this);
    item->setData(kPathRole, path);
    item->setData(kDetailRole, detail_of(file));
    item->setToolTip(QDir::toNativeSeparators(path));
    if (!file.exists()) item->setFlags(Qt::NoItemFlags);
  }
}

void RecentList::showEvent(QShowEvent* event) {
  // Files come and go while the list is not on show.
  fill();
  QListWidget::showEvent(event);
}

void RecentList::choose(const QListWidgetItem& item) {
  if ((item.flags() & Qt::ItemIsEnabled) != 0) emit chosen(item.data(kPathRole).toString());
}

void RecentList::keyPressEvent(QKeyEvent* event) {
  const bool accepts = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (accepts && currentItem() != nullptr) {
    choose(*currentItem());
    return;
  }
  QListWidget::keyPressEvent(event);
}

}  // namespace vantrel
