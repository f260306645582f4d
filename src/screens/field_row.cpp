#include "screens/field_row.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

struct TickCaption {
  const char* field;
  const char* caption;
};

// The ticks that messages name; any other is "Fix".
constexpr TickCaption kTickCaptions[] = {
    {"LValue", "Set L"}, {"CValue", "Set C"}, {"pfc_input_power", "Lamp Power"}};

QString tick_caption(const VTLValue& field) {
  for (const TickCaption& row : kTickCaptions) {
    if (field.Name() == row.field) return row.caption;
  }
  return "Fix";
}

QString object_name(const VTLValue& field) {
  QString name = to_qstring(field.GetOwnerForm().name()) + "." + to_qstring(field.Name());
  if (field.Index() >= 0) name += "." + QString::number(field.Index());
  return name;
}

}  // namespace

FieldRow::FieldRow(VTLValue& field, Appearance& look, QGridLayout& grid, int row, QWidget& parent)
    : QObject(&parent),
      field_(field),
      label_(new QLabel(&parent)),
      editor_(new ValueEditor(field, look, &parent)),
      unit_(new QLabel(&parent)) {
  const QString name = object_name(field);
  editor_->setObjectName(name);
  label_->setObjectName(name + ".label");
  unit_->setObjectName(name + ".unit");
  unit_->setForegroundRole(QPalette::PlaceholderText);
  label_->setBuddy(editor_);
  grid.addWidget(label_, row, kLabel);
  grid.addWidget(editor_, row, kValue);
  grid.addWidget(unit_, row, kUnit);
  if (field.ValueFix()) {
    tick_ = new QCheckBox(tick_caption(field), &parent);
    tick_->setObjectName(name + ".tick");
    tick_->setAccessibleName(tick_caption(field) + ", " + to_qstring(field.ValueLabel()));
    tick_->setToolTip("Ticked, the value is yours and calculations keep it");
    grid.addWidget(tick_, row, kTick);
    connect(tick_, &QCheckBox::clicked, this, [this](bool on) {
      field_.SetFixValue(on);
      emit edited();
    });
  }
  connect(editor_, &ValueEditor::committed, this, &FieldRow::edited);
  connect_view(field.displayChanged, this, [this] { refresh(); });
  refresh();
}

void FieldRow::refresh() {
  const QString label = to_qstring(field_.ValueLabel()).simplified();
  if (label_->text() != label) label_->setText(label);
  const QString unit = to_qstring(field_.UnitText());
  if (unit_->text() != unit) unit_->setText(unit);
  if (tick_ != nullptr) tick_->setChecked(field_.IsFixed());
}

int FieldRow::unitWidth() const {
  const QFontMetrics metrics(unit_->font());
  const QString base = to_qstring(field_.ValueBaseUnits());
  if (field_.StyleType() != kLockedPrefixed) {
    return metrics.horizontalAdvance(to_qstring(field_.UnitText()));
  }
  return metrics.horizontalAdvance("M" + base);
}

void FieldRow::setShown(bool shown) {
  shown_ = shown;
  label_->setVisible(shown);
  editor_->setVisible(shown);
  unit_->setVisible(shown);
  if (tick_ != nullptr) tick_->setVisible(shown);
}

}  // namespace vantrel
