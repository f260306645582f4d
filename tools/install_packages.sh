#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running need and that are missing here.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache python3
  qt6-base-dev qt6-svg-dev
  libsqlite3-dev libfmt-dev nlohmann-json3-dev libcli11-dev
  libgtest-dev libbenchmark-dev
  ngspice clang-format clang libclang-rt-14-dev
  poppler-utils
  xvfb xdotool x11-utils
  locales
)

missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null || true)
  [ "$state" = "install ok installed" ] || missing+=("$package")
done

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  as_root=(sudo)
fi
if [ "${#missing[@]}" -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

# A locale with a decimal comma, so that the tests can show that it changes nothing.
if ! locale -a | grep -qi '^de_DE\.utf-\?8$'; then
  "${as_root[@]}" localedef -i de_DE -f UTF-8 de_DE.UTF-8
fi
