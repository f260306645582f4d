#include "core/program_folder.h"

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;

TEST(ProgramFolderTest, FindsByEitherSeparatorAndAnyCase) {
  const test::TemporaryFolder home;
  const fs::path database = home.write("Data/VTL.mdb", "x");
  const fs::path picture = home.write("Graphics/Icons/Open.gif", "x");
  const ProgramFolder folder(home.path());
  for (const char* path :
       {"\\Data\\VTL.mdb", "Data/VTL.mdb", "\\data\\vtl.MDB", "/DATA//./vtl.mdb"}) {
    EXPECT_EQ(folder.find(path), database) << path;
  }
  EXPECT_EQ(folder.find("\\graphics\\icons\\open.gif"), picture);
  EXPECT_EQ(folder.find("\\graphics\\icons\\"), home.path() / "Graphics/Icons");
  EXPECT_FALSE(folder.find("\\Data\\other.mdb"));
}

TEST(ProgramFolderTest, TheExactNameWinsAndTheOtherOneIsStillFound) {
  const test::TemporaryFolder home;
  home.write("Data/a.txt", "upper");
  const fs::path exact = home.write("data/a.txt", "lower");
  const fs::path only_upper = home.write("Data/b.txt", "upper");
  const ProgramFolder folder(home.path());
  EXPECT_EQ(folder.find("data/a.txt"), exact);
  EXPECT_EQ(folder.find("data/b.txt"), only_upper);
}

TEST(ProgramFolderTest, NothingLeavesTheFolder) {
  const test::TemporaryFolder home;
  home.write("inner/a.txt", "x");
  home.write("b.txt", "x");
  const ProgramFolder folder(home.path() / "inner");
  for (const std::string_view path :
       {std::string_view("..\\b.txt"), std::string_view("x/../../b.txt"), std::string_view("/../"),
        std::string_view("a.txt\0", 6)}) {
    EXPECT_FALSE(folder.find(path)) << path;
    EXPECT_FALSE(folder.writable(path)) << path;
  }
  EXPECT_EQ(folder.find("/a.txt"), home.path() / "inner/a.txt");  // absolute paths stay below, too
}

TEST(ProgramFolderTest, ReadingFallsBackToTheInstalledFilesWritingDoesNot) {
  const test::TemporaryFolder home;
  const test::TemporaryFolder installed;
  const fs::path own = home.write("Data/VTL.mdb", "own");
  installed.write("Data/VTL.mdb", "installed");
  const fs::path sound = installed.write("Sounds/Click1.wav", "x");
  const ProgramFolder folder(home.path(), installed.path());
  EXPECT_EQ(folder.find("\\data\\vtl.mdb"), own);
  EXPECT_EQ(folder.find("\\sounds\\click1.wav"), sound);
  EXPECT_EQ(folder.writable("\\data\\vtl.mdb"), own);
  EXPECT_EQ(folder.writable("\\sounds\\click1.wav"), home.path() / "sounds/click1.wav");
  EXPECT_EQ(folder.writable("\\data\\New.txt"), home.path() / "Data/New.txt");
}

TEST(FileNames, WithoutPathAndExtension) {
  EXPECT_EQ(name_without_path("\\Graphics\\a/b.gif"), "b.gif");
  EXPECT_EQ(name_without_path("b.gif"), "b.gif");
  EXPECT_EQ(name_without_path("folder/"), "");
  EXPECT_EQ(name_without_extension("a.b.gif"), "a.b");
  EXPECT_EQ(name_without_extension("plain"), "plain");
}

TEST(FileNames, DeletingAMissingFileIsNoFailure) {
  const test::TemporaryFolder folder;
  const fs::path file = folder.write("a.txt", "x");
  EXPECT_TRUE(delete_file(file));
  EXPECT_FALSE(fs::exists(file));
  EXPECT_TRUE(delete_file(file));
  folder.write("full/a.txt", "x");
  EXPECT_FALSE(delete_file(folder.path() / "full"));
}

}  // namespace
}  // namespace vantrel
