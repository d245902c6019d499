#!/bin/sh
# Compiles the project that Sphinx made into Verdanth.chm, with the same bytes whenever the pages are the same.
#
#   docs/compile_chm.sh FOLDER
set -eu
cd "$1"
rm -f Verdanth.chm

# chmcmd writes the time of day into the file, and what its memory happens to hold. So it is told a time, and gets its
# memory at the same place each time. It asks the system itself for the time; only a tracer can answer in its place.
# One time for all, not that of the sources' last change: when only other sources change, the file is not made anew.
timeval=00000000000000000000000000000000
same_every_time() {
    env -i PATH="$PATH" TZ=UTC setarch -R strace -qq -o /dev/null -e trace=gettimeofday,clock_gettime,time \
        -e "inject=gettimeofday:poke_exit=@arg1=$timeval" -e "inject=clock_gettime:poke_exit=@arg2=$timeval" \
        -e inject=time:retval=1 "$@"
}
same_every_time chmcmd Verdanth.hhp >chmcmd.log 2>&1 || {
    echo "compile_chm.sh: tracing is not allowed here; Verdanth.chm will not be the same the next time." >&2
    chmcmd Verdanth.hhp >chmcmd.log 2>&1 || true
}

# Its exit code says little: a page that is missing leaves an empty file, a project that is missing none.
[ -s Verdanth.chm ] || {
    cat chmcmd.log >&2
    echo "compile_chm.sh: Verdanth.chm was not made." >&2
    exit 1
}
if grep -iE 'error|not found|missing' chmcmd.log; then exit 1; fi
