#pragma once

#include "database/sqlite_store.h"
#include "database/statement_translator.h"

namespace vantrel {

/// Copies rows of a table into a table of another database file, in one transaction. Columns that
/// both tables have are matched by name regardless of case; the rest are left to their defaults.
/// Truth values are written as 1 and 0. False when anything fails: nothing has been copied then,
/// and the other file is let go in any case.
bool run_cross_insert(SqliteStore& store, const CrossInsert& insert);

}  // namespace vantrel
