#pragma once

#include <string>

#include "app/session.h"

namespace vantrel {

/// The inputs as the selected items set them, loaded once more on a screen of their own.
class SelectedInputs {
 public:
  static constexpr const char* kDefault = "default";

  explicit SelectedInputs(Session& session);

  /// Where the value of a design input comes from: "default", or what it was before
  /// it was changed.
  std::string origin(const VTLValue& field) const;

 private:
  SysMsg messages_;  ///< Nobody is told twice what is wrong with an item.
  FieldContext context_;
  RunState state_;
  mutable Advanced defaults_;
};

}  // namespace vantrel
