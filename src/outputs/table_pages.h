#pragma once

#include <vector>

#include "core/print_job.h"
#include "outputs/table_grid.h"

namespace vantrel {

/// Prints a grid in "Arial" on as many sheets of that size as it needs, the titles of its columns
/// at the top of each. The columns fill the width; where their texts need more, the widest give way
/// and their cells take several lines. No line is cut.
std::vector<PrintPage> table_pages(const TableGrid& grid, DeviceContext& measure, Size sheet);

}  // namespace vantrel
