#pragma once

#include "screens/x_button.h"
#include "waveforms/time_domain_view_traces.h"

namespace vantrel {

/// The toggle of a trace: a dark chip with a sample of its pen, pale when the trace is off.
class TraceButton : public XButton {
  Q_OBJECT

 public:
  TraceButton(Trace trace, Appearance& look, QWidget* parent = nullptr);

  Trace trace() const { return trace_; }
  QSize sizeHint() const override;

 protected:
  void DrawXButton(QPainter& painter) override;

 private:
  Trace trace_;
};

}  // namespace vantrel
