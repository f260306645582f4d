#pragma once

#include <QDialog>
#include <array>

#include "app/session.h"

class QComboBox;
class QDoubleSpinBox;

namespace vantrel {

/// Paper, orientation and margins of everything that is printed.
class PageSetupDialog : public QDialog {
  Q_OBJECT

 public:
  PageSetupDialog(const PaperSetup& setup, QWidget* owner);

  PaperSetup setup() const;

 private:
  QComboBox* paper_;
  QComboBox* orientation_;
  /// Left, top, right, bottom.
  std::array<QDoubleSpinBox*, 4> margins_{};
};

/// Lets the user change the page setup and remembers it; false on Cancel.
bool edit_page_setup(Session& session, QWidget* owner);

}  // namespace vantrel
