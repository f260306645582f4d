#include "database_builder/bill_rows.h"

#include <algorithm>
#include <map>
#include <set>

#include "components/script/parser.h"
#include "components/script/script_limits.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel::builder {

namespace {

/// The parts of a text between delimiters, each trimmed; an empty text has none.
std::vector<std::string> parts(const std::string& text, char delimiter) {
  std::vector<std::string> result;
  std::size_t begin = 0;
  while (!text.empty() && begin <= text.size()) {
    const std::size_t end = std::min(text.find(delimiter, begin), text.size());
    result.push_back(trimmed(std::string_view(text).substr(begin, end - begin)));
    begin = end + 1;
  }
  return result;
}

/// What is wrong with the syntax of a statement of generator code; empty when nothing is.
std::string statement_fault(const std::string& statement) {
  std::string text;
  for (const char character : statement) {
    if (character == '#') {
      text += "Calculator.Get";
    } else if (character == '$') {
      text += "Calculator.Put 0,";
    } else {
      text += character;
    }
  }
  try {
    script::Parser(text, ScriptLimits{}.depth).run();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "";
}

/// A prefix of a Disallow entry and what the rest of the entry is compared with.
struct DisallowKind {
  std::string_view prefix;
  const std::string Combination::*name;
};

constexpr DisallowKind kDisallowKinds[] = {
    {"IC:", &Combination::ic}, {"INPUT:", &Combination::input}, {"CONFIG:", &Combination::config}};

bool says(const std::string& entry, const Combination& combination) {
  return std::ranges::any_of(kDisallowKinds, [&](const DisallowKind& kind) {
    return entry.starts_with(kind.prefix) &&
           equal_ignoring_case(entry.substr(kind.prefix.size()), combination.*kind.name);
  });
}

/// Names in the calls `#("screen","field")` of generator code.
std::vector<std::pair<std::string, std::string>> fields_read(const std::string& code) {
  std::vector<std::pair<std::string, std::string>> fields;
  for (std::size_t at = code.find("#("); at != std::string::npos; at = code.find("#(", at + 1)) {
    std::vector<std::string> names;
    const std::size_t end = std::min(code.find(')', at), code.size());
    for (std::size_t open = code.find('"', at); open < end; open = code.find('"', open)) {
      const std::size_t close = std::min(code.find('"', open + 1), end);
      names.push_back(code.substr(open + 1, close - open - 1));
      open = close + 1;
    }
    names.resize(2);
    fields.emplace_back(names[0], names[1]);
  }
  return fields;
}

class BillRowChecker {
 public:
  BillRowChecker(const BillRows& bill, const SourceTables& tables,
                 const std::vector<Combination>& combinations, const Vocabulary& vocabulary,
                 Problems& problems)
      : table_(bill.table()), vocabulary_(vocabulary), problems_(problems) {
    for (const Combination& combination : combinations) {
      combinations_.push_back(combination);
      for (const std::string& entry : bill.stageEntries(combination)) stages_.insert(entry);
    }
    if (const SourceTable* descriptions = tables.find("ComponentDescriptions")) {
      for (const SourceRow& row : descriptions->rows) {
        described_.insert(descriptions->text(row, "RefDes"));
      }
    }
  }

  void check(const SourceRow& row) {
    line_ = row.line;
    checkStages(list_entries(table_.text(row, "Stage")));
    checkReferences(list_entries(table_.text(row, "RefDes")));
    checkValue(row);
    for (const std::string& entry : list_entries(table_.text(row, "Disallow"))) {
      const bool known = std::ranges::any_of(
          combinations_, [&](const Combination& place) { return says(entry, place); });
      if (!known) report("Disallow '" + entry + "' is in no combination");
    }
    checkCode(table_.text(row, "GeneratorCode"));
  }

 private:
  void report(const std::string& text) { problems_.add(table_.file, line_, text); }

  void checkStages(const std::vector<std::string>& entries) {
    if (entries.empty()) report("column 'Stage' is blank");
    for (const std::string& entry : entries) {
      if (!stages_.contains(entry)) report("stage '" + entry + "' is in no combination");
    }
  }

  void checkReferences(const std::vector<std::string>& references) {
    if (references.empty()) report("column 'RefDes' is blank");
    for (const std::string& reference : references) {
      if (reference != upper(reference)) report("reference '" + reference + "' is not in capitals");
      if (!described_.contains(upper(reference))) {
        report("reference '" + reference + "' has no description");
      }
    }
  }

  void checkValue(const SourceRow& row) {
    const std::string value = table_.text(row, "value");
    if (value.empty()) {
      if (table_.yes(row, "Fixed") && table_.text(row, "GeneratorCode").empty()) {
        report("is fixed but has no value");
      }
    } else if (!table_.text(row, "ValueUnit").empty() && !parse_number(value)) {
      report("'" + value + "' in column 'value' is no number");
    }
  }

  void checkCode(const std::string& code) {
    for (const auto& [screen, field] : fields_read(code)) {
      if (equal_ignoring_case(screen, "Advanced") && vocabulary_.field(field) == nullptr) {
        report("GeneratorCode reads '" + field + "', which is no field of the design screen");
      }
    }
    for (const std::string& statement : parts(code, ';')) {
      const std::string fault = statement_fault(statement);
      if (!fault.empty()) report("GeneratorCode '" + statement + "': " + fault);
    }
  }

  const SourceTable& table_;
  const Vocabulary& vocabulary_;
  Problems& problems_;
  std::vector<Combination> combinations_;
  std::set<std::string> stages_;
  std::set<std::string> described_;
  int line_ = 0;
};

}  // namespace

BillRows::BillRows(const SourceTable& infos, const SourceRow& info, const SourceTable& table)
    : table_(table),
      input_stages_(parts(infos.text(info, "Input"), '/')),
      ic_stages_(parts(infos.text(info, "IC"), '/')),
      config_stages_(parts(infos.text(info, "Config"), '/')) {}

std::vector<std::string> BillRows::stageEntries(const Combination& combination) const {
  std::vector<std::string> entries;
  for (const std::string& part : input_stages_) entries.push_back(part + combination.input);
  for (const std::string& part : ic_stages_) entries.push_back(part + combination.ic);
  for (const std::string& part : config_stages_) entries.push_back(part + combination.config);
  return entries;
}

bool BillRows::disallowed(const SourceRow& row, const Combination& combination) const {
  return std::ranges::any_of(list_entries(table_.text(row, "Disallow")),
                             [&](const std::string& entry) { return says(entry, combination); });
}

std::vector<DeclaredComponent> BillRows::declared(const Combination& combination,
                                                  bool outputs_only) const {
  std::vector<DeclaredComponent> components;
  for (const std::string& stage : stageEntries(combination)) {
    for (const SourceRow& row : table_.rows) {
      const bool wanted =
          !outputs_only || table_.yes(row, "CCOutput") || table_.yes(row, "CCOutputDependancy");
      const auto entries = list_entries(table_.text(row, "Stage"));
      if (!wanted || std::ranges::find(entries, stage) == entries.end()) continue;
      if (disallowed(row, combination)) continue;
      const bool has_value =
          !table_.text(row, "value").empty() || !table_.text(row, "GeneratorCode").empty();
      for (const std::string& reference : list_entries(table_.text(row, "RefDes"))) {
        components.push_back({upper(reference), row.line, has_value && table_.yes(row, "Fixed"),
                              table_.yes(row, "RemoveIfNoMatch")});
      }
    }
  }
  return components;
}

void check_bill_rows(const BillRows& bill, const SourceTables& tables,
                     const std::vector<Combination>& combinations, const Vocabulary& vocabulary,
                     Problems& problems) {
  BillRowChecker checker(bill, tables, combinations, vocabulary, problems);
  for (const SourceRow& row : bill.table().rows) checker.check(row);
}

void check_descriptions(const SourceTables& tables, Problems& problems) {
  const SourceTable* table = tables.find("ComponentDescriptions");
  if (table == nullptr) return;
  std::map<std::string, int> lines;
  for (const SourceRow& row : table->rows) {
    const std::string reference = table->text(row, "RefDes");
    const auto [earlier, is_new] = lines.emplace(reference, row.line);
    if (!is_new) {
      problems.add(
          table->file, row.line,
          "reference '" + reference + "' is described by line " + std::to_string(earlier->second));
    }
    const std::string series = lower(table->text(row, "OverrideSeries"));
    if (!series.empty() && series != "e12" && series != "e24") {
      problems.add(table->file, row.line, "OverrideSeries '" + series + "' is neither e12 nor e24");
    }
  }
}

}  // namespace vantrel::builder
