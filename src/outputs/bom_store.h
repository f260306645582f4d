#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "components/bill_store.h"

namespace vantrel {

/// One line of the bill: like parts together.
struct BillRecord {
  std::int32_t qty = 0;  ///< Number of components in the line.
  std::string type;      ///< The description.
  std::string value;     ///< Number, prefix and unit, "." whatever the locale.
  std::string rating;
  std::string tolerance;
  std::string reference;  ///< Reference designators of the components, joined by ",".
};

/// The calculated components of the present design, grouped into lines of like parts.
class BomStore : public BillStore {
 public:
  /// Takes a component into the first line of equal type, value, rating and tolerance, or starts a
  /// line. Resistors (by their type, trimmed and in any case) are grouped without regard to their
  /// rating, which their line leaves blank. A reference that was added before is counted once.
  void add(std::string_view type, std::string_view value, std::string_view rating,
           std::string_view tolerance, std::string_view reference) override;
  /// Forgets all lines and references; every selection change does so.
  void clear() override;

  bool isEmpty() const { return records_.empty(); }
  /// The lines, in the order in which their first components were added.
  const std::vector<BillRecord>& BomComponents() const { return records_; }
  /// All references in the order in which they were added.
  const std::vector<std::string>& BomStages() const { return references_; }

 private:
  std::vector<BillRecord> records_;
  std::vector<std::string> references_;
};

}  // namespace vantrel
