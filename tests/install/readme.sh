#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# The README shows the example as it is: each code block under the name of a file holds that file,
# without its licence line.
set -euo pipefail

shown_files=$(sed -n 's/^<!-- \(examples\/.*\) -->$/\1/p' "$SOURCE/README.md")
[ -n "$shown_files" ] || { echo "the README shows no file" >&2; exit 1; }
for file in $shown_files; do
    shown=$(sed -n "\\,^<!-- $file -->\$,,\\,^\`\`\`\$,p" "$SOURCE/README.md" | sed '1,2d;$d')
    diff <(sed '/SPDX-License-Identifier/d' "$SOURCE/$file") <(echo "$shown") ||
        { echo "the README's $file is not the file" >&2; exit 1; }
done
