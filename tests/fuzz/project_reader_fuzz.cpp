// Fuzz target of the project reader. Any bytes either decode to a project that survives being
// written and read again, and can be put into the fields of a design, or are refused.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <variant>

#include "services/project_file.h"
#include "services/project_fixture.h"

namespace {

using vantrel::ProjectData;

const ProjectData* project_in(const std::variant<ProjectData, vantrel::ProjectError>& decoded) {
  return std::get_if<ProjectData>(&decoded);
}

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto decoded = vantrel::decode(std::span(data, size));
  const ProjectData* const project = project_in(decoded);
  if (project == nullptr) return 0;

  const auto bytes = vantrel::encode(*project);
  require(bytes.size() == size);
  const auto again = vantrel::decode(bytes);
  require(project_in(again) != nullptr && *project_in(again) == *project);

  vantrel::testing::ProjectFixture design;
  const auto skipped = vantrel::apply_values(design.design, project->values) +
                       vantrel::apply_lists(design.design, project->lists);
  require(skipped <= project->values.size() + project->lists.size());
  require(design.messages.shown().empty());
  return 0;
}
