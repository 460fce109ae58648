#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# kelp-console as a program: options, scripts from files and standard input, what goes where, how a script
# can end, and the drives. Usage: command_line.sh CONSOLE FOLDER
set -u
console=$1 folder=$2
failures=0
rm -rf "$folder"
mkdir -p "$folder/scripts/lib"
cd "$folder" || exit 1
export XDG_DATA_HOME=$folder/home

check() {  # what, expected, got
  [ "$2" = "$3" ] && return
  printf '%s\n  expected: %s\n  got:      %s\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}

# played STATUS STDERR STDOUT -- arguments; the script for standard input is in $script. STDOUT is compared
# unless it is "*".
played() {
  local status=$1 err=$2 out=$3 got
  shift 4
  got=$(printf '%s' "$script" | "$console" "$@" 2>err.txt)
  check "status of: $* <<< $script" "$status" $?
  check "standard error of: $* <<< $script" "$err" "$(cat err.txt)"
  [ "$out" = '*' ] || check "standard output of: $* <<< $script" "$out" "$got"
}

# ends STATUS STDERR SCRIPT, played with --quick on a configuration that exists; the script takes \n.
ends() {
  script=$(printf '%b' "$3")
  played "$1" "$2" '*' -- --quick "${in[@]}"
}

new='answer No
answer OK
'
template='box "CFG file missing!" "Missing cfg file! Do you want to look for it?" -> No
box "" "Kelp.cfg will be created after you fill-out the StaInfo boxes." -> OK
screen frmMain shown'
printf '%s' "$new" >scripts/new.ks
printf 'include lib/setup.ks\r\nshow frmMain.Text1(1)\r\nscreens' >scripts/main.ks
printf '\xEF\xBB\xBFinclude ../new.ks\nstart\nshow frmMain.Text1(0)\n' >scripts/lib/setup.ks
printf '\ninclude loop2.ks\n' >scripts/loop.ks
printf 'include ../scripts/./loop.ks\n' >scripts/loop2.ks
printf '# fine\nnothing\n' >scripts/lib/bad.ks
printf 'include lib/bad.ks' >scripts/outer.ks
for i in $(seq 1 20); do echo "include deep$((i + 1)).ks" >"scripts/deep$i.ks"; done
in=(--drives drives --clock 2026-11-24T03:00:00)
self="../scripts/./loop.ks"

script=
played 0 '' "kelp-console $("$console" --version | cut -d' ' -f2)" -- --version
played 0 '' '*' -- --help
played 0 '' '' -- "${in[@]}"
script='click frmMain.Command1(9)'
#      status  last line on standard error                                              output  arguments
played 2 '-:0: unknown option "--fast"; --help lists the options'                          '' -- --fast
played 2 '-:0: --drive wants X=DIR, such as q=/data/vault, not "q"'                         '' -- --drive q
played 2 '-:0: --port wants N=DEVICE, such as 1=/dev/ttyUSB0, not "0=/dev/null"'            '' -- --port 0=/dev/null
played 2 '-:0: --clock is YYYY-MM-DDTHH:MM:SS, not "2026-02-30T00:00:00"'                   '' -- --clock 2026-02-30T00:00:00
played 2 'a.ks:0: more than one script is given: "b.ks"'                                    '' -- a.ks b.ks
played 3 '-:1: no answer waits for the message box "Missing cfg file! Do you want to look for it?"' '*' -- "${in[@]}"
played 2 'scripts/lib/bad.ks:2: unknown command "nothing"'                           ''  -- "${in[@]}" scripts/outer.ks
played 2 "scripts/loop2.ks:1: the script \"scripts/$self\" includes itself"                 '' -- "${in[@]}" scripts/loop.ks
played 2 'scripts/deep16.ks:1: scripts include each other more than 16 deep'                '' -- "${in[@]}" scripts/deep1.ks

script=
played 0 '' "$template
frmMain.Text1(0) = 1
frmMain.Text1(1) = 93.3 .7
frmMain" -- "${in[@]}" scripts/main.ks
check 'the configuration on drive c' 41 "$(wc -l <drives/drive_c/kelp/kelp.cfg)"
script='answer Yes
click frmMain.Command1(4)'
played 0 '' 'screen frmMain shown
box "Exit the Program?" "Do you want to Quit? Y/N" -> Yes
program ended' -- "${in[@]}" -
script=$new'start'
played 0 '' "$template" -- --drive c=elsewhere/c --drives other
check 'drive c elsewhere' yes "$([ -f elsewhere/c/kelp/kelp.cfg ] && echo yes)"
played 0 '' "$template" --
check 'drives at home' yes "$([ -f home/kelp/drive_c/kelp/kelp.cfg ] && echo yes)"

# The ways in which a script ends: a failed expectation, a wrong script, no answer, a run-time error.
ends 0 '' '# nothing\n\n  # indented\nanswer No\nfile none\n'
ends 1 '-:1: frmMain.Text1(4) is "1", expected "1 "' 'expect frmMain.Text1(4) 1 '
ends 1 '-:1: frmMain.Text1(4) is "1" after 3 s, waited for "2"' 'wait 3 frmMain.Text1(4) 2'
ends 1 '-:1: no message box has come up, expected "x"' 'expect box x'
ends 1 '-:1: the last command reported no run-time error "Overflow"' 'expect error Overflow'
ends 2 '-:1: there is more on the line than the command takes: "now"' 'start now'
ends 2 '-:1: "-1" is no number of seconds from 0 to 1000000' 'run -1'
ends 2 '-:1: "Maybe" is no button: OK, Cancel, Yes or No' 'answer Maybe'
ends 2 '-:1: an escape is wrong; \r, \n, \\ and \xHH can be used' 'feed \\q'
ends 2 '-:1: "F13" is no key: F1 to F12, Space, Enter, Backspace, Tab or one character' 'key frmMain F13'
ends 2 "-:1: an operator can't do this: the screen frmLogin is not on the display" 'key frmLogin F1'
ends 2 '-:1: "run.StepName" is no control that an operator can reach' 'click run.StepName'
ends 2 '-:1: c:\..\..: ".." is no name of a file or folder; write the path without it' 'write c:\\..\\..\\out x'
for name in 'frmNone.Command1:there is no screen "frmNone"' 'frmAcquire:name a control of the screen' \
  'frmAcquire.txtMean(0):frmAcquire has no such control or index' 'frmAcquire.txtMean(x):"x" is no index' \
  'frmAcquire.datalog(101,0):the grid has rows 0 to 100 and columns 0 to 13' \
  'frmAcquire.Command1.Text:it has no .Text' 'run.SampTbl(105,0):the run state has no such name or index'; do
  ends 2 "-:1: unknown control \"${name%%:*}\": ${name#*:}" "show ${name%%:*}"
done
ends 2 '-:3: the program has ended; no command can follow' 'answer Yes\nclick frmMain.Command1(4)\nshow status'
ends 3 '-:2: no answer waits for the message box "Do you want to Quit? Y/N": it has no button OK, which is the answer queued next' \
  'answer OK\nclick frmMain.Command1(4)'
# A reported error must be expected before the next command that acts. An OK that was queued for it is used
# up by it.
cat >scripts/divide.ks <<'END'
click frmMain.Command1(0)
answer Yes
click frmLogin.cmdOK
type frmCreateBase.Text1(2) 2
click frmCreateBase.cmdCreateBase(0)
type frmAcquire.txtStaInfo(4) 1
answer Yes
answer OK
key frmAcquire F6
END
divided() {  # STATUS STDERR-BEGINNING SCRIPT behind the division
  rm -rf drives/drive_[dq] drives/drive_c/kelp/record.db*
  script=$(printf 'include scripts/divide.ks\n%b' "$3")
  got=$(printf '%s' "$script" | "$console" "${in[@]}" 2>&1 >out.txt)
  check "status and message of a division, then: $3" "$1 $2" "$? ${got:0:${#2}}"
}
divided 4 'scripts/divide.ks:9: a run-time error was reported: Division by zero\nrow 1' ''
divided 4 'scripts/divide.ks:9: a run-time error was reported' 'show frmAcquire.Visible'
divided 4 'scripts/divide.ks:9: a run-time error was reported' 'click frmAcquire.Command4'
divided 4 'scripts/divide.ks:9: a run-time error was reported' 'expect error Overflow'
divided 0 '' 'expect box Recalculate all values? Y/N\nexpect error Division by zero\nanswer No\nkey frmAcquire F6'
divided 1 '-:4: the last command reported no' 'expect error Division by zero\nrun 1\nexpect error Division by zero'

# The record of the station above, and of none.
got=$("$console" --drives drives --record | sed 1d)
check 'the stations of the record' 'yes' "$(case $got in *' saved '*|*' opened '*) echo yes ;; esac)"
got=$("$console" --drives drives --record 4711 2>&1)
check 'a station that the record does not hold' "1 holds no station" \
  "$(grep -c . <<<"$got") $(grep -o 'holds no station' <<<"$got")"
exit $((failures > 0))
