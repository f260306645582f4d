#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/device_context.h"
#include "core/ports.h"

namespace vantrel {

/// The rings about components: they flash for a while and then stay until they are taken away.
class ImageHighlight {
 public:
  static constexpr int kHalfPeriod = 300;  ///< Milliseconds of light, and of dark.
  static constexpr int kHalfPeriods = 6;

  struct Ring {
    std::string reference;
    Box symbol;  ///< In the document.
  };

  /// `redraw` is called whenever the rings look different from before.
  ImageHighlight(std::unique_ptr<Timer> timer, std::function<void()> redraw);

  void start(std::vector<Ring> rings);
  void stop();

  const std::vector<Ring>& rings() const { return rings_; }
  /// True in the light half-periods and when the flashing is over.
  bool isShown() const { return !rings_.empty() && phase_ % 2 == 0; }
  /// True when the flashing is over.
  bool isSteady() const { return !rings_.empty() && phase_ >= kHalfPeriods; }

  /// The box of the ellipse about a symbol of the document: its corners lie on it, and it is never
  /// so small that it is lost on the sheet.
  static Box ringBox(const Box& symbol);
  /// The part of the document that holds all rings.
  Box bounds() const;

 private:
  /// One half-period has passed.
  void tick();

  std::unique_ptr<Timer> FlashHighlightTimer_;
  std::function<void()> redraw_;
  std::vector<Ring> rings_;
  int phase_ = 0;
};

}  // namespace vantrel
