#!/bin/bash
# kelp-console as a program: options, scripts from files and standard input, what goes where, and the
# drives. Usage: command_line.sh CONSOLE FOLDER
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
  check "status of: $*" "$status" $?
  check "standard error of: $*" "$err" "$(cat err.txt)"
  [ "$out" = '*' ] || check "standard output of: $*" "$out" "$got"
}

new='answer No
answer OK
'
template='box "CFG file missing!" "Missing cfg file! Do you want to look for it?" -> No
box "" "Kelp.cfg will be created after you fill-out the StaInfo boxes." -> OK
screen frmMain shown'
printf '%s' "$new" >scripts/new.ks
printf 'include lib/setup.ks\r\nshow frmMain.Text1(1)\r\n' >scripts/main.ks
printf 'include ../new.ks\nstart\nshow frmMain.Text1(0)\n' >scripts/lib/setup.ks
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
played 2 '-:0: --drives wants a value'                                                      '' -- --drives
played 2 '-:0: --drive wants X=DIR, such as q=/data/vault, not "q"'                         '' -- --drive q
played 2 '-:0: --port wants N=DEVICE, such as 1=/dev/ttyUSB0, not "0=/dev/null"'            '' -- --port 0=/dev/null
played 2 '-:0: --instrument is script, sim, sim:SEED or device, not "real"'                 '' -- --instrument real
played 2 '-:0: the seed of the simulated fluorometer is a whole number, not "x"'            '' -- --instrument=sim:x
played 2 '-:0: --clock is YYYY-MM-DDTHH:MM:SS, not "2026-02-30T00:00:00"'                   '' -- --clock 2026-02-30T00:00:00
played 2 'a.ks:0: more than one script is given: "b.ks"'                                    '' -- a.ks b.ks
played 2 'none.ks:0: the script "none.ks" can'\''t be read'                                 '' -- "${in[@]}" none.ks
played 2 'scripts:0: the script "scripts" can'\''t be read'                                 '' -- "${in[@]}" scripts
played 3 '-:1: no answer waits for the message box "Missing cfg file! Do you want to look for it?"' '*' -- "${in[@]}"
played 2 'scripts/lib/bad.ks:2: unknown command "nothing"'                           ''  -- "${in[@]}" scripts/outer.ks
played 2 "scripts/loop2.ks:1: the script \"scripts/$self\" includes itself"                 '' -- "${in[@]}" scripts/loop.ks
played 2 'scripts/deep16.ks:1: scripts include each other more than 16 deep'                '' -- "${in[@]}" scripts/deep1.ks
script=$'write z x'
played 2 '-:1: z: has no drive; a path begins with a drive letter, such as c:\kelp'           '' -- "${in[@]}"
script=$'write c:\\..\\..\\out x'
played 2 '-:1: c:\..\..: ".." is no name of a file or folder; write the path without it'          '' -- "${in[@]}"

script=
played 0 '' "$template
frmMain.Text1(0) = 1
frmMain.Text1(1) = 93.3 .7" -- "${in[@]}" scripts/main.ks
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
exit $((failures > 0))
