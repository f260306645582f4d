#include "screens/output_circuit_window.h"

#include <QCloseEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QSvgRenderer>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr std::string_view kFolder = "\\Graphics\\TimeDomainRCL\\";
/// Width of a drawing to its height.
constexpr double kShape = 160.0 / 96;
constexpr int kLinesHigh = 6;

QByteArray drawing_of(const ProgramFolder& folder, Trace trace, int number) {
  std::string path(kFolder);
  path.append(trace_row(trace).label).append(" ").append(std::to_string(number)).append(".svg");
  const auto found = folder.find(path);
  if (!found) return {};
  QFile file(QString::fromStdString(found->string()));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

CircuitPart::CircuitPart(Workbench bench, std::size_t image, QWidget* parent)
    : QAbstractButton(parent), bench_(bench), image_(image) {
  const TraceRow& row = trace_row(this->image().trace);
  for (std::size_t i = 0; i < drawings_.size(); ++i) {
    drawings_[i] = drawing_of(bench.session.folder(), row.trace, static_cast<int>(i) + 1);
  }
  setObjectName("RCLSelectorImage." + QString::number(image));
  setText(to_qstring(row.caption));
  setAccessibleName(text());
  setToolTip("Show or hide " + text());
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  connect(this, &QAbstractButton::clicked, this,
          [this] { bench_.session.outputCircuit().click(image_); });
  follow();
}

QSize CircuitPart::sizeHint() const {
  const QFontMetrics metrics(font());
  const int height = kLinesHigh * metrics.height();
  return {std::max(static_cast<int>(height * kShape), metrics.horizontalAdvance(text()) + 12),
          height + metrics.height() + 8};
}

void CircuitPart::follow() {
  setChecked(image().picture == 2);
  update();
}

// The grounds are pale in both themes, and so the inks on them stay dark.
void CircuitPart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), to_qcolor(image().background));
  const int words = QFontMetrics(font()).height() + 8;
  // The wires of neighbours meet at the edges, so each drawing takes the whole width.
  const QRectF place(0, 0, width(), height() - words);
  QSvgRenderer renderer(drawings_[static_cast<std::size_t>(image().picture) - 1]);
  renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
  renderer.render(&painter, place);
  painter.setPen(to_qcolor(theme_colour(Role::Text, Theme::Light)));
  painter.drawText(QRectF(0, place.bottom(), width(), words), Qt::AlignCenter, text());
  if (!hasFocus()) return;
  painter.setPen(QPen(to_qcolor(theme_colour(Role::Accent, Theme::Light)), 2));
  painter.drawRect(rect().adjusted(2, 2, -2, -2));
}

OutputCircuitWindow::OutputCircuitWindow(Workbench bench) : QWidget(nullptr), bench_(bench) {
  TimeDomainRCL& circuit = bench.session.outputCircuit();
  setObjectName(to_qstring(circuit.name()));
  setWindowTitle(to_qstring(circuit.caption()));
  setWindowFlags(Qt::Tool);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    parts_[i] = new CircuitPart(bench, i, this);
    row->addWidget(parts_[i]);
  }
  connect_view(circuit.layoutChanged, this, [this] {
    for (CircuitPart* part : parts_) part->follow();
  });
}

void OutputCircuitWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    bench_.session.outputCircuit().visible(false);
    return;
  }
  QWidget::keyPressEvent(event);
}

void OutputCircuitWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  bench_.session.outputCircuit().visible(false);
}

}  // namespace vantrel
