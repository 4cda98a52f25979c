#!/usr/bin/env bash
# Every view and date selector, without texts, against the pictures that are kept of them.
#
# master_pictures.sh PROGRAM MASTERS FOLDER [keep]: needs Wine's environment and a display; works in the folder. With
# "keep" what is drawn becomes the kept pictures.
set -euo pipefail

program=$1 masters=$2 folder=$3 keep=${4:-}
failed=0

windows_path() { printf 'Z:%s' "$(realpath -m "$1" | tr / '\\')"; }

rm -rf "$folder"
mkdir -p "$folder"
wine "$program" "$(windows_path "$folder")" >"$folder/drawn.log" 2>&1
[ -n "$keep" ] && rm -f "$masters"/*.png
for drawn in "$folder"/*.bmp; do
    name=$(basename "$drawn" .bmp)
    if [ -n "$keep" ]; then
        convert "$drawn" -strip -define png:compression-level=9 "$masters/$name.png"
    elif [ ! -r "$masters/$name.png" ]; then
        echo "$name: no picture is kept"
        failed=$((failed + 1))
    else
        # The number of pixels that differ, on the error output.
        pixels=$(compare -metric AE "$masters/$name.png" "$drawn" "$folder/$name-difference.png" 2>&1) || true
        if [ "$pixels" != 0 ]; then
            echo "$name: $pixels pixels differ; see $folder/$name-difference.png"
            failed=$((failed + 1))
        fi
    fi
done
kept=$(find "$masters" -name '*.png' | wc -l)
drawn=$(find "$folder" -name '*.bmp' | wc -l)
[ "$kept" -eq "$drawn" ] || { echo "$drawn pictures drawn, $kept kept"; failed=$((failed + 1)); }
[ "$failed" -eq 0 ]
