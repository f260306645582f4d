#pragma once

#include <string>
#include <vector>

#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// What the tags row says of one value column.
struct ColumnTags {
  bool filled = false;   ///< Has a tag, so that the program reads the column.
  bool numeric = false;  ///< Fills a numeric field with its text.
};

/// True for the columns among the values that are flags of the row: Include and UserData.
bool is_flag_column(const Column& column);

/// Reads and checks the tags row of an item table. One entry for each column of the table.
std::vector<ColumnTags> check_tags(const SourceTable& table, const SourceRow& tags,
                                   const Vocabulary& vocabulary, Problems& problems);

}  // namespace vantrel::builder
