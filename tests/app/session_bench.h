#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/session.h"
#include "core/plain_ports.h"
#include "platform/picture_export.h"
#include "support/fixtures.h"

namespace vantrel {

/// A session on a copy of the shipped design database and settings of its own.
class SessionBench {
 public:
  static constexpr const char* kVersion = "1.0.0";

  SessionBench() {
    std::filesystem::create_directories(home.path() / "Data");
    std::filesystem::copy_file(VANTREL_DATABASE, database());
  }

  std::filesystem::path database() const { return home.path() / "Data" / "VTL.mdb"; }

  /// A fresh session, not yet started.
  Session& make(const char* version = kVersion) {
    session = std::make_unique<Session>(
        ProgramFolder(home.path()),
        SessionPorts{.settings = settings,
                     .clock = clock,
                     .sound = sound,
                     .pump = pump,
                     .makeTimer = [] { return std::make_unique<ManualTimer>(); },
                     .writePicture =
                         [this](const auto& file, const Picture& picture) {
                           return pictures.write(file, picture);
                         },
                     .writePages =
                         [this](const auto& file, const PrintJob& job, const PaperSetup& setup) {
                           return pictures.writePages(file, job, setup);
                         }},
        version);
    return *session;
  }
  /// A fresh session after its start-up.
  Session& start(const char* version = kVersion) {
    make(version).StartSession();
    return *session;
  }

  /// Texts of all messages so far.
  std::vector<std::string> texts() const {
    std::vector<std::string> list;
    for (const Message& message : session->messages().shown()) list.push_back(message.text);
    return list;
  }

  test::TemporaryFolder home;
  MemorySettings settings;
  SteadyClock clock;
  SilentSound sound;
  NoEvents pump;
  PictureExport pictures;
  std::unique_ptr<Session> session;
};

/// Enters a lamp with the values of a 28 W fluorescent lamp.
inline void enter_lamp(Session& session, const std::string& name) {
  EditUserData& form = session.userData();
  ASSERT_TRUE(form.InitialiseLamp());
  SQLTableEdit& edit = form.SQLTableEdit1;
  ASSERT_TRUE(edit.CommandNew());
  const char* const values[] = {"28",  "236", "300", "700", "0.34", "1",      "100", "28",
                                "236", "10",  "2.8", "260", "165",  "Linear", "Yes"};
  edit.TypeField(0, name);
  for (std::size_t i = 0; i < std::size(values); ++i) edit.TypeField(i + 2, values[i]);
  ASSERT_TRUE(edit.CommandSave());
}

}  // namespace vantrel
