#!/usr/bin/env bash
# Kills a process that saves in a loop, COUNT times at random moments. After every kill the project
# file must be whole.
# Usage: kill_while_saving.sh SAVE_LOOP_PROGRAM [COUNT]
set -euo pipefail

program=$1
count=${2:-200}
folder=$(mktemp -d)
saver=
# shellcheck disable=SC2329  # called by the trap
cleanup() {
  [ -z "$saver" ] || kill -KILL "$saver" 2>/dev/null || true
  rm -rf "$folder"
}
trap cleanup EXIT
file=$folder/project.vtl

for ((i = 1; i <= count; ++i)); do
  "$program" save "$file" &
  saver=$!
  # The first file has to stand before the first kill.
  until [ -e "$file" ]; do
    kill -0 "$saver" 2>/dev/null || { echo "the saver has failed"; exit 1; }
    sleep 0.01
  done
  sleep "0.$(printf '%03d' $((RANDOM % 80 + 1)))"
  kill -0 "$saver" 2>/dev/null || { echo "the saver has ended by itself"; exit 1; }
  kill -KILL "$saver"
  wait "$saver" 2>/dev/null || true
  saver=
  if ! "$program" check "$file"; then
    echo "kill $i of $count left a damaged file"
    exit 1
  fi
done
echo "$count kills, the project was whole after each"
