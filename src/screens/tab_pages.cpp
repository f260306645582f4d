#include "screens/tab_pages.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kGap = 10;
constexpr int kRowPadding = 8;
constexpr int kPaneRows = 17;
constexpr int kFewestRows = 6;
constexpr int kFewestCharacters = 40;
constexpr qreal kHeadingScale = 1.2;

/// The page of a tab: an edge around the scrolling content.
class Pane : public QWidget {
 public:
  Pane(Appearance& look, QWidget* parent) : QWidget(parent), look_(look) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(look_.colour(Role::PanelBorder));
    painter.setBrush(look_.colour(Role::Window));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }

 private:
  Appearance& look_;
};

}  // namespace

PaneScroll::PaneScroll(bool whole_width, QWidget* parent)
    : QScrollArea(parent), whole_width_(whole_width) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(whole_width ? QSizePolicy::Fixed : QSizePolicy::Preferred, QSizePolicy::Preferred);
}

int PaneScroll::rowsHeight(int rows) const { return rows * (fontMetrics().height() + kRowPadding); }

int PaneScroll::contentWidth() const {
  const int content = widget() == nullptr ? 0 : widget()->minimumSizeHint().width();
  return content + verticalScrollBar()->sizeHint().width();
}

QSize PaneScroll::sizeHint() const { return {contentWidth(), rowsHeight(kPaneRows)}; }

QSize PaneScroll::minimumSizeHint() const {
  return {whole_width_ ? contentWidth() : fontMetrics().averageCharWidth() * kFewestCharacters,
          rowsHeight(kFewestRows)};
}

FramePage::FramePage(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kGap, kGap, kGap, kGap);
  row->setSpacing(kGap);
  for (QVBoxLayout*& column : columns_) {
    column = new QVBoxLayout;
    column->setSpacing(kGap);
    column->addStretch(1);
    row->addLayout(column, 1);
  }
}

void FramePage::add(Panel* panel, int column) {
  panel->setParent(this);
  entries_.push_back({panel, column});
  arrange();
}

void FramePage::setTwoColumns(bool two) {
  if (two == two_columns_) return;
  two_columns_ = two;
  arrange();
}

void FramePage::arrange() {
  for (const Entry& entry : entries_) {
    for (QVBoxLayout* column : columns_) column->removeWidget(entry.panel);
  }
  for (const Entry& entry : entries_) {
    QVBoxLayout& column = *columns_[two_columns_ ? entry.column : 0];
    column.insertWidget(column.count() - 1, entry.panel);
  }
  auto* row = static_cast<QHBoxLayout*>(layout());
  row->setStretch(1, two_columns_ ? 1 : 0);
  row->setSpacing(two_columns_ ? kGap : 0);
  updateGeometry();
}

QSize FramePage::minimumSizeHint() const {
  int widest = 0;
  for (const Entry& entry : entries_) {
    widest = std::max(widest, entry.panel->minimumSizeHint().width());
  }
  const int columns = two_columns_ ? 2 : 1;
  return {columns * widest + (columns + 1) * kGap, QWidget::minimumSizeHint().height()};
}

TabPages::TabPages(const QString& heading, TabStrip& strip, Width width, Appearance& look,
                   QWidget* parent)
    : QWidget(parent),
      strip_(strip),
      information_(new QLabel(this)),
      tabs_(new QTabBar(this)),
      stack_(new QStackedWidget) {
  auto* title = new QLabel(heading, this);
  QFont bold = title->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * kHeadingScale);
  title->setFont(bold);
  information_->setForegroundRole(QPalette::PlaceholderText);
  information_->setObjectName(to_qstring(strip.name) + ".information");
  information_->setMinimumWidth(1);
  information_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  tabs_->setObjectName(to_qstring(strip.name));
  tabs_->setAccessibleName(heading);
  tabs_->setDrawBase(false);
  tabs_->setExpanding(false);
  for (const TabStrip::Tab& tab : strip.tabs) {
    tabs_->addTab(to_qstring(tab.caption));
    pages_.push_back(new FramePage);
    stack_->addWidget(pages_.back());
  }

  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(0);
  auto* head = new QHBoxLayout;
  head->setContentsMargins(4, 0, 4, 4);
  head->addWidget(title);
  head->addWidget(information_, 1);
  box->addLayout(head);
  box->addWidget(tabs_);
  auto* pane = new Pane(look, this);
  pane_ = new QVBoxLayout(pane);
  pane_->setContentsMargins(1, 1, 1, 1);
  pane_->setSpacing(0);
  scroll_ = new PaneScroll(width == kAsContent, pane);
  scroll_->setWidget(stack_);
  pane_->addWidget(scroll_);
  box->addWidget(pane, 1);
  setSizePolicy(width == kAsContent ? QSizePolicy::Fixed : QSizePolicy::Preferred,
                QSizePolicy::Preferred);
  connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
    strip_.selected = tab;
    emit tabChosen();
  });
  connect_view(look.changed, this, [this] { update(); });
}

void TabPages::setNotice(QWidget* notice) {
  auto* row = new QVBoxLayout;
  row->setContentsMargins(kGap, kGap, kGap, 0);
  row->addWidget(notice);
  pane_->insertLayout(0, row);
}

void TabPages::setInformation(const QString& text) {
  information_->setText(text);
  information_->setToolTip(text);
}

void TabPages::setTwoColumns(bool two) {
  for (FramePage* page : pages_) page->setTwoColumns(two);
  scroll_->updateGeometry();
}

void TabPages::refresh() {
  const QSignalBlocker quiet(tabs_);
  int index = 0;
  for (const TabStrip::Tab& tab : strip_.tabs) {
    tabs_->setTabEnabled(index, tab.enabled);
    tabs_->setTabToolTip(
        index, tab.enabled ? QString()
                           : to_qstring(tab.caption) + " has no part in the present selection");
    ++index;
  }
  tabs_->setCurrentIndex(strip_.selected);
  stack_->setCurrentIndex(strip_.selected);
}

}  // namespace vantrel
