#include "app/program_home.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "session_bench.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& text) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << text;
}

std::string read(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ProgramHome, AWritableFolderBesideTheProgramServes) {
  const test::TemporaryFolder folder;
  write(folder.path() / "Data" / "VTL.mdb", "here");
  const ProgramFolder home =
      prepare_program_folder(folder.path(), folder.path() / "user", "", "1.0.0");
  EXPECT_EQ(home.home(), folder.path());
  EXPECT_FALSE(fs::exists(folder.path() / "user"));
}

TEST(ProgramHome, AnInstalledProgramFillsTheUsersFolder) {
  const test::TemporaryFolder folder;
  const fs::path installed = folder.path() / "installed";
  const fs::path user = folder.path() / "user";
  write(installed / "Data" / "VTL.mdb", "first");
  write(installed / "Sounds" / "Click1.wav", "click");

  ProgramFolder home = user_program_folder(installed, user, "", "1.0.0");
  EXPECT_EQ(read(*home.find("\\Data\\VTL.mdb")), "first");
  EXPECT_EQ(read(*home.find("\\sounds\\click1.WAV")), "click");

  write(user / "Data" / "VTL.mdb", "with the user's rows");
  home = user_program_folder(installed, user, "1.0.0", "1.0.0");
  EXPECT_EQ(read(*home.find("\\Data\\VTL.mdb")), "with the user's rows");
  home = user_program_folder(installed, user, "1.0.0", "1.1.0");
  EXPECT_EQ(read(*home.find("\\Data\\VTL.mdb")), "first");
  EXPECT_EQ(read(*home.find("\\Data\\VTL.mdb.OLD")), "with the user's rows");
}

}  // namespace
}  // namespace vantrel
