#!/bin/sh
# Plays a whole-station script on drives of its own: play.sh CONSOLE FOLDER SCRIPT. A script named
# *.sim.ks plays on the simulated fluorometer.
set -eu
console=$1 folder=$2 script=$3
rm -rf "$folder"
case $script in
*.sim.ks) instrument=sim:7 ;;
*) instrument=script ;;
esac
exec "$console" --quick --drives "$folder" --clock 2026-11-24T03:00:00 --instrument "$instrument" "$script"
