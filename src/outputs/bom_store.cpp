#include "outputs/bom_store.h"

#include <algorithm>

#include "core/text_parsing.h"

namespace vantrel {

void BomStore::add(std::string_view type, std::string_view value, std::string_view rating,
                   std::string_view tolerance, std::string_view reference) {
  if (std::find(references_.begin(), references_.end(), reference) != references_.end()) return;
  references_.emplace_back(reference);
  if (lower(trimmed(type)) == "resistor") rating = {};
  for (BillRecord& line : records_) {
    // Only a reference that itself joins several designators can still meet its like here.
    if (line.reference == reference) return;
    if (line.type != type || line.value != value || line.rating != rating ||
        line.tolerance != tolerance) {
      continue;
    }
    ++line.qty;
    line.reference.append(",").append(reference);
    return;
  }
  records_.push_back({1, std::string(type), std::string(value), std::string(rating),
                      std::string(tolerance), std::string(reference)});
}

void BomStore::clear() {
  records_.clear();
  references_.clear();
}

}  // namespace vantrel
