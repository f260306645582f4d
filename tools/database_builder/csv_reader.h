#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::builder {

/// One record of a CSV text.
struct CsvRecord {
  int line = 0;  ///< Line on which it begins, from 1.
  std::vector<std::string> cells;
};

/// A place where a CSV text breaks the format.
struct CsvFault {
  int line = 0;
  std::string text;
};

struct CsvDocument {
  std::vector<CsvRecord> records;  ///< The header line is the first.
  std::vector<CsvFault> faults;
};

/// Reads a text of comma-separated cells by RFC 4180: a cell in double quotes may hold commas, line
/// breaks and doubled quotes; lines end in LF or CR LF, the last one in either or in nothing.
/// Blanks belong to their cell. Reading goes on behind a fault.
CsvDocument read_csv(std::string_view text);

}  // namespace vantrel::builder
