#pragma once

#include <QAbstractButton>
#include <array>

#include "screens/design_window.h"

namespace vantrel {

/// One part of the output circuit: its drawing on the ground that the model gives it. A click shows
/// or hides the trace that belongs to it.
class CircuitPart : public QAbstractButton {
  Q_OBJECT

 public:
  CircuitPart(Workbench bench, std::size_t image, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
  /// Takes picture and ground over from the model.
  void follow();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const RCLSelectorImage& image() const { return bench_.session.outputCircuit().images()[image_]; }

  Workbench bench_;
  std::size_t image_;
  std::array<QByteArray, 2> drawings_;
};

/// The tool window beside the time-domain graph: source, choke, lamp and capacitor in one circuit,
/// with an arrow at those whose traces are shown.
class OutputCircuitWindow : public QWidget {
  Q_OBJECT

 public:
  explicit OutputCircuitWindow(Workbench bench);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  Workbench bench_;
  std::array<CircuitPart*, 5> parts_{};
};

}  // namespace vantrel
