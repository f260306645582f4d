#include <CLI/CLI.hpp>
#include <iostream>

#include "app/check_drawings.h"
#include "app/cli_commands.h"
#include "app/cli_session.h"
#include "app/exit_status.h"
#include "app/sweep.h"
#include "app/version.h"

namespace {

using namespace vantrel;

/// The options of `design` that are about reports.
void add_report_options(CLI::App& design, ReportOutput& reports) {
  const CLI::Validator form(
      [](std::string& file) { return ReportExport::refusal(file).value_or(""); }, "PDF or HTML");
  const CLI::Validator day(
      [](std::string& text) {
        return is_calendar_day(text) ? std::string() : "'" + text + "' is no day like 2026-01-31";
      },
      "DAY");
  design.add_option("--report", reports.files, "Design report, .pdf or .html; may be repeated")
      ->check(form);
  design.add_option("--date", reports.date, "Date on the report, today without it")->check(day);
  design
      .add_option_function<std::string>(
          "--paper", [&reports](const std::string& name) { set_paper(reports.paper, name); },
          "Paper of a PDF report: A4 or Letter")
      ->check(CLI::IsMember({"A4", "Letter"}, CLI::ignore_case));
}

int run(int argc, char** argv) {
  CLI::App program{"Design assistant for electronic lamp ballasts and electronic transformers",
                   "vantrel-cli"};
  program.set_version_flag("--version", std::string(kProgramVersion));
  program.require_subcommand(1);

  CliPlaces places;
  program.add_option("--home", places.home, "The program's folder (Data, Graphics, Export)");
  program.add_option("--settings", places.settings, "File of the user's settings");

  SelectionOptions selection;
  std::string slot;
  std::string script;
  DesignOutput output;
  ReportOutput reports{.files = {}, .date = present_day()};

  CLI::App* design = program.add_subcommand("design", "Design a ballast and print the result");
  add_selection_options(*design, selection);
  add_field_options(*design, selection);
  design->add_option("--out", output.folder,
                     "Folder for design.json, bom.csv, waveforms.csv and the pictures");
  design
      ->add_option("--waveform-step", output.waveform_step,
                   "Write each Nth sample of the waveforms (50 ns apart)")
      ->check(CLI::PositiveNumber);
  add_report_options(*design, reports);

  CLI::App* list = program.add_subcommand("list", "List what the selection allows");
  list->add_option("slot", slot, "What to list")
      ->required()
      ->check(CLI::IsMember({"ic", "input", "lamp", "config"}));
  add_selection_options(*list, selection);

  CLI::App* automation =
      program.add_subcommand("script", "Answer one JSON command per line with one JSON line");
  automation->add_option("file", script, "File with commands instead of the standard input");

  SweepOptions sweep_options;
  CLI::App* sweep =
      program.add_subcommand("sweep", "Design every combination that the selection rules allow");
  add_sweep_options(*sweep, sweep_options);

  CLI::App* check = program.add_subcommand(
      "check", "Compare the circuit diagram of every combination with its bill of materials");
  add_selection_options(*check, selection);

  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? kExitDone : kExitWrongUse;
  }

  if (sweep->parsed()) return run_sweep(places, sweep_options, std::cerr);
  if (check->parsed()) return run_check(places, selection, std::cout, std::cerr);
  const auto session = CliSession::start(places, std::cerr);
  if (session == nullptr) return kExitBadInput;
  if (design->parsed())
    return run_design(*session, selection, output, reports, std::cout, std::cerr);
  if (list->parsed()) return run_list(*session, slot, selection, std::cout, std::cerr);
  return run_script(*session, script, std::cin, std::cout, std::cerr);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const int status = run(argc, argv);
    std::cout.flush();
    if (std::cout) return status;
    std::cerr << "vantrel-cli: the output could not be written\n";
    return vantrel::kExitBadInput;
  } catch (const std::exception& error) {
    std::cerr << "vantrel-cli: " << error.what() << '\n';
    return vantrel::kExitBadInput;
  }
}
