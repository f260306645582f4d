#!/usr/bin/env bash
# Takes pictures of every window, light and dark, at 100 and 200 %, into build/screenshots.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target vantrel_screenshots
for scale in 1 2; do
  for theme in light dark; do
    QT_SCALE_FACTOR=$scale QT_QPA_PLATFORM=offscreen \
      build/release/bin/vantrel_screenshots build/screenshots "$theme"
  done
done
