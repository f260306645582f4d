#include "services/debug_utils.h"

#include <algorithm>
#include <utility>

#include "components/design_rows.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

/// Entries of the pick-list that are no component.
constexpr std::size_t kFixedChoices = 2;

std::string count_text(std::size_t count) { return general_text(static_cast<std::int32_t>(count)); }

std::vector<std::string> references_of(const RecordSet& row) {
  std::vector<std::string> references = entries_of(text_field(row, "RefDes"), ',');
  for (std::string& reference : references) reference = upper(reference);
  return references;
}

}  // namespace

DebugUtils::DebugUtils(adoaccess_class& database, SysMsg& messages)
    : database_(database), messages_(messages) {}

void DebugUtils::line(const std::string& text) {
  report_.push_back(text);
  if (onLine) onLine(text);
}

void DebugUtils::finding(const std::string& text) {
  ++findings_;
  line(text);
}

void DebugUtils::load() {
  std::set<std::string> references;
  const auto targets = readTargets(false);
  for (const UsageTarget& target : targets.value_or(std::vector<UsageTarget>())) {
    for (const UsageRow& row : target.rows()) {
      references.insert(row.references.begin(), row.references.end());
    }
  }
  readDescriptions();
  for (const Description& description : descriptions_) references.insert(description.reference);
  components_ = {kSelectComponent, kAllReferences};
  components_.insert(components_.end(), references.begin(), references.end());
}

bool DebugUtils::Start(std::string_view test, std::string_view component) {
  if (!Begin(test, component)) return false;
  while (Step()) {
  }
  return true;
}

bool DebugUtils::Step() {
  if (steps_done_ >= steps_.size()) return false;
  steps_[steps_done_]();
  return ++steps_done_ < steps_.size();
}

bool DebugUtils::Begin(std::string_view test, std::string_view component) {
  report_.clear();
  findings_ = 0;
  steps_.clear();
  steps_done_ = 0;
  if (test == kDescriptions) {
    beginDescriptions();
    return true;
  }
  if (test != kUsage) {
    messages_.msg(kName, "You must select a valid test");
    return false;
  }
  load();
  const bool known = std::ranges::find(components_, component) != components_.end();
  if (!known || component == kSelectComponent) {
    messages_.msg(kName, "You must select a valid reference designator to check");
    return false;
  }
  beginUsage(std::string(component));
  return true;
}

// The check of the descriptions

bool DebugUtils::PrepareBOMTables(std::string_view target) {
  RecordSet info;
  if (!database_.read("select * from Target:Info where Target = ?", {Variant(target)}, info)) {
    finding("Could not find Target:Info table in VTL Database");
    return false;
  }
  const std::string table = text_field(info, "BOMTable");
  if (table.empty()) {
    finding("Entry in Target:Info has empty or missing BOMTable Entry");
    return false;
  }
  if (std::ranges::find(tables_, table) == tables_.end()) tables_.push_back(table);
  return true;
}

void DebugUtils::prepareAllTables() {
  tables_.clear();
  RecordSet targets;
  if (!database_.read("select Target from [Target:Info] order by TargetNo", targets)) {
    finding("Could not find Target:Info table in VTL Database");
    return;
  }
  for (; adoaccess_class::RSOK(targets); targets.MoveNext()) {
    PrepareBOMTables(NullToText(targets.at(0)));
  }
}

void DebugUtils::BOMReport(int record, const std::string& table, const std::string& text,
                           const std::string& stage, const std::string& reference) {
  finding("WARNING: BOM Record " + general_text(record) + " of table " + table + " : " + text +
          "(Stage '" + stage + "', RefDes '" + reference + "')");
}

void DebugUtils::readDescriptions() {
  descriptions_.clear();
  RecordSet rows;
  database_.read("select * from ComponentDescriptions", rows, true);
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    const bool rounded = !adoaccess_class::rs_get(rows, "DecPlaces").is_empty();
    descriptions_.push_back(
        {.reference = text_field(rows, "RefDes"),
         .described = !text_field(rows, "description").empty(),
         .is_number = rounded || flag_field(rows, "MNR") || flag_field(rows, "MNC")});
  }
}

void DebugUtils::beginDescriptions() {
  readDescriptions();
  if (descriptions_.empty()) finding("ERROR: Could not find component descriptions in database");
  prepareAllTables();
  with_unit_.clear();
  unique_.clear();
  records_ = 0;
  // Units of all tables count for the rows of each.
  for (const std::string& table : tables_) {
    steps_.emplace_back([this, table] { collectUnits(table); });
  }
  for (const std::string& table : tables_) {
    steps_.emplace_back([this, table] { checkTable(table); });
  }
  steps_.emplace_back([this] { endDescriptions(); });
}

void DebugUtils::endDescriptions() {
  if (records_ == 0) finding("ERROR: Could not find BOM components in components database");
  for (const Description& description : descriptions_) {
    if (unique_.contains(description.reference)) continue;
    finding("WARNING: Component '" + description.reference +
            "' has a ComponentDescription but is not found in the BOM");
  }
  line(count_text(descriptions_.size()) + " component descriptions found");
  line("BOM has " + count_text(unique_.size()) + " unique components specified in " +
       general_text(records_) + " Records");
}

