#include "services/debug_utils_usage.h"

#include <algorithm>
#include <optional>

#include "components/design_rows.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

constexpr const char* kStageLists[] = {"Input", "IC", "Config"};
constexpr std::string_view kDisallowPrefixes[] = {"INPUT:", "IC:", "CONFIG:"};

std::vector<std::string> upper_entries(const std::string& text) {
  std::vector<std::string> entries = entries_of(text, ',');
  for (std::string& entry : entries) entry = upper(entry);
  return entries;
}

}  // namespace

UsageTarget::UsageTarget(const RecordSet& info)
    : name_(text_field(info, "Target")), table_(text_field(info, "BOMTable")) {
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    parts_[kind] = entries_of(text_field(info, kStageLists[kind]), '/');
  }
}

bool UsageTarget::readRows(adoaccess_class& database) {
  RecordSet rows;
  if (!database.read("select * from [" + table_ + "] Order By Stage", rows, true)) return false;
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    const std::string stage = text_field(rows, "Stage");
    rows_.push_back({.stage = stage,
                     .stages = entries_of(stage, ','),
                     .references = upper_entries(text_field(rows, "RefDes")),
                     .disallow = entries_of(text_field(rows, "Disallow"), ',')});
  }
  return true;
}

std::vector<UsageHit> UsageTarget::hits(std::string_view reference) const {
  std::vector<UsageHit> found;
  for (const UsageRow& row : rows_) {
    for (const std::string& listed : row.references) {
      if (listed == reference) addHits(row, found);
    }
  }
  return found;
}

void UsageTarget::addHits(const UsageRow& row, std::vector<UsageHit>& found) const {
  for (const std::string& entry : row.stages) {
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      for (const std::string& part : parts_[kind]) {
        if (!entry.starts_with(part) || entry.size() == part.size()) continue;
        std::string value = entry.substr(part.size());
        if (kind == kIc && value != name_) continue;
        found.push_back({&row, kind, std::move(value)});
      }
    }
  }
}

/// Selections of different kinds go together unless one of the rows leaves the other's out.
bool UsageTarget::meet(const UsageHit& one, const UsageHit& other) const {
  if (one.kind == other.kind && one.value != other.value) return false;
  std::array<std::optional<std::string>, kKinds> selected;
  selected[kIc] = name_;
  selected[one.kind] = one.value;
  selected[other.kind] = other.value;
  for (const UsageRow* row : {one.row, other.row}) {
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      if (!selected[kind]) continue;
      const std::string ruled_out = std::string(kDisallowPrefixes[kind]) + *selected[kind];
      for (const std::string& entry : row->disallow) {
        if (equal_ignoring_case(entry, ruled_out)) return false;
      }
    }
  }
  return true;
}

}  // namespace vantrel
