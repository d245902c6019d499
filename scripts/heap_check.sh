#!/bin/sh
# Runs a Windows program with Wine's heap checking on, and fails if it fails or if the heap was misused.
#
#   scripts/heap_check.sh PROGRAM.exe [ARGUMENT...]
#
# Wine switches the checks on by the name of the program and only logs what it finds; the program goes on and may well
# exit with 0. So a second name for it gets the switch, which leaves ordinary runs alone, and the log is searched.
set -eu

wine=$(dirname "$0")/wine.sh
program=$1
shift

checked=$(dirname "$program")/heap_checked_$(basename "$program")
log=${checked%.exe}.log
ln -f "$program" "$checked"

# 0xf0: check the block's tail, the free blocks and the parameters, and validate the heap on each call.
"$wine" reg add "HKLM\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options\\$(basename "$checked")" \
    /v GlobalFlag /t REG_DWORD /d 0xf0 /f >/dev/null

status=0
WINEDEBUG=-all,err+heap,warn+heap "$wine" "$checked" "$@" 2>"$log" || status=$?
if grep -E ':(err|warn):heap:' "$log"; then
    echo "heap_check.sh: the heap was misused; see $log" >&2
    exit 1
fi
[ $status -eq 0 ] || cat "$log" >&2
exit $status
