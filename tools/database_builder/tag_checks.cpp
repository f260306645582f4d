#include "database_builder/tag_checks.h"

#include <algorithm>
#include <set>

#include "core/text_parsing.h"
#include "database_builder/item_checks.h"

namespace vantrel::builder {

namespace {

class TagReader {
 public:
  TagReader(const SourceTable& table, const SourceRow& tags, const Vocabulary& vocabulary,
            Problems& problems)
      : table_(table), tags_(tags), vocabulary_(vocabulary), problems_(problems) {}

  std::vector<ColumnTags> read() {
    std::vector<ColumnTags> all(table_.columns.size());
    for (std::size_t i = kFixedItemColumns; i < all.size(); ++i) {
      const std::string cell = trimmed(tags_.cells[i].value_or(""));
      if (cell.empty()) continue;
      if (is_flag_column(table_.columns[i])) {
        report("column '" + table_.columns[i].name + "' of the tags row must be blank");
      } else {
        all[i] = readCell(table_.columns[i].name, cell);
      }
    }
    return all;
  }

 private:
  void report(const std::string& text) { problems_.add(table_.file, tags_.line, text); }

  ColumnTags readCell(const std::string& column, const std::string& cell) {
    ColumnTags result{.filled = true};
    std::size_t begin = 0;
    while (begin <= cell.size()) {
      const std::size_t end = std::min(cell.find(',', begin), cell.size());
      const bool numeric = readTag(column, trimmed(cell.substr(begin, end - begin)));
      result.numeric = result.numeric || numeric;
      begin = end + 1;
    }
    return result;
  }

  /// True when the tag fills a numeric field with the column's text.
  bool readTag(const std::string& column, std::string tag) {
    if (tag.starts_with('#')) {
      checkCalculated(column, tag);
      return false;
    }
    const bool unit = tag.ends_with('*');
    if (unit) tag = trimmed(tag.substr(0, tag.size() - 1));
    const FieldSpec* field = vocabulary_.field(tag);
    if (field == nullptr) {
      report("tag '" + tag + "' of column '" + column + "' names no field of the design screen");
      return false;
    }
    if (!unit) filled_.insert(lower(tag));
    return !unit && field->type == kNumeric;
  }

  void checkCalculated(const std::string& column, const std::string& tag) {
    const std::string name = lower(trimmed(tag.substr(1)));
    if (!vocabulary_.calculated(name) || vocabulary_.field(name) == nullptr) {
      report("tag '" + tag + "' of column '" + column + "' names no calculated field");
      return;
    }
    // The only calculated field, power at the dimmed end, is worked out from what the columns
    // before it have filled.
    for (const char* source : {"pmax", "min", "max"}) {
      if (!filled_.contains(source)) reportMissingSource(column, tag, source);
    }
  }

  void reportMissingSource(const std::string& column, const std::string& tag, const char* source) {
    report("tag '" + tag + "' of column '" + column + "' needs '" + source +
           "' in a column before it");
  }

  const SourceTable& table_;
  const SourceRow& tags_;
  const Vocabulary& vocabulary_;
  Problems& problems_;
  std::set<std::string> filled_;
};

}  // namespace

bool is_flag_column(const Column& column) {
  return equal_ignoring_case(column.name, "Include") ||
         equal_ignoring_case(column.name, "UserData");
}

std::vector<ColumnTags> check_tags(const SourceTable& table, const SourceRow& tags,
                                   const Vocabulary& vocabulary, Problems& problems) {
  return TagReader(table, tags, vocabulary, problems).read();
}

}  // namespace vantrel::builder
