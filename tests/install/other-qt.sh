# SPDX-License-Identifier: Apache-2.0
# other-qt.sh qt-first|library-first|pkg-config
source "$(dirname "$0")/common.sh"

if ! pkg-config --exists "Qt${other_qt}Core"; then
    echo "skipped: Qt $other_qt is not installed" >&2
    exit 77
fi
case $1 in
pkg-config)
    fails_saying "different major versions of Qt" \
        "$CXX" -std=c++17 -fPIC -fsyntax-only "$SOURCE/examples/battery-monitor/main.cpp" \
        $(pkg-config --cflags "Qt${other_qt}Core") -I"$PREFIX/include"
    ;;
*)
    fails_saying "This libtamo is built for Qt $QT, and the application uses Qt $other_qt. Build" \
        cmake -S "$SOURCE/tests/install/other-qt" -B "$SCRATCH/build" \
        -DCMAKE_PREFIX_PATH="$PREFIX" -DORDER="$1" -DOTHER_QT="$other_qt"
    ;;
esac
