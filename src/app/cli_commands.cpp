#include "app/cli_commands.h"

#include <fmt/format.h>

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

}  // namespace

int run_design(CliSession& cli, const SelectionOptions& options, std::ostream& out,
               std::ostream& errors) {
  if (!applied(cli, options, errors)) return kExitBadInput;
  const bool done = cli.session().operatingPoints().Calculate(true);
  out << design_summary(cli.session());
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
    if (!commands) {
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
