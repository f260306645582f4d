#include "database_builder/problems.h"

namespace vantrel::builder {

std::string to_string(const Problem& problem) {
  std::string place = problem.file.string();
  if (problem.line > 0) place += ":" + std::to_string(problem.line);
  return place + ": " + problem.text;
}

}  // namespace vantrel::builder
