// Two halves of a test that kills a process while it saves:
//   save_loop save FILE    saves one project after the other until it is killed
//   save_loop check FILE   exit status 0 when the file is a whole project

#include <cstdio>
#include <string>
#include <string_view>

#include "services/file_reader.h"
#include "services/project_fixture.h"

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20U;
constexpr int kFields = 400;

/// A design of its own length each time, so that an old file never covers up a short new one.
[[noreturn]] void save_for_ever(const std::string& path) {
  for (int round = 0;; ++round) {
    vantrel::testing::ProjectFixture design;
    for (int i = 0; i < kFields + round % kFields; ++i) {
      const std::string name = "field" + std::to_string(i);
      auto& field = design.transformer.addField(
          {.name = name.c_str(), .label = "", .unit = "", .places = "2"});
      field.SetValue(round);
    }
    if (!design.project.SaveProjectTo("Simple", path)) std::exit(3);
  }
}

int check(const std::string& path) {
  const auto bytes = vantrel::read_file(path, kMostBytes);
  if (!bytes) {
    std::puts("the file cannot be read");
    return 1;
  }
  const auto decoded = vantrel::decode(*bytes);
  if (const auto* error = std::get_if<vantrel::ProjectError>(&decoded)) {
    std::puts(error->reason.c_str());
    return 1;
  }
  vantrel::testing::ProjectFixture design;
  return design.project.LoadProjectFrom("Simple", path) ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) return 2;
  const std::string_view mode = arguments[1];
  if (mode == "save") save_for_ever(arguments[2]);
  return mode == "check" ? check(arguments[2]) : 2;
}
