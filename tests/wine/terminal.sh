#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The console of Windows under Wine beside that of Linux: terminal.sh WINDOWS_BUILD LINUX_BUILD FOLDER. Each
# step says what it compared; the first one that fails ends it.
set -euo pipefail
windows=$(realpath "$1") linux=$(realpath "$2") folder=$(realpath -m "$3")
here=$(cd "$(dirname "$0")/../.." && pwd)
wine=$here/tools/wine
native=$linux/console/kelp-console
rm -rf "$folder"
mkdir -p "$folder"
say() { echo "$(date +%H:%M:%S) $*"; }
console() { "$wine" "$windows/console/kelp-console.exe" "$@"; }

# The tests of the program, and those of its serial line on a port that a fluorometer sends on.
"$here/tests/wine/port" COM10 "$folder/port"
"$linux/console/kelp-fluorometer" --rate 5 --link "$folder/port" </dev/null >"$folder/path" &
fluorometer=$!
trap 'kill $fluorometer 2>/dev/null || true' EXIT
until [ -s "$folder/path" ]; do sleep 0.01; done
# The random operator looks for new faults on Linux, ten seconds long; here for what the compiler does otherwise.
export KELP_RANDOM_SEED=1 KELP_RANDOM_EVENTS=2000
KELP_TEST_PORT=COM10 "$wine" "$windows/tests/kelp_tests.exe" --gtest_brief=1 >"$folder/tests.out" 2>&1 ||
  { cat "$folder/tests.out"; exit 1; }
if grep -q SKIPPED "$folder/tests.out"; then cat "$folder/tests.out"; exit 1; fi
say "kelp_tests.exe: $(grep PASSED "$folder/tests.out")"
kill $fluorometer
wait $fluorometer 2>/dev/null || true

# Whole stations: files byte for byte, what is shown line for line.
count=0
play() {  # script, instrument, configuration
  local name
  name=$(basename "$1")
  for machine in linux windows; do
    local drives=$folder/$name.$machine player=(console)
    [ "$machine" = linux ] && player=("$native")
    mkdir -p "$drives/drive_c/kelp"
    [ -z "$3" ] || cp "$3" "$drives/drive_c/kelp/kelp.cfg"
    "${player[@]}" --quick --watch --drives "$drives" --clock 2026-11-24T03:00:00 --instrument "$2" "$1" \
      </dev/null >"$folder/$name.$machine.out"
    sed -i 's/\r$//' "$folder/$name.$machine.out"
  done
  diff "$folder/$name.linux.out" "$folder/$name.windows.out"
  # The record and the locks hold the machine's name and numbers of the process.
  diff -r -x '*.lck' -x 'record*' "$folder/$name.linux" "$folder/$name.windows"
  count=$((count + $(find "$folder/$name.windows" -type f ! -name '*.lck' ! -name 'record*' | wc -l)))
}
for script in "$here"/tests/scripts/*.ks; do
  case $script in *.sim.ks) play "$script" sim:7 '' ;; *) play "$script" script '' ;; esac
done
play "$here/demo/station.ks" sim "$here/demo/kelp.cfg"
say "whole stations: $count files are those of Linux byte for byte"

# Blanks, umlauts and files whose paths are longer than 260 characters; a decimal comma; another time zone.
odd=$folder/"Ärger mit Ölproben"
while [ ${#odd} -lt 225 ]; do odd="$odd/so lang wie es geht"; done
mkdir -p "$odd"
"$wine" reg add 'HKCU\Control Panel\International' /v sDecimal /d , /f >"$folder/reg.out" </dev/null
for machine in linux windows; do
  player=(console)
  [ "$machine" = linux ] && player=("$native")
  cp "$here/tests/scripts/by_hand.ks" "$odd/zwei.ks"
  TZ=Pacific/Chatham "${player[@]}" --quick --drives "$odd/$machine" --clock 2026-11-24T03:00:00 "$odd/zwei.ks" \
    </dev/null >"$folder/odd.$machine.out"
done
"$wine" reg add 'HKCU\Control Panel\International' /v sDecimal /d . /f >"$folder/reg.out" </dev/null
diff -r -x '*.lck' -x 'record*' "$odd/linux" "$odd/windows"
longest=$(find "$odd/windows" -type f -printf '%p\n' | awk '{ if (length > n) n = length } END { print n }')
[ "$longest" -gt 260 ]
say "paths of $longest characters with blanks and umlauts, decimal comma, time zone: as on Linux"

# A station over a port of Windows, with a hang-up on the way.
"$here/tests/wine/port" COM10 "$folder/station/port"
printf '#!/bin/sh\nexec "%s" "%s" "$@"\n' "$wine" "$windows/console/kelp-console.exe" >"$folder/console"
chmod +x "$folder/console"
"$here/tests/console/pty_station.sh" "$folder/console" "$linux/console/kelp-fluorometer" "$folder/station" COM10
say "a station over COM10 with a hang-up: all values as the instrument was told"

# The other way round: the instrument of Windows on standard output, and on a port heard here.
"$wine" "$windows/console/kelp-fluorometer.exe" --rate 50 < <(sleep 2; echo quit) >"$folder/spoken"
socat -u PTY,link="$folder/there",raw,echo=0 CREATE:"$folder/heard" &
cable=$!
until [ -e "$folder/there" ]; do sleep 0.1; done
"$here/tests/wine/port" COM11 "$folder/there"
"$wine" "$windows/console/kelp-fluorometer.exe" --rate 50 --port COM11 < <(sleep 2; echo quit)
kill $cable
for file in spoken heard; do [ "$(grep -c '(RAW)' "$folder/$file")" -gt 10 ]; done
say "kelp-fluorometer.exe: its lines on standard output and on COM11"

# Killed while the operator waits: what was accepted is there when it starts again.
mkfifo "$folder/keyboard"
"$wine" "$windows/console/kelp-console.exe" --drives "$folder/killed" <"$folder/keyboard" >"$folder/killed.out" &
victim=$!  # which is the program itself: the script gives way to it
exec 3>"$folder/keyboard"
printf 'include %s\n' "$here/tests/wine/killed.ks" >&3
for _ in $(seq 1 200); do
  grep -q 'Command1 = Acidify' "$folder/killed.out" && break
  sleep 0.1
done
kill -9 $victim
status=0
wait $victim 2>/dev/null || status=$?
exec 3>&-
[ "$status" -eq 137 ]
console --drives "$folder/killed" "$here/tests/wine/restored.ks" >"$folder/restored.out"
say "killed in the first sample: begin blank, copros and Rb are restored"
