#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "core/screen.h"
#include "services/project_file.h"

namespace vantrel {

/// The design screens in the order of the file: Simple, Advanced, Inductor, Transformer,
/// Calculator, GraphOperatingPoints, GraphTimeDomain.
using DesignScreens = std::array<Screen*, kProjectScreens>;

/// One record for each value field, screens in order, fields in control order. An empty numeric
/// field is written as "0".
std::vector<ValueRecord> collect_values(const DesignScreens& screens);
/// One record for each pull-down list.
std::vector<ListRecord> collect_lists(const DesignScreens& screens);

/// Puts values back into their fields, with their change events. A value comes back as it was
/// saved: the products of a lamp configuration carry more digits than their fields show. Gives how
/// many records had no place: the field is missing, or is numeric and the text is no number. The
/// output rows of the calculator take either.
std::size_t apply_values(const DesignScreens& screens, std::span<const ValueRecord> records);
/// Selects the rows of pull-down lists. Gives how many records had no place: the list is missing,
/// or has no such row. A list without any rows, such as the history of a fresh run, takes any row
/// number: it selects nothing now, and the next save writes it again.
std::size_t apply_lists(const DesignScreens& screens, std::span<const ListRecord> records);

}  // namespace vantrel
