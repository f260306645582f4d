#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"
#include "waveforms/time_domain_cursor.h"
#include "waveforms/time_domain_measure.h"
#include "waveforms/time_domain_view.h"

namespace vantrel {

/// A slider beside an axis.
struct ScaleSlider {
  std::int32_t least = 1;
  std::int32_t most = 1;
  std::int32_t value = 1;
  bool enabled = true;
};

/// The scroll bar below the graph.
struct TimeScrollBar {
  static constexpr std::int32_t kMin = -32768;
  static constexpr std::int32_t kMax = 32767;
  static constexpr double kRange = kMax - kMin;
  std::int32_t value = kMin;
  std::int32_t largeChange = 1;
  bool visible = false;
  bool enabled = false;
};

/// A part of the start that is shown.
struct TimeDomainPlace {
  double window = 0;
  double position = 0;
  friend bool operator==(const TimeDomainPlace&, const TimeDomainPlace&) = default;
};

/// Where the paper of `PrintScreen` comes from.
struct TimeDomainPaper {
  std::function<void()> setLandscape;
  /// Size of the page in twips.
  std::function<Size()> pageSize;
  /// Starts a page; null when the user has cancelled.
  std::function<DeviceContext*()> startPage;
  std::function<void()> endDocument;
};

/// The form of the time-domain viewer without its widgets: what the window shows and does.
class GraphTimeDomain {
 public:
  static constexpr double kLeastWindow = 5.0;     ///< Microseconds.
  static constexpr double kMostWindow = 20000.0;  ///< Microseconds.
  static constexpr std::size_t kMostHistory = 100;
  static constexpr Size kPictureSize{1060, 612};  ///< Of an export without a window.
  enum Jump : std::int32_t { kStart, kIgnition, kRun, kEnd };

  /// Both must outlive the form.
  GraphTimeDomain(GraphTD& graph, TimeDomainView& view);

  /// Simulates the design's start. True when the result is above 0.
  bool Generate();
  /// Takes over a run that the graph has made otherwise; the view stays where it is, as far as the
  /// run goes.
  void takeRun();
  /// Shows the whole start from its beginning.
  void DrawGraph();
  void SetGraphView(double ForceWindow);
  bool IsShortTimeline() const { return short_timeline_; }
  /// Asks for a repaint; the window answers with `render`.
  void RedrawGraph() const;
  /// Microseconds; 0 and below stand for the window in force.
  void SetTimeWindow(double NewWindow);
  /// Colour of a toggle button; of the trace when it is on.
  Role SetButtonColours(Trace plot) const;
  bool GetCheckState(Trace plot) const { return shown_[plot]; }
  void SetCheckState(Trace plot, bool state);
  /// Prints one page, landscape; false when it was cancelled.
  bool PrintScreen(const TimeDomainPaper& paper);
  /// Where the readout of that size stands for a pointer, after filling `info`. Nothing while it is
  /// hidden.
  std::optional<Box> DisplayInfo(Point pointer, Size info_size);

  /// Draws the present view.
  bool render(DeviceContext& surface) { return view_.RenderTimeDomain(surface, request()); }
  TimeDomainRequest request(bool printing = false) const;
  /// The present view as a picture, with the measuring cursors.
  Picture picture();
  /// Size of the control on pictures.
  void pictureSize(Size size) { picture_size_ = size; }
  Size pictureSize() const { return picture_size_; }
  /// True once a view has been set.
  bool hasView() const { return has_view_; }

  void shortTimeline(bool condensed);
  void autofit(bool on);
  bool isAutofit() const { return autofit_; }
  /// Slider 0 is that of the voltage, 1 that of the current.
  void moveSlider(std::size_t slider, std::int32_t value);
  const ScaleSlider& slider(std::size_t index) const { return sliders_[index]; }
  /// The range below a slider: "±1000 V".
  std::string rangeText(std::size_t slider) const;

  const TimeScrollBar& timeScroll() const { return scroll_; }
  void scrollTo(std::int32_t value);
  /// By a fortieth of the window.
  void scrollLeft(bool left);
  void moveTo(double position);

