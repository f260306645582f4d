#include "components/script/script_limits.h"

#include "components/script/script_faults.h"
#include "core/fault.h"

namespace vantrel::script {

namespace {
constexpr std::size_t kBytesPerStep = 64;
constexpr std::size_t kComparisonsPerStep = 1024;
}  // namespace

void Budget::step(std::size_t cost) {
  if (cost > left_) throw Fault(script_fault::kTimedOut);
  left_ -= cost;
}

void Budget::length(std::size_t length) const {
  if (length > limits_.text_length) throw Fault(script_fault::kOutOfStringSpace);
}

void Budget::text(std::size_t length) {
  this->length(length);
  step(length / kBytesPerStep);
}

void Budget::search(std::size_t length, std::size_t pattern) {
  step(length * pattern / kComparisonsPerStep);
}

}  // namespace vantrel::script
