# SPDX-License-Identifier: Apache-2.0
source "$(dirname "$0")/common.sh"

"$CXX" -std=c++17 -o "$SCRATCH/battery-monitor" "$SOURCE/examples/battery-monitor/main.cpp" \
    $(pkg-config --cflags --libs tamo)
says_that_nothing_is_known env LD_LIBRARY_PATH="$PREFIX/$LIBDIR" "$SCRATCH/battery-monitor"