  /// The span of a right drag between two pixels: its times, or nothing for a drag on one column.
  void zoomSpan(double from_x, double to_x);
  bool mnuZoomIn() const { return zoom_.has_value(); }
  void zoomIn();
  void zoomOut();
  bool mnuPrevious() const { return history_.size() >= 2; }
  void previousView();
  void wholeView();
  /// Zooms by a factor, below 1 to see more detail; what stands at that share of the plot's width
  /// stays where it is. Takes no place in the history.
  void zoomAbout(double share, double factor);
  void jumpTo(Jump where);
  /// "Start", "Ignition" or "Frequency Sweep", "Run", "End".
  std::array<std::string_view, 4> MnuJumpTo() const;

  /// The next way of reading out.
  void ToggleCursorInfo();
  std::string_view cursorCaption() const;
  const TDInfo& info() const { return info_; }

  const MeasuringCursors& cursors() const { return cursors_; }
  /// Sets a measuring cursor to what is under a pixel.
  void setCursor(bool b, double x);
  /// By whole columns.
  void moveCursor(bool b, std::int32_t columns);
  void toggleCursors();
  CursorTable cursorTable() const;

  /// Carries a key out: "Left", "Right", "+", "-", "Home", "End", "1" to "6", "V", "A",
  /// "Backspace", "Ctrl+Left", "Ctrl+Right" (cursor A), "Ctrl+Shift+Left" and "Ctrl+Shift+Right"
  /// (cursor B). False for any other.
  bool pressKey(std::string_view key);

  /// "preheat 249 Vpk, ignites ...": the run in one line.
  std::string summary() const { return start_summary(graph_); }
  /// The samples of the visible window; a Fault when there are none.
  std::string visibleCsv() const;

  bool isGenerated() const { return result_ > 0; }
  /// False for a run that has ended before the lamp ignited.
  bool isIgnited() const { return isGenerated() && graph_.StageTable()[2].FirstSample > 0; }
  double TotalTime() const { return total_; }
  double TimeWindow() const { return place_.window; }
  double TimePosition() const { return place_.position; }
  const std::vector<TimeDomainPlace>& ViewHistory() const { return history_; }

  /// Raised when the picture must be drawn anew.
  std::function<void()> onRedraw;
  /// Raised when the marks of the output circuit must be drawn anew.
  std::function<void()> onStates;

 private:
  void keep(double result);
  void remember();
  void place();
  void applySlider(std::size_t slider);
  void fit(std::size_t slider, double maximum);
  double cutOut() const;
  void findTotal();

  GraphTD& graph_;
  TimeDomainView& view_;
  double result_ = GraphTD::kFailed;
  double total_ = 0;
  TimeDomainPlace place_{kMostWindow, 0};
  std::vector<TimeDomainPlace> history_;
  std::optional<std::array<double, 2>> zoom_;
  bool short_timeline_ = true;
  bool autofit_ = false;
  bool has_view_ = false;
  Size picture_size_ = kPictureSize;
  TraceSet shown_;
  std::array<ScaleSlider, 2> sliders_{{{1, 20, 10}, {1, 50, 20}}};
  TimeScrollBar scroll_;
  TDInfo info_;
  MeasuringCursors cursors_;
};

/// One picture of the output circuit with its trace.
struct RCLSelectorImage {
  Trace trace = Trace::VIN;
  std::int32_t picture = 1;  ///< 2 while the trace is shown.
  Colour background;
};

/// The output circuit beside the graph: five pictures that show and toggle traces.
class TimeDomainRCL : public Screen {
 public:
  TimeDomainRCL(FieldContext& context, GraphTimeDomain& form);
  /// Brings the pictures up to date and shows the window.
  void display();
  void SetStates();
  void click(std::size_t image);
  const std::array<RCLSelectorImage, 5>& images() const { return images_; }

 private:
  GraphTimeDomain& form_;
  std::array<RCLSelectorImage, 5> images_{};
};

}  // namespace vantrel
