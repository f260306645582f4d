#pragma once

#include <QDialog>
#include <vector>

#include "screens/design_window.h"
#include "services/options.h"

class QAbstractButton;
class QButtonGroup;
class QPushButton;
class QTabWidget;
class QVBoxLayout;

namespace vantrel {

/// The option sheet: one tab for each group of options, and the theme of the windows.
class OptionsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit OptionsDialog(Workbench bench);

  void reject() override;

 private:
  struct Control {
    const OptionSpec* option;
    QAbstractButton* button;
  };
  QWidget* makePage(const OptionFrame& frame);
  void addOptions(const OptionFrame& frame, OptionKind kind, QVBoxLayout& box);
  void addThemes(QVBoxLayout& box);
  QWidget* makeButtons();
  void click(const char* button);
  void refresh();
  bool isChanged() const;

  configure& options_;
  Workbench bench_;
  QTabWidget* tabs_;
  std::vector<Control> controls_;
  QButtonGroup* themes_;
  QPushButton* apply_ = nullptr;
};

}  // namespace vantrel
