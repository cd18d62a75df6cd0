# SPDX-License-Identifier: Apache-2.0
source "$(dirname "$0")/common.sh"

# A copy, so that nothing else of the repository is beside it.
cp -r "$SOURCE/examples/battery-monitor" "$SCRATCH/source"
cmake -S "$SCRATCH/source" -B "$SCRATCH/build" -DCMAKE_PREFIX_PATH="$PREFIX"
cmake --build "$SCRATCH/build"
says_that_nothing_is_known "$SCRATCH/build/battery-monitor"
