#!/bin/sh
# Checks the rules of the house over all sources: who may include whom, as rooms.txt has it; that the subsystems use
# only the standard library; and that operating systems are told apart in platform/ alone.
#
#   scripts/check_includes.sh [FOLDER]       FOLDER is the project's root unless it says otherwise
set -eu
cd "${1:-$(dirname "$0")/..}"

# The buildings are the top folders of the table.
buildings=$(sed -n 's/^\([a-z_]*\)[a-z_/]*:.*/\1/p' rooms.txt | sort -u)

sources=$(mktemp)
trap 'rm -f "$sources"' EXIT
# shellcheck disable=SC2086  # a list of folders
find $buildings \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null | sort >"$sources"

[ -s "$sources" ] || {
    echo "check_includes.sh: no sources found in $PWD" >&2
    exit 1
}

# shellcheck disable=SC2016  # the dollars are awk's
xargs awk '
BEGIN {
    while ((getline line < "rooms.txt") > 0) {
        if (line !~ /^[^#]/) continue
        name = line; sub(/:.*/, "", name)
        below = line; sub(/^[^:]*:/, "", below)
        if (name in floor) report("rooms.txt: " name " stands there twice")
        floor[name] = ++floors
        allowed[name, name] = 1
        count = split(below, list, " ")
        for (i = 1; i <= count; ++i) { allowed[name, list[i]] = 1; named[name, list[i]] = 1 }
    }
    for (pair in named) {
        split(pair, rooms, SUBSEP)
        if (!(rooms[2] in floor)) report("rooms.txt: " rooms[1] " uses " rooms[2] ", which has no line")
        else if (floor[rooms[2]] <= floor[rooms[1]]) report("rooms.txt: " rooms[1] " may not use " rooms[2] ", which is not below it")
    }
    subsystems = " cape properties packages material commands gateway wire client "
}
FNR == 1 { room = roomOf(FILENAME); building = FILENAME; sub("/.*", "", building) }

/^[ \t]*#[ \t]*include[ \t]*"/ {
    header = $0; sub(/^[^"]*"/, "", header); sub(/".*/, "", header)
    target = roomOf(header)
    if (target == "") complain("include \"" header "\" is in no room: name headers from the root of the project")
    else if (!((room, target) in allowed)) complain(room " may not include " header)
}
/^[ \t]*#[ \t]*include[ \t]*</ && index(subsystems, " " building " ") {
    header = $0; sub(/^[^<]*</, "", header); sub(/>.*/, "", header)
    if (header !~ /^[a-z_]+$/) complain("<" header "> is not of the standard library")
}
/^[ \t]*#.*_WIN(32|64)/ && building != "platform" { complain("operating systems are told apart in platform/ alone") }

# The innermost room that a file is in.
function roomOf(path) {
    while (sub("/[^/]*$", "", path)) if (path in floor) return path
    return ""
}
function complain(text) { report(FILENAME ":" FNR ": " text) }
function report(text) { print text; ++complaints }
END { exit complaints != 0 }
' <"$sources"

# Tests, tools and measurements are bound by the last rule alone.
found=$(find host tests bench demo toolbox fuzz \( -name '*.h' -o -name '*.cpp' \) -exec grep -nE '^[ \t]*#.*_WIN(32|64)' {} + 2>/dev/null || true)
if [ -n "$found" ]; then
    printf '%s\noperating systems are told apart in platform/ alone\n' "$found"
    exit 1
fi
