#pragma once

#include <string>

#include "app/session.h"
#include "outputs/report_document.h"

namespace vantrel {

/// A drawing of the program's folder with the values of the design on it.
enum class ReportDrawing { Diagram, Lres, Lpfc, Transformer, BalanceTransformer };

/// Adds a drawing to a section, and what is wrong with it where it cannot be shown whole. The
/// windows of the session see nothing of it.
void add_drawing(ReportSection& section, Session& session, ReportDrawing drawing,
                 const std::string& caption);

}  // namespace vantrel
