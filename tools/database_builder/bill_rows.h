#pragma once

#include <string>
#include <vector>

#include "database_builder/combinations.h"
#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// One reference that a component calculation makes a variable of.
struct DeclaredComponent {
  std::string reference;
  int line = 0;                    ///< Row of the component table.
  bool settled = false;            ///< Has a fixed value and needs no rule.
  bool removed_unmatched = false;  ///< Vanishes where no rule fits.
};

/// The component table of one IC as the stages of a calculation read it.
class BillRows {
 public:
  /// `info` is the IC's row in [Target:Info], `table` the component table that it names.
  BillRows(const SourceTable& infos, const SourceRow& info, const SourceTable& table);

  /// Components of a combination, those of all stages; with `outputs_only` the outputs and what
  /// they need. A reference that is declared twice is in the result twice.
  std::vector<DeclaredComponent> declared(const Combination& combination, bool outputs_only) const;
  /// Every stage entry that the combination looks for.
  std::vector<std::string> stageEntries(const Combination& combination) const;

  const SourceTable& table() const { return table_; }

 private:
  bool disallowed(const SourceRow& row, const Combination& combination) const;

  const SourceTable& table_;
  std::vector<std::string> input_stages_;
  std::vector<std::string> ic_stages_;
  std::vector<std::string> config_stages_;
};

/// Checks what each row says by itself: a stage that one of the combinations reaches, references in
/// capitals with a description, values that their units allow, places where it is left out, and
/// code that can be read, with fields that exist.
void check_bill_rows(const BillRows& bill, const SourceTables& tables,
                     const std::vector<Combination>& combinations, const Vocabulary& vocabulary,
                     Problems& problems);

/// Checks [ComponentDescriptions]: one row for a reference, a known series.
void check_descriptions(const SourceTables& tables, Problems& problems);

}  // namespace vantrel::builder
