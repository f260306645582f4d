#include "services/project.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <random>

#include "services/file_reader.h"
#include "services/project_fixture.h"

namespace vantrel {
namespace {

using testing::ProjectFixture;
using testing::TemporaryFolder;
using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;

Bytes bytes_of(const std::filesystem::path& path) {
  return read_file(path, std::size_t{1} << 20U).value_or(Bytes());
}

void write_bytes(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

class ProjectTest : public ::testing::Test {
 protected:
  ProjectTest() {
    design.advanced.field("LValue").SetValue(2.19);
    design.advanced.field("LValue").SetFixed(true);
    design.advanced.field("max").SetValue(100);
    design.advanced.field("lamp_description").SetValue("T5 28W, 25 °C");
    design.inductor.field("ind_inductance", 1).SetValue(0.333);
    design.calculator.field("cc_preheat_time").SetValue(0.99);
    design.simple.visible(true);
  }

  TemporaryFolder folder;
  std::string path = (folder / "lamp.vtl").string();
  ProjectFixture design;
  ProjectFixture other;
};

TEST_F(ProjectTest, LoadBringsBackWhatSaveWrote) {
  ASSERT_TRUE(design.project.SaveProjectTo("Simple", path));
  other.selection = {5, 5, 5, 5};
  other.advanced.visible(true);
  other.bill.visible(true);
  ASSERT_TRUE(other.project.LoadProjectFrom("Simple", path));

  EXPECT_EQ(other.selection, design.selection);
  EXPECT_EQ(other.advanced.field("LValue").value(), Variant(2.19));
  EXPECT_TRUE(other.advanced.field("LValue").IsFixed());
  EXPECT_EQ(other.advanced.field("lamp_description").value(), Variant("T5 28W, 25 °C"));
  EXPECT_EQ(other.advanced.field("TV6104_DCOMP").value(), Variant(0.0)) << "was empty";
  EXPECT_EQ(other.inductor.field("ind_inductance", 0).value(), Variant(0.0)) << "was empty";
  EXPECT_EQ(other.inductor.field("ind_inductance", 1).value(), Variant(0.333));
  EXPECT_TRUE(other.simple.visible());
  EXPECT_FALSE(other.advanced.visible());
  EXPECT_FALSE(other.bill.visible()) << "every screen that is no design screen is hidden";
  EXPECT_EQ(other.project.CurrentProjectPath(), path);
  EXPECT_EQ(other.texts(), Texts{});
}

TEST_F(ProjectTest, SaveLoadSaveGivesTheSameBytes) {
  // A product of the lamp configuration is held in single precision, unrounded.
  design.advanced.field("max").SetValue(165.25);
  design.advanced.field("max").MultiplyValue(1.5F);
  design.advanced.field("TV6104_DCOMP").SetValue("1E300");
  design.inductor.findPullDown("ind_core")->selected = 1;
  const std::string second = (folder / "second.vtl").string();
  ASSERT_TRUE(design.project.SaveProjectTo("Simple", path));
  ASSERT_TRUE(other.project.LoadProjectFrom("Simple", path));
  ASSERT_TRUE(other.project.SaveProjectTo("Simple", second));
  EXPECT_FALSE(bytes_of(path).empty());
  EXPECT_EQ(bytes_of(path), bytes_of(second));
  EXPECT_EQ(other.advanced.field("max").value(), Variant(247.875));
  EXPECT_EQ(other.advanced.field("max").ValueRoundDecPlaces(), "2");
  EXPECT_EQ(other.inductor.findPullDown("ind_core")->selected, 1);
}

TEST_F(ProjectTest, LoadTakesItsStepsInOrder) {
  design.project.SaveProjectTo("Simple", path);
  other.calculator.field("cc_preheat_time").changed.connect([this](Variant&) {
    other.steps.push_back("value");
  });
  other.simple.layoutChanged.connect([this] {
    if (!other.simple.visible()) other.steps.push_back("hide Simple");
  });
  other.project.LoadProjectFrom("Simple", path);
  EXPECT_EQ(other.steps, (Texts{"off", "select 0 1", "select 1 2", "select 2 300", "select 3 0",
                                "on", "relabel", "frames", "layout", "hide Simple", "normal Simple",
                                "unlink", "value", "link", "reload OP", "reload TD"}));
}

TEST_F(ProjectTest, LastValueDecidesWhetherTheGraphsAreDrawn) {
  design.calculator.field("cc_preheat_time").SetFixed(true);
  design.project.SaveProjectTo("Simple", path);
  other.project.LoadProjectFrom("Simple", path);
  ASSERT_GE(other.steps.size(), 2U);
  EXPECT_EQ(other.steps[other.steps.size() - 2], "redraw OP");
  EXPECT_EQ(other.steps.back(), "redraw TD");
}

TEST_F(ProjectTest, OneMainScreenIsAlwaysShown) {
  design.simple.visible(false);
  design.inductor.visible(true);
  design.project.SaveProjectTo("Inductor", path);
  Bytes file = bytes_of(path);
  EXPECT_EQ(file[21], 1) << "Simple is saved as visible when neither main screen is";
  file[21] = 0;
  write_bytes(path, file);
  other.project.LoadProjectFrom("Simple", path);
  EXPECT_TRUE(other.simple.visible());
  EXPECT_TRUE(other.inductor.visible());
  EXPECT_FALSE(other.advanced.visible());
}

TEST_F(ProjectTest, Version1GivesTheNewFieldTheOldValue) {
  ProjectData data;
  data.values = {{1, "TV6114_DCOMP", -1, false, "4.5"}};
  Bytes file = encode(data);
  file[0] = 1;
  write_bytes(path, file);
  EXPECT_TRUE(other.project.LoadProjectFrom("Simple", path));
  EXPECT_EQ(other.advanced.field("TV6104_DCOMP").value(), Variant(4.5));
  EXPECT_EQ(other.texts(), Texts{});
  file[0] = 2;
  write_bytes(path, file);
  EXPECT_TRUE(other.project.LoadProjectFrom("Simple", path));
  EXPECT_EQ(other.texts(),
            Texts{"1 value of this project has no place in this version and was skipped"});
}

TEST_F(ProjectTest, SkipsAndCountsWhatHasNoPlace) {
  ProjectData data;
  data.values = {{1, "LValue", -1, true, " 3.5 "},       {1, "gone", -1, false, "1"},
                 {1, "LValue", 4, false, "9"},           {1, "max", -1, false, "much"},
                 {2, "IND_INDUCTANCE", 1, false, "0.5"}, {1, "TV6104_DCOMP", -1, false, ""}};
  data.lists = {{2, "ind_core", -1, 3}, {2, "gone", -1, 0}, {2, "ind_core", -1, -1}};
  write_bytes(path, encode(data));
  other.advanced.field("max").SetValue(90);
  EXPECT_TRUE(other.project.LoadProjectFrom("Simple", path));
  EXPECT_EQ(other.texts(),
            Texts{"5 values of this project have no place in this version and were skipped"});
  EXPECT_EQ(other.advanced.field("LValue").value(), Variant(3.5));
  EXPECT_EQ(other.advanced.field("max").value(), Variant(90.0));
  EXPECT_EQ(other.inductor.field("ind_inductance", 1).value(), Variant(0.5));
  EXPECT_TRUE(other.advanced.field("TV6104_DCOMP").IsItEmpty());
  EXPECT_EQ(other.inductor.findPullDown("ind_core")->selected, -1);
}

TEST_F(ProjectTest, ARemovedItemStopsTheLoadAtItsSlot) {
  const Texts words = {"This project refers to an IC type which has been removed",
                       "This project refers to an input type which has been removed",
                       "This project refers to a lamp type which has been removed",
                       "This project refers to a configuration which has been removed"};
  design.project.SaveProjectTo("Simple", path);
  for (int slot = 0; slot < 4; ++slot) {
    ProjectFixture loader;
    loader.selection = {9, 9, 9, 9};
    loader.removed_slot = slot;
    EXPECT_FALSE(loader.project.LoadProjectFrom("Simple", path));
    EXPECT_EQ(loader.texts(), Texts{words[static_cast<std::size_t>(slot)]});
    for (int i = 0; i < 4; ++i) {
      const auto at = static_cast<std::size_t>(i);
      EXPECT_EQ(loader.selection[at], i < slot ? design.selection[at] : 9) << "slot " << i;
    }
    EXPECT_TRUE(loader.advanced.field("LValue").IsItEmpty());
    EXPECT_EQ(loader.steps.at(loader.steps.size() - 2), "on") << "changes are handled again";
    EXPECT_EQ(loader.project.CurrentProjectPath(), "");
  }
}

TEST_F(ProjectTest, AsksForTheName) {
  design.dialogs.answer = std::nullopt;
  EXPECT_FALSE(design.project.SaveProject("Advanced"));
  const std::string filter = "Vantrel Projects (*.vtl)|*.vtl|All Files (*.*)|*.*";
  EXPECT_EQ(design.dialogs.asked, (Texts{"save", "Select project filename to save", filter, ""}));
  design.dialogs.answer = "";
  EXPECT_FALSE(design.project.LoadProject("Advanced"));
  EXPECT_EQ(design.dialogs.asked, (Texts{"open", "Select project filename to load", filter, ""}));
  EXPECT_EQ(design.texts(), Texts{}) << "an empty answer ends the operation without a word";

  design.dialogs.answer = path;
  EXPECT_TRUE(design.project.SaveProject("Advanced"));
  ASSERT_EQ(design.messages.shown().size(), 1U);
  const Message& saved = design.messages.shown().front();
  EXPECT_EQ(saved.text, "Project 'lamp.vtl' Saved OK");
  EXPECT_EQ(saved.owner, "Advanced");
  EXPECT_EQ(saved.type, kMessageOk);
  EXPECT_EQ(saved.severity, kSeverityInformation);
  EXPECT_TRUE(design.project.LoadProject("Advanced"));
  EXPECT_EQ(design.dialogs.asked.back(), path) << "the last path is proposed";
}

TEST_F(ProjectTest, ReportsWhatItCannotOpen) {
  EXPECT_FALSE(design.project.LoadProjectFrom("Simple", (folder / "none.vtl").string()));
  EXPECT_FALSE(design.project.LoadProjectFrom("Simple", folder.path().string()));
  EXPECT_FALSE(design.project.SaveProjectTo("Simple", (folder / "no").string() + "/x.vtl"));
  EXPECT_EQ(design.texts(),
            (Texts{"Could not load project 'none.vtl'",
                   "Could not load project '" + folder.path().filename().string() + "'",
                   "Could not save project 'x.vtl'"}));
  EXPECT_EQ(design.project.CurrentProjectPath(), "");
}

TEST_F(ProjectTest, AFullDiskKeepsTheOldProject) {
  ASSERT_TRUE(design.project.SaveProjectTo("Simple", path));
  const Bytes before = bytes_of(path);
  FileCalls calls = system_file_calls();
  calls.write = [](int, const void*, std::size_t) -> ssize_t {
    errno = ENOSPC;
    return -1;
  };
  ProjectFixture full(calls);
  EXPECT_FALSE(full.project.SaveProjectTo("Simple", path));
  EXPECT_EQ(full.texts(), Texts{"Could not save project 'lamp.vtl'"});
  EXPECT_EQ(bytes_of(path), before);
  EXPECT_EQ(folder.count(), 1U);
}

// Whatever the bytes are: either the load succeeds, or one of the given messages comes and the
// design is as it was (the items of this fixture are never removed).
void expect_sound_load(const std::string& path, const Bytes& bytes) {
  ProjectFixture loader;
  loader.advanced.field("LValue").SetValue(1.25);
  const std::string before = loader.snapshot();
  write_bytes(path, bytes);
  if (loader.project.LoadProjectFrom("Simple", path)) {
    EXPECT_LE(loader.messages.shown().size(), 1U);
  } else {
    EXPECT_EQ(loader.snapshot(), before);
    EXPECT_EQ(loader.texts(), Texts{"Could not load project 'lamp.vtl'"});
    EXPECT_EQ(loader.steps, Texts{});
  }
}

TEST_F(ProjectTest, DamagedFilesLoadWholeOrNotAtAll) {
  design.project.SaveProjectTo("Simple", path);
  const Bytes good = bytes_of(path);
  for (std::size_t length = 0; length < good.size(); length += 7) {
    expect_sound_load(path,
                      Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length)));
  }
  std::mt19937 random(20260101);
  for (int round = 0; round < 400; ++round) {
    Bytes bad = good;
    for (int change = 0; change <= round % 4; ++change) {
      bad[random() % bad.size()] = static_cast<std::uint8_t>(random());
    }
    expect_sound_load(path, bad);
  }
}

}  // namespace
}  // namespace vantrel
