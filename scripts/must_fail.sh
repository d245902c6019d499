#!/bin/sh
# Succeeds if a command fails, and says so in the way it should: its output must hold a text.
#
#   scripts/must_fail.sh TEXT COMMAND [ARGUMENT...]      an empty TEXT asks for the failure alone
set -u
text=$1
shift
if output=$("$@" 2>&1); then
    printf '%s\nmust_fail.sh: this should have failed: %s\n' "$output" "$*" >&2
    exit 1
fi
case $output in
*"$text"*) exit 0 ;;
esac
printf '%s\nmust_fail.sh: it failed, but did not say "%s": %s\n' "$output" "$text" "$*" >&2
exit 1
