#pragma once

#include <QDialog>
#include <vector>

#include "screens/record_field.h"
#include "services/user_data.h"

class QLabel;
class QListWidget;
class QPushButton;
class QScrollArea;

namespace vantrel {

class Panel;
class XButton;

/// The editor of the user's own lamps or cores: the list of records, the fields of the present one,
/// and the commands on them. It works on a form whose records have been opened.
class UserDataWindow : public QDialog {
  Q_OBJECT

 public:
  /// `form` and `look` must outlive the window.
  UserDataWindow(EditUserData& form, Appearance& look, QWidget* parent = nullptr);
  ~UserDataWindow() override;

  /// Closes the window, unless the user keeps unsaved changes.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Action = void (UserDataWindow::*)();
  using Step = bool (SQLTableEdit::*)();

  QSize wantedSize() const;
  QWidget* makeSelector();
  QWidget* makeFields();
  QWidget* makeSteps();
  QWidget* makeCommands();
  void makeShortcuts();
  QPushButton* addCommand(QWidget& row, const char* name, const char* caption, Action action);
  void addStep(QWidget& row, const char* icon, const char* words, Step step);
  void go(Step step);
  void choose();
  void addRecord();
  void save();
  void focusRefused();
  void focusField(std::size_t field);
  void refresh();
  void refreshList();
  void filterList();

  EditUserData& form_;
  SQLTableEdit& edit_;
  Appearance& look_;
  QLabel* selector_ = nullptr;
  QLineEdit* search_ = nullptr;
  QListWidget* list_ = nullptr;
  Panel* panel_ = nullptr;
  QScrollArea* pane_ = nullptr;
  std::vector<RecordField*> fields_;
  QLabel* count_ = nullptr;
  std::vector<XButton*> steps_;
  QPushButton* new_ = nullptr;
  QPushButton* save_ = nullptr;
  QPushButton* delete_ = nullptr;
  QPushButton* import_ = nullptr;
  QPushButton* export_ = nullptr;
  QPushButton* undo_ = nullptr;
};

}  // namespace vantrel
