#pragma once

namespace vantrel::test {

/// True when `got` differs from `want` by at most `relative` times the size of `want`, or by at
/// most `relative` itself when `want` is 0. What is no number is close to nothing.
bool close(double got, double want, double relative);

}  // namespace vantrel::test
