#pragma once

#include <string>

#include "outputs/report_document.h"
#include "outputs/svg_device_context.h"

namespace vantrel {

/// The report as one HTML page that needs nothing besides itself: styles and drawings are in it,
/// there is no script, and nothing is fetched. It reads on a wide screen, on a telephone and on
/// paper.
std::string report_html(const ReportDocument& report, const TextMeasure& measure);

}  // namespace vantrel
