#!/bin/sh
# Checks the rules of the house over all sources: who may include whom, that the subsystems use only the standard
# library, and that operating systems are told apart in platform/ alone.
#
#   scripts/check_includes.sh [FOLDER]       FOLDER is the project's root unless it says otherwise
set -eu
cd "${1:-$(dirname "$0")/..}"

sources=$(mktemp)
trap 'rm -f "$sources"' EXIT
find platform cape properties packages material commands gateway relay reference host \
    \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null | sort >"$sources"

[ -s "$sources" ] || {
    echo "check_includes.sh: no sources found in $PWD" >&2
    exit 1
}

# shellcheck disable=SC2016  # the dollars are awk's
xargs awk '
BEGIN {
    may["platform"]   = ""
    may["cape"]       = "platform"
    may["properties"] = "platform cape"
    may["packages"]   = "platform cape properties"
    may["material"]   = "platform cape properties packages"
    may["commands"]   = "platform cape properties packages material"
    may["gateway"]    = "platform cape properties packages material commands"
    may["relay"]      = "platform cape"
    may["reference"]  = "platform cape"
    may["host"]       = "platform"
    for (folder in may) {
        allowed[folder, folder] = 1
        count = split(may[folder], list, " ")
        for (i = 1; i <= count; ++i) allowed[folder, list[i]] = 1
    }

    # Leaf headers of the gateway, open to all subsystems: settings, what is global, the way of a warning. What makes
    # them leaves is checked as well.
    count = split("settings global_text global_lists narrow_text warning", list, " ")
    for (i = 1; i <= count; ++i) leaf["gateway/" list[i] ".h"]

    # What a command is made of lies in the gateway, with the table that lists all commands.
    count = split("command verdict marshalling handle_argument", list, " ")
    for (i = 1; i <= count; ++i) single["commands", "gateway/" list[i] ".h"]

    # The records that a folder below converts for or fills.
    single["properties", "packages/open_package.h"]; single["properties", "material/material_object.h"]
    single["packages", "material/material_object.h"]

    subsystems = " cape properties packages material commands gateway "
}
FNR == 1 { folder = FILENAME; sub("/.*", "", folder) }

/^[ \t]*#[ \t]*include[ \t]*"/ {
    header = $0; sub(/^[^"]*"/, "", header); sub(/".*/, "", header)
    target = header; sub("/.*", "", target)
    if (header !~ "/") complain("include \"" header "\" from the root of the project")
    else if (FILENAME in leaf && target != "platform" && target != "cape" && !(header in leaf))
        complain("a leaf header may not include " header)
    else if (!((folder, target) in allowed) && !((folder, header) in single) &&
             !(header in leaf && index(subsystems, " " folder " ")))
        complain(folder "/ may not include " header)
    else if (folder == "reference" && target == "cape" && header ~ /^cape\/(variant_array|error_text|same_name)/)
        complain("reference/ knows the interfaces, not the system: " header)
}
/^[ \t]*#[ \t]*include[ \t]*</ && index(subsystems, " " folder " ") {
    header = $0; sub(/^[^<]*</, "", header); sub(/>.*/, "", header)
    if (header !~ /^[a-z_]+$/) complain("<" header "> is not of the standard library")
}
/^[ \t]*#.*_WIN(32|64)/ && folder != "platform" { complain("operating systems are told apart in platform/ alone") }

function complain(text) { print FILENAME ":" FNR ": " text; ++complaints }
END { exit complaints != 0 }
' <"$sources"

# Tests, tools and measurements are bound by the last rule alone.
found=$(find tests bench demo toolbox \( -name '*.h' -o -name '*.cpp' \) -exec grep -nE '^[ \t]*#.*_WIN(32|64)' {} + 2>/dev/null || true)
if [ -n "$found" ]; then
    printf '%s\noperating systems are told apart in platform/ alone\n' "$found"
    exit 1
fi
