#include "screens/page_setup_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

namespace vantrel {

namespace {

struct MarginRow {
  const char* caption;
  const char* name;
  double PaperSetup::*value;
};
constexpr MarginRow kMargins[] = {{"&Left margin", "left", &PaperSetup::left},
                                  {"&Top margin", "top", &PaperSetup::top},
                                  {"&Right margin", "right", &PaperSetup::right},
                                  {"&Bottom margin", "bottom", &PaperSetup::bottom}};

}  // namespace

PageSetupDialog::PageSetupDialog(const PaperSetup& setup, QWidget* owner)
    : QDialog(owner), paper_(new QComboBox(this)), orientation_(new QComboBox(this)) {
  setObjectName("PageSetup");
  setWindowTitle("Page Setup");
  for (const PaperKind& paper : kPapers) paper_->addItem(paper.name);
  paper_->setObjectName("paper");
  paper_->setCurrentIndex(static_cast<int>(setup.paper));
  for (const char* name : kOrientationNames) orientation_->addItem(name);
  orientation_->setObjectName("orientation");
  orientation_->setToolTip("Automatic lets graphs and wide drawings lie and the rest stand");
  orientation_->setCurrentIndex(static_cast<int>(setup.orientation));
  auto* rows = new QFormLayout(this);
  rows->addRow("&Paper", paper_);
  rows->addRow("&Orientation", orientation_);
  for (std::size_t i = 0; i < margins_.size(); ++i) {
    margins_[i] = new QDoubleSpinBox(this);
    margins_[i]->setObjectName(kMargins[i].name);
    margins_[i]->setRange(PaperSetup::kLeastMargin, PaperSetup::kMostMargin);
    margins_[i]->setDecimals(1);
    margins_[i]->setSuffix(" mm");
    margins_[i]->setValue(setup.*kMargins[i].value);
    rows->addRow(kMargins[i].caption, margins_[i]);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  rows->addRow(buttons);
}

PaperSetup PageSetupDialog::setup() const {
  PaperSetup setup;
  setup.paper = static_cast<std::size_t>(paper_->currentIndex());
  setup.orientation = static_cast<PaperOrientation>(orientation_->currentIndex());
  for (std::size_t i = 0; i < margins_.size(); ++i) setup.*kMargins[i].value = margins_[i]->value();
  return setup;
}

bool edit_page_setup(Session& session, QWidget* owner) {
  PageSetupDialog dialog(session.paperSetup(), owner);
  if (dialog.exec() != QDialog::Accepted) return false;
  session.paperSetup(dialog.setup());
  return true;
}

}  // namespace vantrel
