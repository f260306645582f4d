#include "app/automation_ops.h"
#include "app/print_jobs.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

/// The setup of the user with what the command says instead.
PaperSetup setup_argument(const Session& session, const Json& command) {
  PaperSetup setup = session.paperSetup();
  if (command.contains("paper") && !set_paper(setup, text_argument(command, "paper"))) {
    throw CommandError("Argument 'paper' is neither A4 nor Letter");
  }
  if (command.contains("orientation") &&
      !set_orientation(setup, text_argument(command, "orientation"))) {
    throw CommandError("Argument 'orientation' is not Automatic, Portrait or Landscape");
  }
  return setup;
}

}  // namespace

Json op_print(Session& session, const Json& command) {
  const std::string screen = text_argument(command, "screen");
  const std::string path = text_argument(command, "path");
  const PaperSetup setup = setup_argument(session, command);
  const bill_of_materials& bill = session.billOfMaterials();
  if (equal_ignoring_case(screen, bill.name()) && !session.printing().mayPrint(bill.grid())) {
    return {{"result", false}};
  }
  const auto job = print_job(session, screen);
  if (!job) throw CommandError("Screen '" + screen + "' has nothing to print");
  if (const auto why = session.writePages(path, *job, setup)) throw CommandError(*why);
  return {{"result", true}};
}

}  // namespace vantrel
