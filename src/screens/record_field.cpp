#include "screens/record_field.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QValidator>
#include <algorithm>

#include "screens/c_tooltip.h"

namespace vantrel {

namespace {

constexpr int kRefusalTime = 400;  // ms
constexpr qreal kCorner = 3;
/// Longer than any text that an import takes: a line that cut it would save it cut.
constexpr int kLongestText = 1 << 24;

/// Lets no refused character come to those that the record holds already.
class CharacterFilter : public QValidator {
 public:
  CharacterFilter(const SQLTableEdit& edit, std::size_t field, QObject* parent)
      : QValidator(parent), edit_(edit), field_(field) {}

  State validate(QString& text, int&) const override {
    return refused(text) > refused(to_qstring(edit_.FieldText(field_))) ? Invalid : Acceptable;
  }

 private:
  std::ptrdiff_t refused(const QString& text) const {
    const auto characters = text.toUcs4();
    return std::ranges::count_if(characters, [this](auto character) {
      return edit_.KeyPress(field_, static_cast<char32_t>(character)) == U'\0';
    });
  }

  const SQLTableEdit& edit_;
  std::size_t field_;
};

}  // namespace

RecordLine::RecordLine(SQLTableEdit& edit, std::size_t field, Appearance& look, QWidget* parent)
    : QLineEdit(parent), look_(look), rule_(new CTooltip(look, this)), refusal_(new QTimer(this)) {
  setMaxLength(kLongestText);
  rule_->Icon = TooltipIcon::Warning;
  rule_->TipText = to_qstring(typing_rule(edit.Fields()[field].Flags));
  rule_->Create(*this);
  setValidator(new CharacterFilter(edit, field, this));
  refusal_->setSingleShot(true);
  refusal_->setInterval(kRefusalTime);
  connect(refusal_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
  connect(this, &QLineEdit::inputRejected, this, &RecordLine::refuse);
  connect(this, &QLineEdit::textEdited, this,
          [&edit, field](const QString& text) { edit.TypeField(field, text.toStdString()); });
}

void RecordLine::refuse() {
  refusal_->start();
  rule_->showAt(mapToGlobal(cursorRect().center()));
  update();
}

bool RecordLine::isRefusing() const { return refusal_->isActive(); }

void RecordLine::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (!isRefusing()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look_.colour(Role::Error), 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCorner, kCorner);
}

RecordField::RecordField(SQLTableEdit& edit, std::size_t field, Appearance& look, QGridLayout& grid,
                         QWidget* parent)
    : QObject(parent), edit_(edit), field_(field) {
  const FieldDefinition& definition = edit.Fields()[field];
  if (definition.FieldType == kFieldPulldown) {
    makeChoices(parent);
  } else {
    line_ = new RecordLine(edit, field, look, parent);
  }
  const QString caption = to_qstring(definition.Caption);
  const bool required = (definition.Flags & kFieldRequired) != 0;
  auto* label = new QLabel(required ? caption + " *" : caption, parent);
  label->setTextFormat(Qt::PlainText);
  label->setBuddy(&editor());
  editor().setObjectName(caption);
  editor().setAccessibleName(caption);
  if (required) editor().setAccessibleDescription("Must have a value");
  const int row = static_cast<int>(field);
  grid.addWidget(label, row, 0);
  grid.addWidget(&editor(), row, 1);
}

void RecordField::makeChoices(QWidget* parent) {
  choices_ = new QComboBox(parent);
  for (const FieldChoice& choice : edit_.Fields()[field_].Choices) {
    choices_->addItem(to_qstring(choice.Caption), to_qstring(choice.Value));
  }
  connect(choices_, &QComboBox::activated, this, [this](int index) {
    edit_.TypeField(field_, choices_->itemData(index).toString().toStdString());
  });
}

QWidget& RecordField::editor() const {
  if (line_ != nullptr) return *line_;
  return *choices_;
}

void RecordField::refresh() {
  const QString shown = to_qstring(edit_.FieldText(field_));
  editor().setEnabled(edit_.hasRecord());
  if (choices_ != nullptr) {
    choices_->setCurrentIndex(choices_->findData(shown));
  } else if (line_->text() != shown) {
    line_->setText(shown);
    line_->setCursorPosition(0);
  }
}

}  // namespace vantrel
