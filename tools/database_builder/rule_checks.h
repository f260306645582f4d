#pragma once

#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// Checks the component tables, rules, inputs, curves and descriptions against each other for every
/// combination of IC, line input and configuration that can be selected: each component has one
/// best rule whose function the IC knows with that many arguments and whose variables lead back to
/// screens and constants; each stage and each rule is reached.
void check_rules(const SourceTables& tables, const Vocabulary& vocabulary, Problems& problems);

}  // namespace vantrel::builder
