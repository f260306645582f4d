#include "app/cli_commands.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <istream>
#include <ostream>
#include <unordered_map>

#include "app/automation.h"
#include "app/design_summary.h"
#include "app/exit_status.h"
#include "selection/browser_control.h"

namespace vantrel {

namespace {

bool applied(CliSession& cli, const SelectionOptions& options, std::ostream& errors) {
  std::string why;
  if (apply_selection_options(cli.session(), options, why)) return true;
  errors << "vantrel-cli: " << why << '\n';
  return false;
}

/// The chain of the simple screen frees what the user has fixed; a design with fixed values takes
/// its first step as the advanced screen does.
bool run_chain(Session& session, bool keep_fixes) {
  if (!keep_fixes) return session.simple().calculate_simple(true, true, true, true);
  return session.operatingPoints().Calculate(true) &&
         session.simple().calculate_simple(false, true, true, true);
}

std::string message_lines(const SysMsg& messages, std::size_t first) {
  std::string lines;
  for (std::size_t i = first; i < messages.shown().size(); ++i) {
    lines += "\n" + with_line_breaks(messages.shown()[i].text) + "\n";
  }
  return lines.empty() ? lines : "\nMessages\n" + lines;
}

}  // namespace

int run_design(CliSession& cli, const SelectionOptions& options, const DesignOutput& output,
               const ReportOutput& reports, std::ostream& out, std::ostream& errors) {
  if (!applied(cli, options, errors)) return kExitBadInput;
  Session& session = cli.session();
  const DesignStatus status(session);
  cli.keepMessagesQuiet();
  const std::size_t first_message = session.messages().shown().size();
  const bool done = run_chain(session, !options.fixes.empty());
  const bool simulated = !output.folder.empty() && done && simulate_start(session);
  out << design_summary(session) << message_lines(session.messages(), first_message);
  std::string why;
  if (!output.folder.empty()) {
    why = write_design(session, design_json(session, done, first_message), simulated, output);
  }
  if (why.empty()) {
    ReportExport writer;
    why = write_reports(session, status, writer, reports);
  }
  if (!why.empty()) {
    errors << "vantrel-cli: " << why << '\n';
    return kExitBadInput;
  }
  return done ? kExitDone : kExitEndedEarly;
}

int run_list(CliSession& cli, const std::string& slot, const SelectionOptions& options,
             std::ostream& out, std::ostream& errors) {
  static const std::unordered_map<std::string, int> slots{
      {"ic", kSlotIc}, {"input", kSlotInput}, {"lamp", kSlotLamp}, {"config", kSlotConfig}};
  if (!applied(cli, options, errors)) return kExitBadInput;
  browser_control& browser = cli.session().browser();
  const int number = slots.at(slot);
  browser.Setup(number);
  for (const ValidItem& item : browser.ValidItems()) {
    const bool selected = item.ID == browser.GetInfo(number);
    out << fmt::format("{} {:>4}  {}{}\n", selected ? '*' : ' ', item.ID,
                       item.UserData ? "User:" : "", item.Name);
  }
  return kExitDone;
}

int run_script(CliSession& cli, const std::string& file, std::istream& in, std::ostream& out,
               std::ostream& errors) {
  std::ifstream commands;
  if (!file.empty()) {
    commands.open(file);
    if (!commands || std::filesystem::is_directory(file)) {
      errors << "vantrel-cli: cannot read '" << file << "'\n";
      return kExitBadInput;
    }
  }
  cli.keepMessagesQuiet();
  Automation automation(cli.session());
  std::istream& source = file.empty() ? in : commands;
  for (std::string line; std::getline(source, line);) {
    if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
    const Json reply = automation.runLine(line);
    out << reply.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
  }
  return kExitDone;
}

}  // namespace vantrel
