#include "screens/key_numbers_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kPictureSize = 16;
constexpr int kPictureGap = 6;
constexpr int kRows = 7;  // of a dimming IC; no other has more in a column
constexpr int kGapBetweenHalves = 16;
enum GridRow { kOutcomeRow, kNoteRow, kGapRow, kFirstNumberRow };
enum GridColumn { kLeftHalf = 0, kGap = 3, kRightHalf = 4, kColumns = 7 };

struct OutcomeLook {
  const char* picture;
  Role role;
};

OutcomeLook look_of(RunOutcome outcome) {
  switch (outcome) {
    case RunOutcome::OutOfDate:
      return {"clock", Role::Muted};
    case RunOutcome::NotComplete:
      return {"error", Role::Error};
    default:
      return {"check", Role::Ok};
  }
}

std::vector<NumberRow> rows_of(const std::vector<KeyNumber>& numbers) {
  std::vector<NumberRow> rows;
  for (const KeyNumber& number : numbers) {
    rows.push_back({to_qstring(number.label), to_qstring(number.value), to_qstring(number.unit)});
  }
  return rows;
}

}  // namespace

KeyNumbersPanel::KeyNumbersPanel(Appearance& look, QWidget* parent)
    : Panel({}, look, parent),
      picture_(new QLabel(this)),
      outcome_text_(new QLabel(this)),
      note_(new QLabel(this)) {
  setObjectName("results");
  captionLabel().setObjectName("results.heading");
  outcome_text_->setObjectName("results.outcome");
  outcome_text_->setWordWrap(true);
  outcome_text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  note_->setObjectName("results.note");
  note_->setWordWrap(true);
  auto* line = new QHBoxLayout;
  line->setSpacing(kPictureGap);
  line->addWidget(picture_, 0, Qt::AlignTop);
  line->addWidget(outcome_text_, 1);
  grid().addLayout(line, kOutcomeRow, 0, 1, kColumns);
  grid().addWidget(note_, kNoteRow, 0, 1, kColumns);
  grid().setRowMinimumHeight(kGapRow, 4);
  left_ = std::make_unique<NumberRows>(grid(), kFirstNumberRow, kLeftHalf, kRows, true, *this);
  right_ = std::make_unique<NumberRows>(grid(), kFirstNumberRow, kRightHalf, kRows, true, *this);
  grid().setColumnMinimumWidth(kGap, kGapBetweenHalves);
  grid().setColumnStretch(kLeftHalf, 1);
  grid().setColumnStretch(kRightHalf, 1);
  connect_view(look.changed, this, [this] { showOutcome(); });
}

void KeyNumbersPanel::show(const ResultSummary& summary) {
  captionLabel().setText(to_qstring(summary.heading()));
  outcome_ = summary.outcome();
  outcome_text_->setText(to_qstring(summary.outcomeText()));
  note_->setText(to_qstring(summary.note()));
  note_->setVisible(!note_->text().isEmpty());
  const auto numbers = summary.numbers();
  left_->show(rows_of(numbers[0]));
  right_->show(rows_of(numbers[1]));
  left_->setOld(outcome_ != RunOutcome::Complete);
  right_->setOld(outcome_ != RunOutcome::Complete);
  showOutcome();
}

void KeyNumbersPanel::showOutcome() {
  const OutcomeLook shown = look_of(outcome_);
  picture_->setPixmap(look_.pixmap(shown.picture, shown.role, kPictureSize, devicePixelRatioF()));
}

}  // namespace vantrel
