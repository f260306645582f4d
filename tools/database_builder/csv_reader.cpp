#include "database_builder/csv_reader.h"

namespace vantrel::builder {

namespace {

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  CsvDocument read() {
    while (!atEnd()) readRecord();
    return std::move(document_);
  }

 private:
  bool atEnd() const { return position_ >= text_.size(); }
  bool atLineEnd() const {
    return atEnd() || text_[position_] == '\n' || text_.substr(position_, 2) == "\r\n";
  }

  void fault(int line, const char* text) { document_.faults.push_back({line, text}); }

  void readRecord() {
    CsvRecord record{line_, {}};
    record.cells.push_back(readCell());
    while (!atEnd() && text_[position_] == ',') {
      ++position_;
      record.cells.push_back(readCell());
    }
    if (!atEnd()) {
      position_ += text_[position_] == '\r' ? 2 : 1;
      ++line_;
    }
    document_.records.push_back(std::move(record));
  }

  std::string readCell() {
    if (!atEnd() && text_[position_] == '"') return readQuoted();
    std::string cell;
    while (!atLineEnd() && text_[position_] != ',') cell += text_[position_++];
    if (cell.find('"') != std::string::npos) fault(line_, "a quote inside a cell without quotes");
    return cell;
  }

  std::string readQuoted() {
    const int opened = line_;
    std::string cell;
    for (++position_; !atEnd(); ++position_) {
      const char character = text_[position_];
      if (character == '"') {
        if (text_.substr(position_, 2) != "\"\"") {
          ++position_;
          skipToCellEnd();
          return cell;
        }
        ++position_;
      }
      if (character == '\n') ++line_;
      cell += character;
    }
    fault(opened, "a quote that is never closed");
    return cell;
  }

  void skipToCellEnd() {
    if (!atLineEnd() && text_[position_] != ',') fault(line_, "text behind the closing quote");
    while (!atLineEnd() && text_[position_] != ',') ++position_;
  }

  std::string_view text_;
  std::size_t position_ = 0;
  int line_ = 1;
  CsvDocument document_;
};

}  // namespace

CsvDocument read_csv(std::string_view text) { return Reader(text).read(); }

}  // namespace vantrel::builder
