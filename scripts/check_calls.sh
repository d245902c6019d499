#!/bin/sh
# Checks the calls that no include shows: an object file may need symbols of the rooms that rooms.txt lets its room use,
# and of no others.
#
#   scripts/check_calls.sh OBJECTS [ROOM OBJECT-FILE]
#
# OBJECTS is the folder in which cmake/Rooms.cmake named each room's object files, that of a native build. ROOM and
# OBJECT-FILE are one more, as if it stood in that room.
set -eu
cd "$(dirname "$0")/.."
objects=$1

# A line for each symbol of a room's object files, which come by standard input: room, file, whether it is defined or
# needed, name. What several files may define, such as an inline function, is nobody's.
symbols() {
    xargs nm --print-file-name --no-sort --format=posix --extern-only | awk -v room="$1" '
        { sub(/:$/, "", $1) }
        $3 == "U" { print room, $1, "needs", $2 }
        $3 ~ /^[TDBRA]$/ { print room, $1, "has", $2 }'
}

list=$(mktemp)
trap 'rm -f "$list"' EXIT
for room in "$objects"/*.txt; do
    [ -f "$room" ] || {
        echo "check_calls.sh: no rooms found in $objects" >&2
        exit 1
    }
    sed 1d "$room" | symbols "$(head -n 1 "$room")"
done >"$list"
[ $# -eq 1 ] || echo "$3" | symbols "$2" >>"$list"
[ -s "$list" ] || {
    echo "check_calls.sh: the object files in $objects are not there" >&2
    exit 1
}

complaints=$(awk '
FILENAME == "rooms.txt" {
    if ($0 !~ /^[^#]/) next
    name = $1; sub(/:$/, "", name)
    allowed[name, name] = 1
    for (i = 2; i <= NF; ++i) allowed[name, $i] = 1
    next
}
$3 == "has" { home[$4] = $1 }
$3 == "needs" { needs[++count] = $1 " " $2 " " $4 }
END {
    for (i = 1; i <= count; ++i) {
        split(needs[i], need, " ")
        if (!(need[3] in home) || (need[1], home[need[3]]) in allowed) continue
        print need[2] ": " need[1] " may not call " home[need[3]] ": " need[3]
    }
}' rooms.txt "$list" | c++filt)
[ -z "$complaints" ] || {
    echo "$complaints"
    exit 1
}
