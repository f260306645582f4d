#include "components/design_rows.h"

#include "core/number_text.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

RecordSet& DesignRows::read(const std::string& sql) { return fetch(sql, sql, {}); }

RecordSet& DesignRows::read(const std::string& sql, std::string_view key) {
  return fetch(sql, sql + '\n' + std::string(key), {Variant(key)});
}

RecordSet& DesignRows::fetch(const std::string& sql, const std::string& kept_by,
                             const std::vector<Variant>& parameters) {
  std::unique_ptr<RecordSet>& rows = kept_[kept_by];
  if (rows) {
    rows->MoveFirst();
  } else {
    rows = std::make_unique<RecordSet>();
    database_.read(sql, parameters, *rows, true);
  }
  return *rows;
}

const RuleTable& DesignRows::rules() {
  if (!rules_) {
    RecordSet rows;
    database_.read("select * from CC:Calculations", rows, true);
    rules_ = std::make_unique<RuleTable>(rows);
  }
  return *rules_;
}

void DesignRows::clear() {
  kept_.clear();
  rules_.reset();
}

std::vector<std::string> entries_of(std::string_view text, char delimiter) {
  std::vector<std::string> entries;
  if (trimmed(text).empty()) return entries;
  for (auto end = text.find(delimiter); end != std::string_view::npos; end = text.find(delimiter)) {
    entries.push_back(trimmed(text.substr(0, end)));
    text.remove_prefix(end + 1);
  }
  entries.push_back(trimmed(text));
  return entries;
}

bool says_true(const Variant& value) {
  if (!value.is_string()) return flag_value(value);
  const std::string word = lower(trimmed(value.get<std::string>()));
  return word == "yes" || word == "true" || Val(word) != 0;
}

}  // namespace vantrel
