#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/session.h"
#include "core/signal.h"

namespace vantrel {

/// A number of the last run as the status lines show it.
struct KeyNumber {
  std::string label;
  std::string value;
  std::string unit;
};

/// A condition that a design should keep, as a number.
struct Margin {
  std::string label;
  std::string text;
  bool kept = true;
};

/// What the windows tell about the results on show: whether they fit the inputs, how the last run
/// ended, its key numbers, and whether the design has changed since it was stored. It decides
/// nothing and calculates nothing.
class DesignStatus {
 public:
  /// `session` must outlive the status.
  explicit DesignStatus(Session& session);

  enum class State {
    Empty,    ///< Nothing has been calculated for this selection.
    Current,  ///< The results fit the inputs.
    Stale,    ///< An input has changed since.
    Failed    ///< The last run ended early.
  };

  State state() const { return state_; }
  /// An input, a tick or a fixed value was changed by the user.
  void inputChanged();
  /// Something else that is stored with the design was changed, such as an input of a designer.
  void designChanged();

  /// First warning of the last run, empty without one.
  const std::string& warning() const { return warning_; }
  /// Last message of the last run, empty without one.
  const std::string& lastMessage() const { return last_message_; }
  /// "Calculation #4" with what the banner says of it; empty when nothing needs saying.
  std::string bannerText() const;
  /// Number of the calculation on show, 0 before the first.
  std::int32_t calculationNumber() const;
  /// "34 components in 24 lines"; empty without components.
  std::string componentCount() const;
  /// True when the last run from the simple screen took back values that the user had fixed.
  bool releasedFixedValues() const { return released_fixed_; }

  /// Run or maximum frequency, ignition, preheat, L and C, as far as they have a value.
  std::vector<KeyNumber> keyNumbers() const;
  /// Preheat voltage, run above the wanted frequency, ignition above run; what applies and is
  /// known.
  std::vector<Margin> margins() const;

  /// True when the design differs from what was last stored or from the one at start-up.
  bool isUnsaved() const { return unsaved_; }
  /// The design was stored or has been replaced by a stored one.
  void stored();

  /// Raised when anything above has changed.
  Signal<> changed;

 private:
  void started();
  void ended(bool succeeded);
  void emptied();
  void set(State state);

  Session& session_;
  State state_ = State::Empty;
  std::size_t messages_before_ = 0;
  std::string warning_;
  std::string last_message_;
  bool had_fixed_ = false;
  bool released_fixed_ = false;
  bool unsaved_ = false;
  bool has_results_ = false;
  bool results_fit_ = false;  ///< No input has changed since the operating points were calculated.
  std::int32_t number_before_ = 0;
};

}  // namespace vantrel
