#!/usr/bin/env bash
# Builds the fuzz targets with clang, libFuzzer and the sanitizers, and runs each for SECONDS.
# Usage: tools/fuzz.sh [SECONDS] [TARGET...]
# A target is the name of a file tests/fuzz/<target>_fuzz.cpp; all of them without any. Seeds come
# from tests/fuzz/corpus/<target>. Inputs that were found go to build/fuzz. Exit status 77 when
# clang is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v clang++ >/dev/null || { echo "clang++ is not installed"; exit 77; }

# The folders below src whose sources a target needs, without their subfolders; or the start of the
# names of some sources of a folder.
declare -A sources=(
  [metafile]="services/messages core outputs/metafile outputs/bitmap outputs/validate_schematic_texts"
  [project_reader]="services/messages core services/project services/file_reader"
  [script_host]="services/messages core components/script"
)

seconds=${1:-60}
shift || true
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for file in tests/fuzz/*_fuzz.cpp; do targets+=("$(basename "$file" _fuzz.cpp)"); done
fi

out=build/fuzz
export FLAGS="-std=c++20 -g -O1 -fsanitize=fuzzer-no-link,address,undefined \
  -fno-sanitize-recover=all -ffp-contract=off -Isrc -Itests"

# Prints each source file of the target and its object file, ended by NUL.
list_sources() {
  local folder file
  for folder in ${sources[$1]}; do
    for file in "src/$folder"/*.cpp "src/$folder"*.cpp; do
      [ -f "$file" ] || continue
      printf '%s\0%s\0' "$file" "$out/$1/objects/${file//\//_}.o"
    done
  done
}

build() {
  local target=$1
  [ -n "${sources[$target]:-}" ] || { echo "the sources of $target are not listed"; exit 1; }
  rm -rf "$out/$target/objects"
  mkdir -p "$out/$target/objects"
  # shellcheck disable=SC2016  # the inner shell expands
  list_sources "$target" |
    xargs -0 -n 2 -P "$(nproc)" sh -c 'exec clang++ $FLAGS -c "$1" -o "$2"' sh
  # shellcheck disable=SC2086
  clang++ $FLAGS -fsanitize=fuzzer "tests/fuzz/${target}_fuzz.cpp" "$out/$target"/objects/*.o \
    -o "$out/$target/fuzzer"
}

for target in "${targets[@]}"; do
  build "$target"
  mkdir -p "$out/$target/found"
  seeds=()
  [ -d "tests/fuzz/corpus/$target" ] && seeds+=("tests/fuzz/corpus/$target")
  "$out/$target/fuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 \
    -print_final_stats=1 -artifact_prefix="$out/$target/" "$out/$target/found" "${seeds[@]}"
done
