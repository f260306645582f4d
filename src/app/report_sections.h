#pragma once

#include "app/design_status.h"
#include "app/session.h"
#include "outputs/report_document.h"

namespace vantrel {

// The sections of the design report, in the order in which it has them. Each names what is missing
// where the design lacks it.

ReportSection summary_section(Session& session, const DesignStatus& status);
ReportSection selection_section(Session& session);
ReportSection versions_section(Session& session);
/// Every input of the layout with its unit, and whether it is as the selection set it.
ReportSection inputs_section(Session& session);
ReportSection operating_points_section(Session& session, const DesignStatus& status);
ReportSection gain_graph_section(Session& session);
/// The simulated start around preheat, ignition and run.
ReportSection waveforms_section(Session& session);
ReportSection components_section(Session& session);
ReportSection magnetics_section(Session& session);
ReportSection bill_section(Session& session);
ReportSection diagram_section(Session& session);

/// The full names of what is selected, IC, input, lamp and configuration; an empty one is left out.
std::vector<std::string> selected_names(Session& session);

/// The columns of a table from their titles; "<", "^" or ">" in front of one aligns it.
std::vector<TableColumn> report_columns(std::initializer_list<const char*> titles);
/// A number and its unit in one text.
std::string with_unit(const VTLValue& field);

}  // namespace vantrel
