#include "app/cli_session.h"

#include <fmt/format.h>

#include <ostream>

#include "app/program_home.h"
#include "app/version.h"
#include "platform/user_folders.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

namespace {

ProgramFolder program_folder(const CliPlaces& places, SettingsStore& settings) {
  if (!places.home.empty()) return ProgramFolder(std::filesystem::absolute(places.home));
  return prepare_program_folder(executable_folder(), user_data_folder(),
                                settings.get(kSettingsSection, kAppVersionKey, ""),
                                kProgramVersion);
}

}  // namespace

std::unique_ptr<CliSession> CliSession::start(const CliPlaces& places, std::ostream& errors) {
  std::unique_ptr<CliSession> cli(new CliSession);
  const std::string settings_file =
      places.settings.empty() ? user_settings_file().string() : places.settings;
  cli->settings_ = std::make_unique<QtSettings>(settings_file);
  const SessionPorts ports{
      .settings = *cli->settings_,
      .clock = cli->clock_,
      .sound = cli->sound_,
      .pump = cli->pump_,
      .makeTimer = [] { return std::make_unique<ImmediateTimer>(); },
      .writePicture = [pictures = &cli->pictures_](
                          const auto& file,
                          const Picture& picture) { return pictures->write(file, picture); },
      .writePages =
          [pictures = &cli->pictures_](const auto& file, const PrintJob& job,
                                       const PaperSetup& setup) {
            return pictures->writePages(file, job, setup);
          }};
  cli->session_ =
      std::make_unique<Session>(program_folder(places, *cli->settings_), ports, kProgramVersion);
  cli->session_->messages().onMessage = [&errors](const Message& message) {
    errors << with_line_breaks(message.text) << '\n';
  };
  if (!cli->session_->StartSession()) return nullptr;
  return cli;
}

void CliSession::keepMessagesQuiet() { session_->messages().onMessage = nullptr; }

}  // namespace vantrel
