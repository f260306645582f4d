#!/usr/bin/env bash
# Fails when clang-format would lay out a source file differently. Without clang-format it is skipped.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v clang-format >/dev/null || exit 77
find src tests tools benchmarks \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 clang-format --dry-run --Werror
