#pragma once

#include <QScrollArea>
#include <QWidget>
#include <vector>

#include "operating/advanced.h"
#include "screens/frame_panel.h"

class QLabel;
class QStackedWidget;
class QTabBar;
class QVBoxLayout;

namespace vantrel {

/// A pane that keeps its size whatever it shows: its width is that of its content, its height a
/// number of rows. What does not fit scrolls.
class PaneScroll : public QScrollArea {
  Q_OBJECT

 public:
  /// With `whole_width` the pane never gets narrower than its content.
  explicit PaneScroll(bool whole_width, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  int rowsHeight(int rows) const;
  int contentWidth() const;

  bool whole_width_;
};

/// The panels of one tab, in one column or flowing into two. Its width does not depend on which of
/// them are in view.
class FramePage : public QWidget {
  Q_OBJECT

 public:
  explicit FramePage(QWidget* parent = nullptr);

  /// Adds a panel below the others of its column; with one column all stand in it.
  void add(Panel* panel, int column);
  void setTwoColumns(bool two);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 private:
  struct Entry {
    Panel* panel;
    int column;
  };
  void arrange();

  std::vector<Entry> entries_;
  QVBoxLayout* columns_[2];
  bool two_columns_ = false;
};

/// A heading, a strip of tabs of the model, and a pane with the page of the tab that is up.
class TabPages : public QWidget {
  Q_OBJECT

 public:
  enum Width { kAsContent, kTakesRest };

  /// `strip` must outlive the widget.
  TabPages(const QString& heading, TabStrip& strip, Width width, Appearance& look,
           QWidget* parent = nullptr);

  QTabBar& tabs() { return *tabs_; }
  const std::vector<FramePage*>& pages() const { return pages_; }
  /// A widget that stands above the pages of all tabs.
  void setNotice(QWidget* notice);
  /// The line at the right of the heading.
  void setInformation(const QString& text);
  void setTwoColumns(bool two);
  /// Tabs and page follow the model.
  void refresh();

 signals:
  /// The user has brought up another tab; the model says so already.
  void tabChosen();

 private:
  TabStrip& strip_;
  QLabel* information_;
  QTabBar* tabs_;
  QVBoxLayout* pane_;
  PaneScroll* scroll_;
  QStackedWidget* stack_;
  std::vector<FramePage*> pages_;
};

}  // namespace vantrel
