#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/selection_options.h"
#include "app/session.h"
#include "selection/slots.h"

namespace vantrel {

/// The items of one design, by slot.
using Combination = std::array<std::int32_t, kSlotCount>;

/// The name of a combination that never changes: its four IDs, "1-12-25-0".
std::string combination_key(const Combination& combination);

/// What a sweep designs, in its order, and how the items are called.
struct SweepPlan {
  std::vector<Combination> combinations;
  std::array<std::map<std::int32_t, std::string>, kSlotCount> names;
};

/// Every combination that the selection rules allow, slot by slot in the order of the IDs: the IC
/// changes slowest, the configuration fastest. A filter, an item's name or number, keeps the
/// combinations with that item. `why` tells when nothing is left; the plan is empty then.
///
/// The bar of `Simple` is moved through all selections without any data being loaded, so the
/// session is of no use for a design until all four slots have been selected.
SweepPlan sweep_plan(Session& session, const SelectionOptions& filters, std::string& why);

/// One of `count` equal parts of a sweep; `index` counts from 1.
struct Shard {
  std::size_t index = 1;
  std::size_t count = 1;
};

/// Reads "I/N"; nothing unless 1 <= I <= N.
std::optional<Shard> parse_shard(std::string_view text);
/// The combinations of a shard: every one whose place, counted from 0, leaves the remainder I - 1
/// when divided by N.
std::vector<Combination> shard_of(const std::vector<Combination>& all, const Shard& shard);

}  // namespace vantrel
