#pragma once

#include <cstddef>

#include "components/script/script_faults.h"
#include "core/fault.h"

namespace vantrel::script {

/// Takes one level of nesting for as long as it lives; a Fault "Out of stack space" when none is
/// left.
class Nesting {
 public:
  explicit Nesting(std::size_t& left) : left_(left) {
    if (left_ == 0) throw Fault(script_fault::kOutOfStackSpace);
    --left_;
  }
  ~Nesting() { ++left_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  std::size_t& left_;
};

}  // namespace vantrel::script
