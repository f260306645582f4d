#pragma once

#include "database_builder/problems.h"
#include "database_builder/source_table.h"

namespace vantrel::builder {

/// The project's own sources by the project's schema.
SourceTables load_shipped_tables(Problems& problems);

}  // namespace vantrel::builder
