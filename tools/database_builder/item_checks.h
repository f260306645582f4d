#pragma once

#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// RecordType of the row of field tags and of an item.
inline constexpr int kTagsRecord = 0;
inline constexpr int kItemRecord = 2;

/// Number of columns that every item table begins with; those behind them hold values.
inline constexpr int kFixedItemColumns = 5;

/// Checks the table of one selection type ("IC", "INPUT", "LAMP" or "CONFIG"): one tags row whose
/// tags name fields of the design screen; items with names and IDs of their own in a group of their
/// type; values that their fields can hold, and data statements that read to their end.
void check_items(const SourceTables& tables, std::string_view type, const Vocabulary& vocabulary,
                 Problems& problems);

}  // namespace vantrel::builder
