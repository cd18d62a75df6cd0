# SPDX-License-Identifier: Apache-2.0
source "$(dirname "$0")/common.sh"

cd "$PREFIX/include"
count=0
while read -r header; do
    "$CXX" -std=c++17 -Wall -Wextra -Werror -fsyntax-only -x c++ -include "$header" /dev/null \
        $(pkg-config --cflags tamo) || fail "$header does not compile alone"
    count=$((count + 1))
done < <(find tamo* -name '*.h')
[ "$count" -ge 6 ] || fail "only $count headers are installed"
