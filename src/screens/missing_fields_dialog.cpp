#include "screens/missing_fields_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/appearance.h"
#include "screens/theme_style.h"

namespace vantrel {

MissingFieldsDialog::MissingFieldsDialog(MissingFields& missing, QWidget* parent)
    : QDialog(parent), missing_(missing), list_(new QListWidget(this)) {
  setObjectName("MissingFields");
  setWindowTitle("Missing Fields");
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(12, 12, 12, 12);
  auto* caption = new QLabel("&The calculation needs a value in these fields:", this);
  caption->setBuddy(list_);
  box->addWidget(caption);
  list_->setObjectName("MissingFields.list");
  list_->setAccessibleName("Missing fields");
  for (const std::string& line : missing.PrepareToShow()) list_->addItem(to_qstring(line));
  if (list_->count() > 0) list_->setCurrentRow(0);
  box->addWidget(list_);
  auto* buttons = new QDialogButtonBox(this);
  go_ = buttons->addButton("&Go to", QDialogButtonBox::ActionRole);
  ThemeStyle::setMainAction(*go_);
  go_->setEnabled(list_->count() > 0);
  buttons->addButton(QDialogButtonBox::Close);
  box->addWidget(buttons);
  connect(go_, &QPushButton::clicked, this, [this] { goTo(); });
  connect(list_, &QListWidget::itemActivated, this, [this] { goTo(); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  resize(460, 320);
}

void MissingFieldsDialog::goTo() {
  const int row = list_->currentRow();
  // The list of the model may have been made anew while this window was open.
  if (row < 0 || row >= missing_.CountItems()) return;
  missing_.GoToField(static_cast<std::size_t>(row));
}

}  // namespace vantrel
