#include "screens/explain_page.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "screens/page_parts.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kNameCharacters = 24;
constexpr const char* kNoCalculation =
    "Nothing to explain yet: find the components first, then pick one here";
constexpr const char* kPick = "Pick a component to see how it came by its value";

QTreeWidgetItem* make_item(const ExplainNode& node, int row_height) {
  auto* item = new QTreeWidgetItem({to_qstring(node.label), to_qstring(node.text)});
  item->setToolTip(1, to_qstring(node.text));
  item->setSizeHint(1, QSize(0, row_height));  // the width of the last column is what is left
  for (const ExplainNode& child : node.children) item->addChild(make_item(child, row_height));
  return item;
}

}  // namespace

ExplainPage::ExplainPage(Workbench bench, QWidget* parent)
    : QWidget(parent),
      bench_(std::move(bench)),
      search_(new QLineEdit(this)),
      names_(new QListWidget(this)),
      note_(new QLabel(this)),
      tree_(new QTreeWidget(this)) {
  note_->setObjectName("Explain.note");
  note_->setForegroundRole(QPalette::PlaceholderText);
  tree_->setObjectName("Explain.tree");
  tree_->setAccessibleName("Explanation");
  tree_->setHeaderLabels({"Step", "Value"});
  tree_->setAlternatingRowColors(true);
  tree_->header()->setStretchLastSection(true);
  auto* right = new QWidget(this);
  auto* column = new QVBoxLayout(right);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap / 2);
  column->addWidget(note_);
  column->addWidget(tree_, 1);
  auto* parts = new QSplitter(this);
  parts->setChildrenCollapsible(false);
  parts->addWidget(makeNames());
  parts->addWidget(right);
  parts->setStretchFactor(1, 1);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->addWidget(parts);
  connect(search_, &QLineEdit::textChanged, this, &ExplainPage::filter);
  connect(names_, &QListWidget::currentRowChanged, this, &ExplainPage::explain,
          Qt::QueuedConnection);
}

QWidget* ExplainPage::makeNames() {
  auto* left = new QWidget(this);
  left->setMinimumWidth(fontMetrics().averageCharWidth() * kNameCharacters);
  auto* box = new QVBoxLayout(left);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  auto* label = new QLabel("&Component", left);
  label->setBuddy(search_);
  search_->setObjectName("Explain.search");
  search_->setAccessibleName("Search components");
  search_->setPlaceholderText("Search");
  search_->setClearButtonEnabled(true);
  search_->addAction(bench_.look.icon("search", Role::Muted), QLineEdit::LeadingPosition);
  names_->setObjectName("Explain.names");
  names_->setAccessibleName("Components");
  box->addWidget(label);
  box->addWidget(search_);
  box->addWidget(names_, 1);
  return left;
}

void ExplainPage::refresh() {
  // The variables are in motion while a calculation runs; its end asks again.
  if (bench_.session.isBusy()) return;
  const QListWidgetItem* chosen = names_->currentItem();
  const QString name = chosen == nullptr ? QString() : chosen->text();
  {
    const QSignalBlocker quiet(names_);
    names_->clear();
    for (const std::string& each : bench_.session.explain().names()) {
      add_row(*names_, to_qstring(each));
    }
    const auto same = names_->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    names_->setCurrentItem(same.isEmpty() ? nullptr : same.front());
  }
  filter();
  explain();
}

void ExplainPage::filter() {
  const QString wanted = search_->text().trimmed();
  for (int row = 0; row < names_->count(); ++row) {
    QListWidgetItem* item = names_->item(row);
    item->setHidden(!item->text().contains(wanted, Qt::CaseInsensitive));
  }
}

void ExplainPage::explain() {
  if (bench_.session.isBusy()) return;
  tree_->clear();
  note_->setText(names_->count() == 0 ? kNoCalculation : kPick);
  const QListWidgetItem* chosen = names_->currentItem();
  note_->setVisible(chosen == nullptr);
  if (chosen == nullptr) return;
  const auto root = bench_.session.explain().tree(chosen->text().toStdString());
  if (!root) return;
  QTreeWidgetItem* item = make_item(*root, tree_->fontMetrics().height() + kRowPadding);
  tree_->addTopLevelItem(item);
  item->setExpanded(true);
  for (int i = 0; i < item->childCount(); ++i) {
    // The rule's lists are open at once; the way of an input is opened on request.
    if (item->child(i)->text(0) == "Rule") item->child(i)->setExpanded(true);
  }
  tree_->resizeColumnToContents(0);
  tree_->setCurrentItem(item);
}

}  // namespace vantrel
