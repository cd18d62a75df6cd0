# SPDX-License-Identifier: Apache-2.0
# For the scripts beside it. From CTest: SOURCE, the repository; PREFIX, where it is installed;
# LIBDIR, the libraries' folder below that; QT, the major version of Qt; CXX and CC, the compilers;
# SCRATCH, a folder for the test.
set -euo pipefail
rm -rf "$SCRATCH"
mkdir -p "$SCRATCH"
export CXX CC
export PKG_CONFIG_PATH=$PREFIX/$LIBDIR/pkgconfig
other_qt=$((11 - QT))

fail() {
    echo "$1" >&2
    exit 1
}

# Runs a command that must fail and say a certain thing.
fails_saying() {
    local text=$1 output
    shift
    if output=$("$@" 2>&1); then
        fail "succeeded: $*"
    fi
    # CMake breaks lines where it likes.
    [[ $(tr -s ' \n' ' ' <<<"$output") == *"$text"* ]] || fail "did not say '$text': $output"
}

# Runs the battery monitor where there is no power service, up to its first line.
says_that_nothing_is_known() {
    local line
    coproc monitor { exec "$@"; }
    local pid=$monitor_PID
    read -r -t 30 line <&"${monitor[0]}" || fail "the application says nothing"
    kill "$pid"
    [ "$line" = "battery: -1 %" ] || fail "the application says '$line'"
}
