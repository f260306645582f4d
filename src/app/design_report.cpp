#include "app/design_report.h"

#include <QDate>
#include <charconv>
#include <chrono>

#include "app/report_sections.h"
#include "core/save_dialog.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

std::optional<int> whole_number(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || text.front() == '-') return {};
  return number;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : " \u00b7 ") + name;
  return text;
}

}  // namespace

ReportDocument design_report(Session& session, const DesignStatus& status, std::string_view date) {
  ReportDocument report{.title = "Design Report",
                        .subtitle = joined(selected_names(session)),
                        .date = std::string(date),
                        .sections = {}};
  report.sections.push_back(summary_section(session, status));
  report.sections.push_back(selection_section(session));
  report.sections.push_back(versions_section(session));
  report.sections.push_back(inputs_section(session));
  report.sections.push_back(operating_points_section(session, status));
  report.sections.push_back(gain_graph_section(session));
  report.sections.push_back(waveforms_section(session));
  report.sections.push_back(components_section(session));
  report.sections.push_back(magnetics_section(session));
  report.sections.push_back(bill_section(session));
  report.sections.push_back(diagram_section(session));
  std::erase_if(report.sections, [](const ReportSection& each) { return each.blocks.empty(); });
  return report;
}

std::string write_reports(Session& session, const DesignStatus& status, ReportExport& writer,
                          const ReportOutput& output) {
  if (output.files.empty()) return {};
  const ReportDocument report = design_report(session, status, output.date);
  for (const std::filesystem::path& file : output.files) {
    if (const auto why = writer.write(file, report, output.paper)) {
      return file.string() + ": " + *why;
    }
  }
  return {};
}

bool export_report(Session& session, const DesignStatus& status, FileDialogs* dialogs) {
  const std::string path =
      select_savefile(dialogs, session.folder(), "Design Report", "Design Report.pdf",
                      "PDF (*.pdf)|*.pdf|HTML (*.html)|*.html");
  if (path.empty()) return false;
  ReportExport writer;
  const auto why =
      writer.write(path, design_report(session, status, present_day()), session.paperSetup());
  if (!why) return true;
  session.messages().msg(session.simple().name(),
                         "Could not export file '" + name_without_path(path) + "' (" + *why + ")",
                         kMessageOk, kSeverityWarning);
  return false;
}

bool is_calendar_day(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
  const auto year = whole_number(text.substr(0, 4));
  const auto month = whole_number(text.substr(5, 2));
  const auto day = whole_number(text.substr(8, 2));
  if (!year || !month || !day) return false;
  return std::chrono::year_month_day(std::chrono::year(*year),
                                     std::chrono::month(static_cast<unsigned>(*month)),
                                     std::chrono::day(static_cast<unsigned>(*day)))
      .ok();
}

std::string present_day() { return QDate::currentDate().toString(Qt::ISODate).toStdString(); }

}  // namespace vantrel
