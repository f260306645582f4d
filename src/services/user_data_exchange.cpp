// The user's rows as a file, so that lamps and cores travel between machines.

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "core/file_writer.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "outputs/table_export.h"
#include "services/file_reader.h"
#include "services/user_data.h"
#include "services/user_data_csv.h"
#include "services/utf8_text.h"

namespace vantrel {

namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view kFilter = "CSV files (*.csv)|*.csv";
constexpr std::size_t kLargestFile = std::size_t{16} << 20U;
/// One statement adds them all, and it has a limited number of parameters.
constexpr std::size_t kMostRows = 1000;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string count_text(std::size_t count) { return general_text(static_cast<std::int32_t>(count)); }

/// The records of a file under the fields of the form.
class ImportedTable {
 public:
  explicit ImportedTable(const SQLTableEdit& edit) : edit_(edit) {}

  /// Why the text cannot be taken, empty when it was.
  std::string read(std::string_view text) {
    std::string fault;
    const auto records = read_csv(text, fault);
    if (!records) return fault;
    if (records->empty()) return "the file is empty";
    if (records->size() > kMostRows + 1) {
      return "there are more than " + count_text(kMostRows) + " rows";
    }
    fault = readTitles(records->front().cells);
    for (std::size_t i = 1; i < records->size() && fault.empty(); ++i) fault = take((*records)[i]);
    return fault;
  }
  const std::vector<Texts>& rows() const { return rows_; }

 private:
  std::string readTitles(const Texts& titles) {
    for (const std::string& title : titles) {
      const auto field = std::ranges::find_if(edit_.Fields(), [&](const FieldDefinition& known) {
        return equal_ignoring_case(known.Column, trimmed(title));
      });
      if (field == edit_.Fields().end()) return "there is no column '" + title + "'";
      const auto position = static_cast<std::size_t>(field - edit_.Fields().begin());
      if (std::ranges::find(fields_, position) != fields_.end()) {
        return "column '" + title + "' comes twice";
      }
      fields_.push_back(position);
    }
    return {};
  }

  std::string take(const CsvRecord& record) {
    const std::string line = "line " + count_text(record.line) + ": ";
    if (record.cells.size() != fields_.size()) {
      return line + count_text(record.cells.size()) + " cells instead of " +
             count_text(fields_.size());
    }
    Texts texts(edit_.Fields().size());
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      texts[fields_[i]] = canonical_text(edit_.Fields()[fields_[i]], record.cells[i]);
    }
    if (const std::string reason = edit_.Refusal(texts); !reason.empty()) return line + reason;
    rows_.push_back(std::move(texts));
    return {};
  }

  const SQLTableEdit& edit_;
  std::vector<std::size_t> fields_;
  std::vector<Texts> rows_;
};

}  // namespace

std::vector<std::string> EditUserData::titles() const {
  Texts titles;
  for (const FieldDefinition& field : SQLTableEdit1.Fields()) titles.push_back(field.Column);
  return titles;
}

/// What the fields show of every stored row of the user; nothing when they cannot be read.
std::optional<std::vector<Texts>> EditUserData::storedTexts() {
  std::vector<Texts> rows;
  RecordSet set;
  if (!database_.read(
          "select * from " + SQLTableEdit1.Table() + " where UserData = Yes order by rowid", set,
          true)) {
    return std::nullopt;
  }
  for (; adoaccess_class::RSOK(set); set.MoveNext()) {
    Texts& texts = rows.emplace_back();
    for (const FieldDefinition& field : SQLTableEdit1.Fields()) {
      const int column = set.fieldIndex(field.Column);
      texts.push_back(column < 0 ? std::string()
                                 : field_text(field, set.at(static_cast<std::size_t>(column))));
    }
  }
  return rows;
}

bool EditUserData::ExportRows() {
  if (!hooks_.selectSaveFile || !mayClose()) return false;
  const std::string file = hooks_.selectSaveFile("Export " + caption_, caption_ + ".csv", kFilter);
  return !file.empty() && ExportRowsTo(file);
}

bool EditUserData::ExportRowsTo(const std::filesystem::path& file) {
  const auto refuse = [&](const std::string& reason) {
    return say("Could not export to '" + file.string() + "' (" + reason + ")", false);
  };
  const auto rows = storedTexts();
  if (!rows) return refuse(database_.last_error());
  std::string text = table_row_text(titles(), TableFileType::Csv);
  for (const Texts& row : *rows) text += table_row_text(row, TableFileType::Csv);
  if (const auto reason = write_file(file, text)) return refuse(*reason);
  return true;
}

bool EditUserData::ImportRows() {
  if (dialogs_ == nullptr || !mayClose()) return false;
  const auto file = dialogs_->askOpen("Import " + caption_, kFilter, "");
  return file && !file->empty() && ImportRowsFrom(*file);
}

bool EditUserData::ImportRowsFrom(const std::filesystem::path& file) {
  const auto refuse = [&](const std::string& reason) {
    return say("Could not import '" + file.string() + "' (" + reason + ")", false);
  };
  if (!SQLTableEdit1.isOpen() || !mayClose()) return false;
  const auto bytes = read_file(file, kLargestFile);
  if (!bytes) return refuse("it cannot be read");
  std::string text = as_utf8({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  ImportedTable table(SQLTableEdit1);
  if (const std::string reason = table.read(text); !reason.empty()) return refuse(reason);

  const auto stored = storedTexts();
  if (!stored) return refuse(database_.last_error());
  std::set<Texts> known(stored->begin(), stored->end());
  std::vector<Texts> added;
  for (const Texts& row : table.rows()) {
    if (known.insert(row).second) added.push_back(row);
  }
  if (!added.empty() && !insertRows(added)) return refuse(database_.last_error());
  SQLTableEdit1.ReQuery();
  if (!added.empty()) tellChanged(-1);
  const std::size_t there = table.rows().size() - added.size();
  return say(count_text(added.size()) + (added.size() == 1 ? " row" : " rows") + " imported, " +
                 count_text(there) + (there == 1 ? " was" : " were") + " there already",
             true);
}

/// Adds the rows by one statement, so that they come all or not at all.
bool EditUserData::insertRows(const std::vector<Texts>& rows) {
  std::string columns;
  for (const std::string& title : titles()) columns += bracketed(title) + ", ";
  columns += "[UserData]";
  if (kind_ == Kind::Lamps) columns += ", [Include], [RecordType], [Group], [ID]";
  std::int32_t id = kind_ == Kind::Lamps ? database_.Unique_ID("ID", "[DATA:Lamp]") : 0;
  if (id < 0) return false;

  std::string places;
  std::vector<Variant> parameters;
  for (const Texts& row : rows) {
    const std::size_t before = parameters.size();
    for (std::size_t i = 0; i < row.size(); ++i) {
      parameters.push_back(field_value(SQLTableEdit1.Fields()[i], row[i]));
    }
    parameters.emplace_back(true);
    if (kind_ == Kind::Lamps) {
      for (const Variant& hidden :
           {Variant(true), Variant(kItemRecord), Variant(kUserLampGroup), Variant(id++)}) {
        parameters.push_back(hidden);
      }
    }
    std::string marks;
    for (std::size_t i = before; i < parameters.size(); ++i) marks += i == before ? "?" : ", ?";
    places += (places.empty() ? "(" : ", (") + marks + ")";
  }
  std::int32_t affected = 0;
  database_.execute("insert into " + SQLTableEdit1.Table() + " (" + columns + ") values " + places,
                    parameters, &affected);
  return affected == static_cast<std::int32_t>(rows.size());
}

}  // namespace vantrel
