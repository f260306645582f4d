#include "app/sweep_plan.h"

#include <algorithm>
#include <charconv>

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr std::array<const char*, kSlotCount> kSlotWords{"Control IC", "Line input", "Lamp",
                                                         "Configuration"};

bool is_item(const ValidItem& item, const std::string& wanted) {
  return trimmed(item.Name) == wanted || trimmed(item.PullDownName) == wanted ||
         general_text(item.ID) == wanted;
}

/// Walks through the selections. A group's rule names items of earlier slots only, so what a slot
/// offers depends on the slots before it and on nothing else.
class Walk {
 public:
  Walk(Session& session, const SelectionOptions& filters)
      : session_(session),
        filters_{trimmed(filters.ic), trimmed(filters.input), trimmed(filters.lamp),
                 trimmed(filters.config)} {}

  SweepPlan run(std::string& why) {
    for (int slot = 0; slot < kSlotCount; ++slot) mark(slot, -1);
    descend(0);
    if (plan_.combinations.empty()) why = reason();
    return std::move(plan_);
  }

 private:
  void mark(int slot, std::int32_t id) { session_.bar("Simple")->SetInfo(slot, id, ""); }

  void descend(int slot) {
    if (slot == kSlotCount) {
      plan_.combinations.push_back(place_);
      return;
    }
    const auto index = static_cast<std::size_t>(slot);
    session_.browser().Setup(slot);
    std::vector<ValidItem> items = session_.browser().ValidItems();
    std::ranges::sort(items, {}, &ValidItem::ID);
    for (const ValidItem& item : items) {
      if (!filters_[index].empty() && !is_item(item, filters_[index])) continue;
      plan_.names[index].emplace(item.ID, trimmed(item.Name));
      place_[index] = item.ID;
      mark(slot, item.ID);
      descend(slot + 1);
    }
    mark(slot, -1);
  }

  std::string reason() const {
    for (std::size_t slot = 0; slot < filters_.size(); ++slot) {
      if (!plan_.names[slot].empty()) continue;
      if (filters_[slot].empty()) break;
      return std::string(kSlotWords[slot]) + " '" + filters_[slot] +
             "' is unknown or not allowed here";
    }
    return "The selection rules allow no such combination";
  }

  Session& session_;
  std::array<std::string, kSlotCount> filters_;
  Combination place_{};
  SweepPlan plan_;
};

bool read_number(std::string_view text, std::size_t& number) {
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end;
}

}  // namespace

std::string combination_key(const Combination& combination) {
  std::string key;
  for (const std::int32_t id : combination) key += (key.empty() ? "" : "-") + general_text(id);
  return key;
}

SweepPlan sweep_plan(Session& session, const SelectionOptions& filters, std::string& why) {
  return Walk(session, filters).run(why);
}

std::optional<Shard> parse_shard(std::string_view text) {
  const std::size_t slash = text.find('/');
  Shard shard;
  if (slash == std::string_view::npos || !read_number(text.substr(0, slash), shard.index) ||
      !read_number(text.substr(slash + 1), shard.count) || shard.index < 1 ||
      shard.index > shard.count) {
    return std::nullopt;
  }
  return shard;
}

std::vector<Combination> shard_of(const std::vector<Combination>& all, const Shard& shard) {
  std::vector<Combination> part;
  for (std::size_t k = 0; k < all.size(); ++k) {
    if (k % shard.count == shard.index - 1) part.push_back(all[k]);
  }
  return part;
}

}  // namespace vantrel
