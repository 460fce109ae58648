#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The installer and the desktop of Windows under Wine: desktop.sh WINDOWS_BUILD LINUX_BUILD FOLDER. It installs
# into a new prefix, plays a whole station in the real windows, looks at them, upgrades and uninstalls.
set -euo pipefail
windows=$(realpath "$1") linux=$(realpath "$2") folder=$(realpath -m "$3")
here=$(cd "$(dirname "$0")/../.." && pwd)
if [ -z "${KELP_ON_DISPLAY-}" ]; then
  KELP_ON_DISPLAY=1 exec "$here/tests/desktop/on_a_display.sh" "$0" "$windows" "$linux" "$folder"
fi
wine=$here/tools/wine
setup=$(ls "$windows"/kelp-*-setup.exe)
rm -rf "$folder"
mkdir -p "$folder"
export WINEPREFIX=$folder/prefix
say() { echo "$(date +%H:%M:%S) $*"; }
fail() { say "$*"; exit 1; }
key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelp'

"$wine" "$setup" /S /CurrentUser
place=$WINEPREFIX/drive_c/users/$(id -un)/AppData/Local/Programs/Kelp
menu=$WINEPREFIX/drive_c/users/$(id -un)/AppData/Roaming/Microsoft/Windows/"Start Menu"/Programs/Kelp
(cd "$windows"/kelp-*/ && find . -type f) | while read -r file; do
  [ -e "$place/$file" ] || fail "not installed: $file"
done
[ -e "$menu/Kelp (simulated instrument).lnk" ] || fail 'the start menu lacks the simulated instrument'
"$wine" reg query "$key" /v DisplayVersion | grep -q "$(basename "$setup" | sed 's/kelp-\(.*\)-setup.exe/\1/')" ||
  fail 'no entry among the programs of Windows'
say "installed silently for one user: $(find "$place" -type f | wc -l) files, $(du -sh "$place" | cut -f1)"

# A whole station through the real windows of both systems.
for script in "$here"/tests/scripts/{two_stations,by_hand,questions}.ks; do
  name=$(basename "$script")
  "$wine" "$place/kelp.exe" --script "$script" --quick --drives "$folder/$name.windows" --clock 2026-11-24T03:00:00 \
    >"$folder/$name.out" 2>&1 || { cat "$folder/$name.out"; fail "$name failed"; }
  "$linux/desktop/kelp" --script "$script" --quick --drives "$folder/$name.linux" --clock 2026-11-24T03:00:00 \
    >"$folder/$name.linux.out"
  diff -r -x '*.lck' -x 'record*' "$folder/$name.linux" "$folder/$name.windows"
done
"$wine" "$place/kelp.exe" --version | grep -q '^kelp [0-9]' || fail 'kelp.exe --version says nothing'
say "kelp.exe --script: $(find "$folder"/*.ks.windows -type f ! -name 'record*' | wc -l) files are those of Linux byte for byte"

# By mouse and keyboard: main window, login, acquisition.
"$linux/console/kelp-console" --quick --drives "$folder/bench" --clock 2026-11-24T03:00:00 \
  <<<"include $here/tests/scripts/lib/open.ks" >"$folder/bench.out"
"$wine" "$place/kelp.exe" --simulate --drives "$folder/bench" >"$folder/kelp.out" 2>&1 &
kelp=$!
there() { xdotool search --onlyvisible --name "$1" >"$folder/found" 2>&1 && cp "$folder/found" "$folder/shown"; }
# Clicks, or presses a key, in a window until another comes up, or with "!" until it is gone.
press() {  # click X Y of the window found last, or key; title
  for _ in $(seq 30); do
    if [ "${2#!}" = "$2" ]; then there "$2" && return; else there "${2#!}" || return 0; fi
    # shellcheck disable=SC2086
    case $1 in
    click*) xdotool mousemove --window "$(head -1 "$folder/shown")" ${1#click} click 1 ;;
    ?*) xdotool key "$1" ;;
    esac
    sleep 1
  done
  import -window root "$folder/stuck.png"
  fail "no window \"$2\"; see $folder/stuck.png"
}
press '' KElp
sleep 1
import -window root "$folder/main.png"
if "$wine" "$setup" /S /CurrentUser; then fail 'it was upgraded while it ran'; fi
press 'click 130 40' '^Login'
press Return '!^Login'
sleep 3
import -window root "$folder/acquire.png"
kill $kelp 2>/dev/null || true
wait $kelp 2>/dev/null || true
say "pictures of the main and the acquisition window: $folder/main.png, $folder/acquire.png"

# Start to first picture, the best of five, as xdotool sees it.
picture() {  # program and arguments
  local best=999999 start took
  for _ in 1 2 3 4 5; do
    start=$(date +%s%3N)
    "$@" --simulate --drives "$folder/bench" >"$folder/kelp.out" 2>&1 &
    xdotool search --sync --onlyvisible --name KElp >"$folder/found"
    took=$(($(date +%s%3N) - start))
    [ "$took" -lt "$best" ] && best=$took
    kill $! 2>/dev/null || true
    wait $! 2>/dev/null || true
  done
  echo "$best"
}
say "start to first picture: Linux $(picture "$linux/desktop/kelp") ms, Wine $(picture "$wine" "$place/kelp.exe") ms"

# Upgraded in place, then removed: what is not the installer's stays.
echo mine >"$place/mine.txt"
mkdir -p "$WINEPREFIX/drive_c/kelp"
echo kept >"$WINEPREFIX/drive_c/kelp/kelp.cfg"
"$wine" "$setup" /S /CurrentUser
[ -e "$place/kelp.exe" ] && [ -e "$place/mine.txt" ] || fail 'the upgrade lost a file'
"$wine" "$place/uninstall.exe" /CurrentUser /S
# It goes on in a copy of itself when this command has ended.
for _ in $(seq 100); do
  left=$(cd "$place" && find . -type f)
  [ "$left" = ./mine.txt ] && [ ! -e "$menu" ] && break
  sleep 0.2
done
[ "$left" = ./mine.txt ] || fail "left behind: $left"
[ -e "$menu" ] && fail 'the start menu has Kelp still'
[ "$(cat "$WINEPREFIX/drive_c/kelp/kelp.cfg")" = kept ] || fail 'the configuration is gone'
if "$wine" reg query "$key" >"$folder/reg.out" 2>&1; then fail 'Windows still lists the program'; fi
say 'upgraded and uninstalled: data, configuration and a file of somebody else stay'
