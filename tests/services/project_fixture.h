#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/screen.h"
#include "services/messages/sysmsg.h"
#include "services/project.h"

namespace vantrel::testing {

/// File dialogs that give one answer and note what they were asked.
class AnsweredDialogs : public FileDialogs {
 public:
  std::optional<std::string> askSave(std::string_view title, std::string_view filter,
                                     std::string_view proposed) override {
    return ask("save", title, filter, proposed);
  }
  std::optional<std::string> askOpen(std::string_view title, std::string_view filter,
                                     std::string_view proposed) override {
    return ask("open", title, filter, proposed);
  }

  std::optional<std::string> answer;
  std::vector<std::string> asked;

 private:
  std::optional<std::string> ask(const std::string& kind, std::string_view title,
                                 std::string_view filter, std::string_view proposed) {
    asked = {kind, std::string(title), std::string(filter), std::string(proposed)};
    return answer;
  }
};

/// The seven design screens with a few fields each, one more screen of the run, and hooks that note
/// the steps of a load.
struct ProjectFixture {
  explicit ProjectFixture(FileCalls calls = system_file_calls())
      : simple("Simple", "", context),
        advanced("Advanced", "", context),
        inductor("Inductor", "", context),
        transformer("Transformer", "", context),
        calculator("Calculator", "", context),
        operating_points("GraphOperatingPoints", "", context),
        time_domain("GraphTimeDomain", "", context),
        bill("bill_of_materials", "", context),
        design{&simple,     &advanced,         &inductor,   &transformer,
               &calculator, &operating_points, &time_domain},
        project(design, loaded, messages, &dialogs, hooks(), std::move(calls)) {
    advanced.addField({.name = "LValue", .label = "L", .unit = "mH", .places = "2", .tick = true});
    advanced.addField({.name = "max", .label = "MAX%", .unit = "%", .places = "2"});
    advanced.addField({.name = "TV6104_DCOMP", .label = "", .unit = "", .places = "2"});
    advanced.addField(
        {.name = "lamp_description", .label = "", .unit = "", .places = "", .type = kTextual});
    advanced.addPullDown("CalculationPulldown");
    inductor.addField(
        {.name = "ind_inductance", .label = "L", .unit = "mH", .places = "3", .index = 0});
    inductor.addField(
        {.name = "ind_inductance", .label = "L", .unit = "mH", .places = "3", .index = 1});
    PullDown& cores = inductor.addPullDown("ind_core");
    cores.items = {"EF16", "EF20", "EF25"};
    cores.selected = 2;
    calculator.addField(
        {.name = "cc_preheat_time", .label = "", .unit = "Sec", .places = "2", .tick = true});
    for (Screen* screen : design) loaded.add(*screen);
    loaded.add(bill);
  }

  ProjectHooks hooks() {
    ProjectHooks made;
    made.GetInfo = [this](int slot) { return selection[static_cast<std::size_t>(slot)]; };
    made.ItemSelect = [this](int slot, std::int32_t id) {
      steps.push_back("select " + std::to_string(slot) + " " + std::to_string(id));
      if (slot == removed_slot) return false;
      selection[static_cast<std::size_t>(slot)] = id;
      return true;
    };
    made.handleAdvancedChanges = [this](bool on) { steps.push_back(on ? "on" : "off"); };
    made.relabelAdvanced = [this] { steps.push_back("relabel"); };
    made.set_frames_from_tabstrips = [this] { steps.push_back("frames"); };
    made.set_layout = [this] { steps.push_back("layout"); };
    made.setWindowStateNormal = [this](Screen& screen) {
      steps.push_back("normal " + screen.name());
    };
    made.linkTimes = [this](bool on) { steps.push_back(on ? "link" : "unlink"); };
    made.reloadGraphOperatingPoints = [this](bool redraw) {
      steps.push_back(redraw ? "redraw OP" : "reload OP");
    };
    made.reloadGraphTimeDomain = [this](bool redraw) {
      steps.push_back(redraw ? "redraw TD" : "reload TD");
    };
    return made;
  }

  /// What a load may change, in one text.
  std::string snapshot() const {
    std::string text;
    for (const std::int32_t id : selection) text += std::to_string(id) + " ";
    for (const auto& record : collect_values(design)) {
      text += record.name + "=" + record.text + (record.fixed ? "!" : "") + " ";
    }
    for (const auto& record : collect_lists(design)) text += std::to_string(record.selected) + " ";
    for (const Screen* screen : loaded.screens()) text += screen->visible() ? "v" : "-";
    return text;
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> shown;
    for (const Message& message : messages.shown()) shown.push_back(message.text);
    return shown;
  }

  SysMsg messages;
  FieldContext context{messages, '.', {}, {}};
  Screen simple, advanced, inductor, transformer, calculator, operating_points, time_domain, bill;
  DesignScreens design;
  ScreenRegistry loaded;
  AnsweredDialogs dialogs;
  std::array<std::int32_t, kProjectSlots> selection = {1, 2, 300, 0};
  int removed_slot = -1;
  std::vector<std::string> steps;
  Project project;
};

/// A folder that lives as long as the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vantrel-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
  const std::filesystem::path& path() const { return path_; }
  std::size_t count() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_),
                                                  std::filesystem::directory_iterator()));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace vantrel::testing
