#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The demo station gives the same files whenever it is played, and the same results whether Autoread or a
# hand saves them. Usage: same_results.sh CONSOLE DEMO FOLDER
set -eu
console=$1 demo=$2 folder=$3
rm -rf "$folder"
play() {  # name script
  mkdir -p "$folder/$1/drive_c/kelp"
  cp "$demo/kelp.cfg" "$folder/$1/drive_c/kelp/"
  "$console" --watch --drives "$folder/$1" --instrument sim --clock 2007-07-14T14:00:00 "$demo/$2" \
    >"$folder/$1.out"
}
# What the two ways have in common: all but the time of the last reading.
results() {
  grep -hv '^    Read: ' "$folder/$1/drive_q/vault/2007/0707/chl/chl002"
  cat "$folder/$1/drive_d/backup/chl002.prn"
}
play autoread station.ks
play again station.ks
play manual manual.ks
diff -r -x "record.db*" "$folder/autoread" "$folder/again"
cmp "$folder/autoread.out" "$folder/again.out"
results autoread >"$folder/autoread.results"
results manual >"$folder/manual.results"
diff "$folder/autoread.results" "$folder/manual.results"
# What is watched: captions, saved values and results as they come, and what they came to.
for line in '14:00:14  Load Copro 3-1' '    saved Begin Blank 0.0050' '    saved sample 12 Ra 3.3284' \
  'Results of station 002' '    Q:\vault\2007\0707\chl\chl002.csv'; do
  grep -qxF -- "$line" "$folder/autoread.out" || { echo "not watched: $line"; exit 1; }
done
# Twelve samples with plausible ratios stand in the results.
grep -c '^ *[0-9]* *[01][0-9]  *3  *138  *8 .* 1\.[5-9][0-9] ' "$folder/autoread/drive_d/backup/chl002.prn" | grep -x 12
