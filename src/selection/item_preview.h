#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/screen.h"
#include "database/adoaccess.h"
#include "selection/details.h"

namespace vantrel {

/// A value that an item would load, as its field would show it.
struct PreviewRow {
  std::string label;
  std::string value;
  std::string unit;
};

/// Most rows of a preview.
inline constexpr std::size_t kMostPreviewRows = 10;

/// Tells what an item would load before it is selected: the inputs of the advanced screen that its
/// row fills, resolved for the present IC and configuration, without the multiples that a
/// configuration puts on them. Nothing of the design changes and nothing is reported.
class ItemPreview {
 public:
  /// `is_shown` tells whether a field of `advanced` takes part in the present design. All arguments
  /// must outlive the preview.
  ItemPreview(adoaccess_class& database, SelectionDetails& details, Screen& advanced,
              std::function<bool(const VTLValue&)> is_shown);

  /// The first rows of item `id` of a slot, in the order in which they would be loaded. Empty for
  /// an item that loads no input or that does not exist.
  std::vector<PreviewRow> rows(int slot, std::int32_t id) const;

 private:
  adoaccess_class& database_;
  SelectionDetails& details_;
  Screen& advanced_;
  std::function<bool(const VTLValue&)> is_shown_;
};

}  // namespace vantrel
