# SPDX-License-Identifier: Apache-2.0
# The library alone, built against the platform that was installed, then an application against it.
source "$(dirname "$0")/common.sh"

configure() {
    cmake -G Ninja -S "$SOURCE" -B "$SCRATCH/build" -DTAMO_PLATFORM=system \
        -DTAMO_QT_MAJOR="$QT" -DTAMO_BUILD_TESTS=OFF -DTAMO_BUILD_EXAMPLES=OFF "$@"
}

fails_saying "is not on this machine" env PKG_CONFIG_PATH= cmake -G Ninja -S "$SOURCE" \
    -B "$SCRATCH/without" -DTAMO_PLATFORM=system -DTAMO_QT_MAJOR="$QT" -DTAMO_BUILD_TESTS=OFF
configure -DCMAKE_PREFIX_PATH="$PREFIX"
cmake --build "$SCRATCH/build"
cmake --install "$SCRATCH/build" --prefix "$SCRATCH/prefix"
[ ! -e "$SCRATCH/prefix/$LIBDIR/libpps.so.0" ] || fail "the platform was built, too"

cmake -S "$SOURCE/examples/battery-monitor" -B "$SCRATCH/application" \
    -DCMAKE_PREFIX_PATH="$SCRATCH/prefix;$PREFIX"
cmake --build "$SCRATCH/application"
says_that_nothing_is_known env LD_LIBRARY_PATH="$PREFIX/$LIBDIR" "$SCRATCH/application/battery-monitor"

# The seams' headers use the platform's, which lies in another prefix.
echo '#include <tamomock/ScreenApi.h>
#include <tamomock/ZelApi.h>' >"$SCRATCH/seams.cpp"
export PKG_CONFIG_PATH=$SCRATCH/prefix/$LIBDIR/pkgconfig
# shellcheck disable=SC2046 # words are wanted
"$CXX" -std=c++17 -fsyntax-only $(pkg-config --cflags tamo) "$SCRATCH/seams.cpp"
