#!/usr/bin/env bash
# screenshots.sh IMAGE_DIR: the main page of the API documentation, docs/mainpage.md
# followed by every screenshot of IMAGE_DIR (<form>_de.png, <form>_en.png) as an image.
set -euo pipefail
cd "$(dirname "$0")"
cat mainpage.md
shopt -s nullglob
for de in "$1"/*_de.png; do
    form=$(basename "$de" _de.png)
    printf '\n### %s\n\n' "$form"
    printf '@image html %s "%s, Deutsch"\n' "$(basename "$de")" "$form"
    if [ -e "$1/${form}_en.png" ]; then
        printf '@image html %s "%s, English"\n' "${form}_en.png" "$form"
    fi
done
