#pragma once

#include "core/device_context.h"

namespace vantrel {

/// One scroll bar, in pixels of the screen.
struct ImageScrollBar {
  bool visible = false;  ///< False when the document fits.
  double most = 0;       ///< Largest offset.
  double page = 0;       ///< What the view shows of the document at a time.
  double offset = 0;
};

/// Which part of a document a window shows, and how large. Documents are measured in pixels of 1/96
/// inch, the view in pixels of the screen.
class ImageView {
 public:
  static constexpr double kLastLevel = 5;  ///< Zoom levels are 0 to 5.

  double level() const { return level_; }
  /// Pixels of the screen to one of the document: 4 divided by 2 to the power of the level.
  double scale() const;

  /// Both keep the middle of the view in its place as far as the document allows.
  void setDocument(Size size);
  void setViewport(Size size);

  /// One level larger or smaller. The point of the document at `anchor`, a place in the view, stays
  /// there; without one the middle of the view does. False at the last level, which ends a step
  /// that would lead beyond it.
  bool zoomIn() { return setLevel(level_ - 1, middle()); }
  bool zoomOut() { return setLevel(level_ + 1, middle()); }
  bool zoomIn(Point anchor) { return setLevel(level_ - 1, anchor); }
  bool zoomOut(Point anchor) { return setLevel(level_ + 1, anchor); }
  /// The level at which the document fills the view and is seen as a whole, between two whole ones
  /// as a rule; the last one when there is none.
  void fit();

  /// Offsets beyond the document's ends are moved to them.
  void scrollTo(Point offset);
  const ImageScrollBar& horizontal() const { return horizontal_; }
  const ImageScrollBar& vertical() const { return vertical_; }

  /// Where the document's corner lies in the view; a document that fits is centred.
  Point origin() const;
  Point toView(Point document) const;
  Point toDocument(Point view) const;

  /// Puts a point of the document, in percent of its width and height, in the middle of the view.
  void MoveDisplayTo(double x_percent, double y_percent);
  /// Scrolls just so far that the middle of a box of the document lies in the middle third of the
  /// view.
  void showInMiddle(const Box& document);
  /// Which point of the document is in the middle of the view, and which at its left and top edge,
  /// in percent of its width and height. 0 for an empty document.
  double GetXPercentageOfCentre() const;
  double GetYPercentageOfCentre() const;
  double GetXPercentageOfLeft() const;
  double GetYPercentageOfTop() const;

 private:
  bool setLevel(double level, Point anchor);
  void recalculate_scrollbars();
  /// Moves a point of the document to a place in the view.
  void place(Point document, Point view);
  Point middle() const { return {viewport_.width / 2, viewport_.height / 2}; }

  double level_ = 0;
  Size document_;
  Size viewport_;
  ImageScrollBar horizontal_;
  ImageScrollBar vertical_;
};

}  // namespace vantrel
