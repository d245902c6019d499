#!/bin/sh
# Installs what building and testing need and this machine has not got. Looks for each thing itself, so that a second
# run finds everything in place and touches neither the package manager nor the network.
#
#   scripts/bootstrap.sh [lint] [bench] [coverage] [fuzz]   the words add what only that work needs
set -u

missing=

# need PACKAGE CONDITION...: remembers the Debian package if the condition, a command, does not hold.
need() {
    package=$1
    shift
    "$@" >/dev/null 2>&1 || missing="$missing $package"
}

program() { command -v "$1"; }
any_of() {
    for candidate in "$@"; do command -v "$candidate" && return 0; done
    return 1
}

fuzzer_headers() { find /usr/lib/llvm-*/lib/clang /usr/lib/clang -name FuzzedDataProvider.h | grep .; }
# It has browsers as snaps alone; where there is none, the tests that look at the guide with one are skipped.
ubuntu() { grep -qs '^ID=ubuntu' /etc/os-release; }
debian_module() { test -d "/usr/lib/python3/dist-packages/$1"; }
octave_package() { find /usr/share/octave/packages -maxdepth 1 -name "$1-*" | grep .; }

need make program make
need cmake program cmake
need ninja-build program ninja
need g++ program g++
need googletest test -f /usr/src/googletest/CMakeLists.txt
need clang program clang++
need lld program ld.lld
need libclang-rt-dev fuzzer_headers
need g++-mingw-w64-x86-64-posix program x86_64-w64-mingw32-g++-posix
need g++-mingw-w64-i686-posix program i686-w64-mingw32-g++-posix
need wine64 any_of /usr/lib/wine/wine64 wine64 wine
need wine program wineserver
need wine64-tools program widl
need libwine-dev test -f /usr/include/wine/wine/windows/oaidl.idl
need util-linux program flock
need python3 program python3
need python3-sphinx program sphinx-build
need python3-sphinxcontrib.htmlhelp debian_module sphinxcontrib/htmlhelp
need python3-myst-parser debian_module myst_parser
need furo debian_module furo
ubuntu || need chromium any_of chromium chromium-browser google-chrome google-chrome-stable
need fp-utils program chmcmd
need libchm-bin program extract_chmLib
need strace program strace
need procps program pgrep
need nsis program makensis
need zip program zip
need unzip program unzip
need octave program octave-cli
need octave-dev program mkoctfile
need gnuplot-nox program gnuplot
need fonts-freefont-otf test -f /usr/share/fonts/opentype/freefont/FreeSans.otf
need octave-parallel octave_package parallel

for work in "$@"; do
    case $work in
    bench)
        need libbenchmark-dev test -f /usr/include/benchmark/benchmark.h
        ;;
    coverage)
        need gcovr program gcovr
        ;;
    fuzz)
        need llvm program llvm-cov
        ;;
    lint)
        need git program git
        need clang-format program clang-format
        need clang-tidy program clang-tidy
        need shellcheck program shellcheck
        need codespell program codespell
        ;;
    *)
        echo "bootstrap: unknown word '$work' (lint, bench, coverage and fuzz are known)." >&2
        exit 2
        ;;
    esac
done

# Wine's 32-bit half. A 64-bit Wine 8 or later runs 32-bit programs by itself if it has the Windows libraries that they
# load; of Debian's 32-bit package just these are wanted, and they can lie beside the installed packages. They have to be
# of the version of the Wine that loads them.
half=/usr/local/lib/verdanth-wine # scripts/wine.sh looks here, too
has_32_bit_half() {
    for folder in /usr/lib/*/wine/i386-windows /usr/lib/wine/i386-windows /opt/wine*/lib/wine/i386-windows; do
        [ -f "$folder/kernel32.dll" ] && return 0
    done
    [ -f "$half/i386-windows/kernel32.dll" ] && [ "$(cat "$half/version" 2>/dev/null)" = "$(wine_version)" ]
}
wine_version() { dpkg-query -W -f '${Version}' libwine 2>/dev/null; }

[ -n "$missing" ] || ! has_32_bit_half || exit 0

if ! command -v apt-get >/dev/null; then
    echo "bootstrap: this is not Debian or Ubuntu; please install the programs behind these Debian packages:$missing" >&2
    has_32_bit_half || echo "bootstrap: and what Wine needs to run 32-bit programs." >&2
    exit 1
fi
if [ "$(id -u)" -eq 0 ]; then
    as_root="env"
elif command -v sudo >/dev/null; then
    as_root="sudo env"
else
    echo "bootstrap: root is needed once; please run this script as root: $0 $*" >&2
    exit 1
fi

if [ -n "$missing" ]; then
    echo "To be installed:$missing"
    # An index that is only partly refreshed is good enough if the packages can be got, so the installation decides.
    $as_root DEBIAN_FRONTEND=noninteractive apt-get update -q || true
    # shellcheck disable=SC2086  # both are lists of words
    if ! $as_root DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing; then
        echo "bootstrap: installing failed; wanted were:$missing" >&2
        exit 1
    fi
fi

# Fetches the 32-bit package with an index of its own, so that the machine need not become one of two architectures.
fetch_32_bit_half() {
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/half" || return
    set -- -q -o "Dir::State::Lists=$work/lists" -o "Dir::Cache=$work/cache" -o APT::Architecture=i386 \
        -o APT::Architectures=i386 -o Acquire::Languages=none -o APT::Sandbox::User=root
    apt-get "$@" update || true
    (cd "$work" && apt-get "$@" download "libwine=$(wine_version)") || return
    dpkg --fsys-tarfile "$work"/libwine_*.deb | tar -x -C "$work/half" --wildcards --strip-components=5 \
        './usr/lib/*/wine/i386-windows'
    [ -f "$work/half/i386-windows/kernel32.dll" ] || return
    wine_version >"$work/half/version"
    $as_root rm -rf "$half"
    $as_root cp -r "$work/half" "$half"
}

has_32_bit_half || {
    echo "To be installed: Wine's 32-bit half, in $half"
    work=$(mktemp -d /var/tmp/verdanth-wine.XXXXXX)
    trap 'rm -rf "$work"' EXIT
    if ! fetch_32_bit_half; then
        echo "bootstrap: the 32-bit libwine of version $(wine_version) could not be had." >&2
        exit 1
    fi
}