void DebugUtils::collectUnits(const std::string& table) {
  RecordSet rows;
  database_.read("select * from [" + table + "]", rows, true);
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    if (text_field(rows, "ValueUnit").empty()) continue;
    for (const std::string& reference : references_of(rows)) with_unit_.insert(reference);
  }
}

void DebugUtils::checkTable(const std::string& table) {
  RecordSet rows;
  if (!database_.read("select * from [" + table + "] Order By Stage", rows, true)) {
    finding("ERROR: Could not find BOM components table " + table + " in components database");
    return;
  }
  int record = 0;
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    checkRow(++record, table, rows);
    for (const std::string& reference : references_of(rows)) unique_.insert(reference);
  }
  records_ += record;
}

void DebugUtils::checkRow(int record, const std::string& table, const RecordSet& row) {
  const std::vector<std::string> references = references_of(row);
  if (references.empty()) {
    finding("ERROR: BOM Record " + general_text(record) + " of table " + table +
            " has missing reference designator field");
    return;
  }
  const auto warn = [&](const char* text) {
    BOMReport(record, table, text, text_field(row, "Stage"), text_field(row, "RefDes"));
  };
  if (flag_field(row, "Fixed") && text_field(row, "value").empty()) {
    warn("Fixed item has no value");
  }
  if (lacksUnit(row, references)) warn("Item has no value unit specified");
  if (text_field(row, "Desc").empty() && !isDescribed(references)) {
    warn("Item has no description and none found in the ComponentDescriptions table");
  }
}

/// A row without a unit gives its component a text, which is right for a part's name. It is wrong
/// for a number: one that stands in the row, one that the description rounds or matches, and one
/// that another row gives a unit.
bool DebugUtils::lacksUnit(const RecordSet& row, const std::vector<std::string>& references) const {
  if (!text_field(row, "ValueUnit").empty()) return false;
  const std::string value = text_field(row, "value");
  if (!value.empty()) return parse_number(value).has_value();
  if (says_true(adoaccess_class::rs_get(row, "ForceMNR")) ||
      says_true(adoaccess_class::rs_get(row, "ForceMNC"))) {
    return true;
  }
  return std::ranges::any_of(references, [&](const std::string& reference) {
    return with_unit_.contains(reference) ||
           std::ranges::any_of(descriptions_, [&](const Description& description) {
             return description.is_number && description.reference == reference;
           });
  });
}

bool DebugUtils::isDescribed(const std::vector<std::string>& references) const {
  return std::ranges::all_of(references, [&](const std::string& reference) {
    return std::ranges::any_of(descriptions_, [&](const Description& description) {
      return description.described && description.reference == reference;
    });
  });
}

// The check of the usage

/// The ICs with their rows; nothing when there are none. With `report`, what cannot be read is
/// told.
std::optional<std::vector<UsageTarget>> DebugUtils::readTargets(bool report) {
  RecordSet info;
  if (!database_.read("select * from [Target:Info]", info)) {
    if (report) finding("ERROR: Could not find Target:Info in components database");
    return std::nullopt;
  }
  std::vector<UsageTarget> targets;
  for (; adoaccess_class::RSOK(info); info.MoveNext()) {
    UsageTarget& target = targets.emplace_back(info);
    if (target.readRows(database_) || !report) continue;
    finding("ERROR: Could not find BOM components table " + target.table() +
            " in components database");
  }
  return targets;
}

void DebugUtils::beginUsage(const std::string& component) {
  auto targets = readTargets(true);
  if (!targets) return;
  targets_ = std::move(*targets);
  const bool all = component == kAllReferences;
  for (std::size_t i = kFixedChoices; i < components_.size(); ++i) {
    if (!all && components_[i] != component) continue;
    steps_.emplace_back([this, reference = components_[i]] { reportUsage(reference); });
  }
}

void DebugUtils::reportUsage(const std::string& reference) {
  line("Component : " + reference);
  bool reached = false;
  for (const UsageTarget& target : targets_) {
    const std::vector<UsageHit> hits = target.hits(reference);
    bool doubled = false;
    const UsageRow* shown = nullptr;
    for (std::size_t i = 0; i < hits.size(); ++i) {
      reached = true;
      if (hits[i].row != shown) line("... [" + target.name() + "] (" + hits[i].row->stage + ") ");
      shown = hits[i].row;
      for (std::size_t k = 0; k < i; ++k) doubled = doubled || target.meet(hits[k], hits[i]);
    }
    if (doubled) {
      finding(">>> ERROR : Component " + reference + " is referenced multiple times for IC " +
              target.name());
    }
  }
  if (!reached) {
    finding(">>> ERROR : Component " + reference + " is NOT referenced by any stage for any IC");
  }
}

}  // namespace vantrel
