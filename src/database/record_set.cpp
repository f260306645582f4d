#include "core/text_parsing.h"
#include "database/adoaccess.h"

namespace vantrel {

int RecordSet::fieldIndex(std::string_view name) const {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (equal_ignoring_case(names_[i], name)) return static_cast<int>(i);
  }
  return -1;
}

const Variant& RecordSet::at(std::size_t position) const {
  static const Variant empty;
  return atEnd() || position >= rows_[row_].size() ? empty : rows_[row_][position];
}

void RecordSet::Close() { *this = RecordSet(); }

}  // namespace vantrel
