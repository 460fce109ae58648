#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Plays a whole-station script on drives of its own: play.sh CONSOLE FOLDER SCRIPT. A script named
# *.sim.ks plays on the simulated fluorometer. Beside NAME.ks, NAME.expected holds the drives as they are to
# be afterwards, file by file; the lock file is no file of the station. Configurations repeat that of the
# demo and reports the base files: of these the lines that are not in it are compared, behind their number.
set -eu
console=$1 folder=$2 script=$3
rm -rf "$folder"
case $script in
*.sim.ks) instrument=sim:7 ;;
*) instrument=script ;;
esac
"$console" --quick --drives "$folder" --clock 2026-11-24T03:00:00 --instrument "$instrument" "$script"
expected=${script%.ks}.expected
[ -d "$expected" ] || exit 0
unlike() {  # pattern, files
  pattern=$1
  shift
  for file; do
    { grep -c '' "$file"; grep -vxF -f "$pattern" "$file" || true; } >"$file.lines"
    rm "$file"
  done
}
unlike "$(dirname "$0")/../../demo/kelp.cfg" "$folder"/drive_c/kelp/kelp.*[0-9g]
cat "$folder"/drive_q/vault/2007/0707/chl/chl00? >"$folder.bases"
unlike "$folder.bases" "$folder"/drive_q/vault/2007/0707/chl/*.htm "$folder"/drive_q/vault/2007/0707/chl/*.prn
diff -r -x kelp.lck -x "record.db*" "$expected" "$folder"
