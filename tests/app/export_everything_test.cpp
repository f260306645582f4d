#include <gtest/gtest.h>

#include <QLocale>
#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

#include "app/automation.h"
#include "app/session_bench.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;

constexpr const char* kCommaLocale = "de_DE.UTF-8";

/// Every file that the program writes, by command.
std::vector<Json> exports(const fs::path& folder) {
  std::vector<Json> commands;
  const auto add = [&](Json command, const std::string& name) {
    command["path"] = (folder / name).string();
    commands.push_back(std::move(command));
  };
  const auto pictures = [&](const std::string& what) {
    for (const char* extension : {".svg", ".png", ".bmp", ".pdf"}) {
      add({{"op", "export"}, {"what", what}}, what + extension);
    }
  };
  add({{"op", "save"}}, "design.vtl");
  add({{"op", "export"}, {"what", "bom"}}, "bom.csv");
  add({{"op", "export"}, {"what", "bom"}}, "bom.txt");
  add({{"op", "export"}, {"what", "spice"}}, "stage.cir");
  add({{"op", "export"}, {"what", "time-domain"}, {"step", 50}}, "waveforms.csv");
  for (const char* what : {"operating-points", "time-domain", "schematic", "lres", "pfc"}) {
    pictures(what);
  }
  for (const char* screen :
       {"Simple", "Advanced", "Inductor", "Transformer", "Calculator", "bill_of_materials",
        "GraphOperatingPoints", "GraphTimeDomain", "ImageDisplay"}) {
    add({{"op", "print"}, {"screen", screen}}, "print " + std::string(screen) + ".pdf");
    add({{"op", "print"}, {"screen", screen}, {"paper", "Letter"}, {"orientation", "Landscape"}},
        "print " + std::string(screen) + " wide.pdf");
  }
  return commands;
}

/// All of them, written by a program of its own under a locale.
std::map<std::string, std::string> written_under(const char* locale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const QLocale toolkit_before;
  EXPECT_NE(std::setlocale(LC_ALL, locale), nullptr) << locale;
  QLocale::setDefault(QLocale(QString(locale)));
  SessionBench bench;
  fs::create_directory_symlink(fs::path(VANTREL_DATABASE).parent_path().parent_path() / "graphics",
                               bench.home.path() / "graphics");
  Automation automation(bench.start());
  EXPECT_TRUE(automation.run({{"op", "calculate"}, {"what", "simple"}}).value("result", false));
  EXPECT_TRUE(automation.run({{"op", "calculate"}, {"what", "time-domain"}}).value("ok", false));
  std::map<std::string, std::string> files;
  for (const Json& command : exports(bench.home.path())) {
    const Json reply = automation.run(command);
    EXPECT_TRUE(reply.value("result", false)) << command << reply;
    const fs::path file = command["path"].get<std::string>();
    std::ifstream stream(file, std::ios::binary);
    files[file.filename().string()] = {std::istreambuf_iterator<char>(stream), {}};
  }
  QLocale::setDefault(toolkit_before);
  std::setlocale(LC_ALL, before.c_str());
  return files;
}

TEST(ExportEverythingTest, EveryFileIsTheSameUnderACommaLocale) {
  if (std::setlocale(LC_NUMERIC, kCommaLocale) == nullptr) {
    GTEST_SKIP() << "this machine has no locale with a decimal comma";
  }
  std::setlocale(LC_NUMERIC, "C");
  const auto plain = written_under("C");
  const auto comma = written_under(kCommaLocale);
  ASSERT_EQ(plain.size(), comma.size());
  for (const auto& [name, bytes] : plain) {
    EXPECT_FALSE(bytes.empty()) << name;
    EXPECT_TRUE(comma.at(name) == bytes) << name << " differs";
  }
}

}  // namespace
}  // namespace vantrel
