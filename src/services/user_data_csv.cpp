#include "services/user_data_csv.h"

#include <algorithm>
#include <utility>

#include "core/number_text.h"

namespace vantrel {

namespace {

/// Takes a CSV text apart, cell by cell.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text) : text_(text) {}

  bool atEnd() const { return at_ >= text_.size(); }
  std::size_t line() const { return line_; }

  /// Reads a cell and the separator behind it. False when it is no cell.
  bool readCell(std::string& cell, bool& ends_record) {
    const bool sound = !atEnd() && text_[at_] == '"' ? readQuoted(cell) : readPlain(cell);
    return sound && readSeparator(ends_record);
  }

 private:
  bool readPlain(std::string& cell) {
    const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
    cell = text_.substr(at_, end - at_);
    at_ = end;
    return true;
  }

  bool readQuoted(std::string& cell) {
    cell.clear();
    for (++at_; !atEnd(); ++at_) {
      if (text_[at_] == '\n') ++line_;
      if (text_[at_] == '"' && text_.substr(at_ + 1, 1) != "\"") {
        ++at_;
        return true;
      }
      if (text_[at_] == '"') ++at_;
      cell += text_[at_];
    }
    return false;
  }

  bool readSeparator(bool& ends_record) {
    ends_record = true;
    if (atEnd()) return true;
    const char separator = text_[at_++];
    if (separator == ',') {
      ends_record = false;
      return true;
    }
    if (separator == '\r' && text_.substr(at_, 1) == "\n") ++at_;
    ++line_;
    return separator == '\r' || separator == '\n';
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

std::optional<std::vector<CsvRecord>> read_csv(std::string_view text, std::string& fault) {
  std::vector<CsvRecord> records;
  CsvReader reader(text);
  while (!reader.atEnd()) {
    CsvRecord record{.line = reader.line(), .cells = {}};
    for (bool ends = false; !ends;) {
      if (reader.readCell(record.cells.emplace_back(), ends)) continue;
      fault = "line " + general_text(static_cast<std::int32_t>(record.line)) +
              ": a quote is not closed";
      return std::nullopt;
    }
    const bool blank = record.cells.size() == 1 && record.cells.front().empty();
    if (!blank) records.push_back(std::move(record));
  }
  return records;
}

}  // namespace vantrel
