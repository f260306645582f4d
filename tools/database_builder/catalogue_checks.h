#pragma once

#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// Checks the groups: types, IDs, selection rules, and the group that takes the user's own lamps.
void check_groups(const SourceTables& tables, Problems& problems);

/// Checks the list of ICs against the program's, against the IC items, whose ID is the position in
/// that list, and against the component tables that it names; and the numbers of the
/// configurations.
void check_targets(const SourceTables& tables, const Vocabulary& vocabulary, Problems& problems);

/// Checks that the items selected at the program's start exist and are offered together.
void check_default_selection(const SourceTables& tables, Problems& problems);

}  // namespace vantrel::builder
