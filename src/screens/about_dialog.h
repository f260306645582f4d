#pragma once

#include <QDialog>

#include "screens/appearance.h"
#include "services/sw_update_about.h"

class QLabel;
class QPushButton;

namespace vantrel {

/// What program this is, and the check whether the update host has another one. Nothing goes out
/// before the button is pressed.
class AboutDialog : public QDialog {
  Q_OBJECT

 public:
  /// Takes the callables of `about`; both arguments must outlive the dialog.
  AboutDialog(About& about, Appearance& look, QWidget* parent = nullptr);
  ~AboutDialog() override;

  /// Brings the form up, with everything as at the start unless it is on show already.
  void open() override;
  void reject() override;

 private:
  void refresh();

  About& about_;
  Appearance& look_;
  QLabel* picture_;
  QLabel* version_;
  QLabel* status_;
  QPushButton* check_;
};

}  // namespace vantrel
