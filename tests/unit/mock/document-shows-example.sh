#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# The document's C++ block is the program, without its licence line.
#   document-shows-example.sh DOCUMENT PROGRAM
set -euo pipefail

shown=$(sed -n '/^```cpp$/,/^```$/p' "$1" | sed '1d;$d')
diff <(sed '/SPDX-License-Identifier/d' "$2") <(echo "$shown") ||
    { echo "the program in $1 is not $2" >&2; exit 1; }
