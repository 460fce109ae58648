#!/bin/sh
# Plays a whole-station script on drives of its own: play.sh CONSOLE FOLDER SCRIPT. A script named
# *.sim.ks plays on the simulated fluorometer. Beside NAME.ks, NAME.expected holds the drives as they are to
# be afterwards, file by file; the lock file is no file of the station.
set -eu
console=$1 folder=$2 script=$3
rm -rf "$folder"
case $script in
*.sim.ks) instrument=sim:7 ;;
*) instrument=script ;;
esac
"$console" --quick --drives "$folder" --clock 2026-11-24T03:00:00 --instrument "$instrument" "$script"
expected=${script%.ks}.expected
[ ! -d "$expected" ] || diff -r -x kelp.lck "$expected" "$folder"
