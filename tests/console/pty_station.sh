#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# A station over a real pseudo-terminal at a hundred lines a second, with an unplugged cable on the way.
# Usage: pty_station.sh CONSOLE FLUOROMETER FOLDER [DEVICE]. A console of Windows knows the link FOLDER/port by
# the name DEVICE.
set -u
console=$1 fluorometer=$2 folder=$3 device=${4:-$3/port}
rm -rf "$folder"
mkdir -p "$folder"
mkfifo "$folder/commands" "$folder/script" "$folder/shown"
# A file of the link's name is somebody's: it stays, and is named.
echo mine >"$folder/file"
refused=$("$fluorometer" --link "$folder/file" 2>&1 </dev/null)
[ "$?/$(cat "$folder/file")" = 1/mine ] && [[ $refused == *"a file or folder of that name is there"* ]] ||
  { echo "--link: $refused"; exit 1; }
"$fluorometer" --rate 100 --link "$folder/port" <"$folder/commands" >"$folder/paths" &
instrument_pid=$!
"$console" --quick --drives "$folder/drives" --port 1="$device" --instrument device \
  <"$folder/script" >"$folder/shown" 2>"$folder/err" &
console_pid=$!
trap 'kill $instrument_pid $console_pid 2>/dev/null' EXIT
exec 3>"$folder/commands"
until [ -s "$folder/paths" ]; do sleep 0.01; done
exec 5>"$folder/script" 6<"$folder/shown"

# Plays commands and comes back when they are done.
play() {
  printf '%s\nshow run.SampNum\n' "$1" >&5
  while read -r -t 30 line <&6; do
    [ "${line%% =*}" = run.SampNum ] && return
    case $line in
      box*) boxes+=$line$'\n' ;;
      *' = '*) shown+=$line$'\n' ;;
    esac
  done
  echo "the console ended: $(cat "$folder/err")"
  exit 1
}
put_in() { echo "tube $1" >&3; sleep 0.02; }

boxes= shown=
play 'answer No
answer OK
click frmMain.Command1(0)
answer Yes
click frmLogin.cmdOK
type frmCreateBase.Text1(2) 2
click frmCreateBase.cmdCreateBase(0)
click frmAcquire.Check1
click frmAcquire.Command1'
# So little noise that an average stays the level when a busy machine merges two lines into one pass.
echo 'noise 0.0001' >&3
put_in blank
play 'click frmAcquire.Command1
wait 20 frmAcquire.Command1 Load Copro 3-1'
put_in 'copro 1.55'
play 'click frmAcquire.Command1
wait 20 frmAcquire.Command1 Load Copro 2-5'
put_in 'copro 5.0123'
play 'click frmAcquire.Command1
wait 20 frmAcquire.Command1 Load 1st Sample'
put_in 'sample 3.25'
play 'click frmAcquire.Command1
wait 20 frmAcquire.Command1 Acidify'
echo 'acid 1.625' >&3
play 'wait 20 frmAcquire.Command1 Load Next Sample'
put_in 'sample 0.8'
# The cable comes off while the sample is read: the line is tried again, and nothing stored is lost.
play 'click frmAcquire.Command1
wait 20 frmAcquire.txtStats(0) 3'
echo 'send half a line A =  9' >&3
echo hangup >&3
play 'wait 20 status Readings are coming in.
wait 20 frmAcquire.Command1 Acidify'
echo 'acid 2' >&3
play "wait 20 frmAcquire.Command1 What's Next
show frmAcquire.txtBlank(0)
show frmAcquire.txtBlank(6)
show frmAcquire.txtBlank(8)
show frmAcquire.datalog(1,3)
show frmAcquire.datalog(1,4)
show frmAcquire.datalog(2,3)
show frmAcquire.datalog(2,4)"
exec 5>&-
wait "$console_pid"
status=$?
echo quit >&3
wait "$instrument_pid" || status=1
# The averages of noisy readings: within 0.001 of what the instrument was told.
levels='0.005 1.55 5.0123 3.25 2 0.8 0.4'
awk -v levels="$levels" 'BEGIN { n = split(levels, level, " ") }
  { off = $3 - level[NR]; if (off > 0.001 || off < -0.001) { print "wrong value: " $0; bad = 1 } }
  END { exit bad || NR != n }' < <(printf %s "$shown") || status=1
[ -s "$folder/err" ] && cat "$folder/err"
[ "$(grep -c '^box' <<<"$boxes")" -eq 3 ] || { echo "unasked boxes: $boxes"; status=1; }
[ -e "$folder/port" ] && { echo 'the link was left behind'; status=1; }
exit $status
