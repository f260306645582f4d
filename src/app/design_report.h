#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/design_status.h"
#include "app/session.h"
#include "outputs/report_document.h"
#include "platform/report_export.h"

namespace vantrel {

/// The whole design as a report for a colleague or a reviewer: summary, selection, inputs,
/// operating points, graphs, components with their rules, magnetics, bill, versions and circuit
/// diagram. What the design lacks is said in its place. It asks nothing, changes nothing and shows
/// no window; the start of the ballast is simulated for it. `date` is printed as given,
/// "2026-01-31" or empty. The session must outlive the report.
ReportDocument design_report(Session& session, const DesignStatus& status, std::string_view date);

/// Where reports go, what date they carry and on what paper.
struct ReportOutput {
  std::vector<std::filesystem::path> files;
  std::string date;
  PaperSetup paper = {};
};

/// Makes the report and writes it to each of the files. Gives the reason of a failure, empty when
/// all were written.
std::string write_reports(Session& session, const DesignStatus& status, ReportExport& writer,
                          const ReportOutput& output);

/// Asks for a file, with the usual name in the folder of exports, and writes the report of this day
/// to it in the format of its extension. A failure is reported. True when it was written.
bool export_report(Session& session, const DesignStatus& status, FileDialogs* dialogs);

/// True for a day of the calendar in the form "2026-01-31".
bool is_calendar_day(std::string_view text);
/// The present day on this machine's clock in that form.
std::string present_day();

}  // namespace vantrel
