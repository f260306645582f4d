#pragma once

#include <QDialog>
#include <vector>

#include "screens/design_window.h"
#include "selection/item_preview.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace vantrel {

class GroupStrip;
class NumberRows;
class Panel;

/// The chooser of a slot: its groups as pictures, the items of the listed group, and what the item
/// would load. It works on the browser's model, which lists the slot already.
class ChooserDialog : public QDialog {
  Q_OBJECT

 public:
  ChooserDialog(Workbench bench, int slot, const QString& title, QWidget* parent = nullptr);
  ~ChooserDialog() override;

  /// Selects the item that is up; the item-selected event of the browser follows.
  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// A line of the item list: where its item stands in the browser.
  struct Line {
    int group = -1;
    std::size_t position = 0;
    std::int32_t id = -1;
    QString name;
  };

  QWidget* makeGroups();
  QWidget* makeItems();
  QWidget* makePreview();
  QWidget* makeButtons();
  void listGroup(int group_index);
  void stepGroup(int step);
  void refresh();
  void fillGroups();
  void fillItems();
  void fillHits();
  void addLine(Line line, const QString& text);
  void addNote(const QString& text);
  void itemChanged();
  void clearSearch();
  void editUserData();
  bool isSearching() const;

  Workbench bench_;
  browser_control& browser_;
  int slot_;
  ItemPreview preview_;
  std::vector<Line> lines_;
  QLineEdit* search_;
  GroupStrip* strip_;
  QListWidget* groups_ = nullptr;
  QLabel* items_title_ = nullptr;
  QListWidget* items_ = nullptr;
  QLabel* preview_title_ = nullptr;
  std::unique_ptr<NumberRows> preview_rows_;
  QPushButton* edit_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace vantrel
