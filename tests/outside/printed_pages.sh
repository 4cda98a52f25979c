#!/usr/bin/env bash
# What the planner prints, from outside: the PostScript driver's file goes through ghostscript, and the pages are asked
# for their number, size, fonts and ink.
#
# printed_pages.sh PLANNER.EXE ADD_PRINTER.EXE PPD CALENDAR FOLDER: needs Wine's environment and a display; works in the
# folder.
set -euo pipefail

planner=$1 add_printer=$2 ppd=$3 calendar=$4 folder=$5
failed=0

windows_path() { printf 'Z:%s' "$(realpath -m "$1" | tr / '\\')"; }
wrong() {
    echo "$*"
    failed=$((failed + 1))
}

# expect NAME PAGES WIDTHxHEIGHT PLANNER-ARGUMENT...: pages (a number, or "2+"), size in points.
expect() {
    local name=$1 pages=$2 size=$3 found width height page
    shift 3
    rm -f "$folder/$name"*
    wine "$planner" "$(windows_path "$calendar")" "$@" --pages "$(windows_path "$folder/$name.ps")" >"$folder/$name.log" 2>&1 ||
        { wrong "$name: nothing was printed"; return; }
    ps2pdf -dAutoRotatePages=/None "$folder/$name.ps" "$folder/$name.pdf" >>"$folder/$name.log" 2>&1 ||
        { wrong "$name: ghostscript refuses the file"; return; }
    pdfinfo "$folder/$name.pdf" >"$folder/$name.info"
    found=$(awk '/^Pages:/ { print $2 }' "$folder/$name.info")
    case $pages in
        *+) [ "$found" -ge "${pages%+}" ] || wrong "$name: $found pages" ;;
        *) [ "$found" -eq "$pages" ] || wrong "$name: $found pages instead of $pages" ;;
    esac
    grep -q "^$found page" "$folder/$name.log" || wrong "$name: the planner tells another number of pages"
    read -r width height < <(awk '/^Page size:/ { printf "%.0f %.0f\n", $3, $5 }' "$folder/$name.info")
    [ "${width}x$height" = "$size" ] || wrong "$name: the paper is ${width}x$height instead of $size"
    [ "$(pdffonts "$folder/$name.pdf" | awk 'NR > 2 && $(NF - 4) != "yes"' | wc -l)" -eq 0 ] || wrong "$name: a font is not embedded"
    pdffonts "$folder/$name.pdf" | grep -qi gothic || wrong "$name: there is no Japanese font"
    pdftoppm -r 40 -gray "$folder/$name.pdf" "$folder/$name"
    for page in "$folder/$name"-*.pgm; do
        # Ink on the sheet, none within 3 mm of its edges.
        [ "$(convert "$page" -format '%[fx:mean<0.998]' info:)" = 1 ] || wrong "$name: ${page##*/} is empty"
        [ "$(convert "$page" -fill white -draw "rectangle 5,5 $((width * 40 / 72 - 6)),$((height * 40 / 72 - 6))" \
            -format '%[fx:minima]' info:)" = 1 ] || wrong "$name: there is something at the edge of ${page##*/}"
    done
}

mkdir -p "$folder"
wine "$add_printer" "$(windows_path "$ppd")"
expect month 1+ 595x842 --view month --date 2026-11-24
expect letter 1+ 612x792 --view month --date 2026-12-24 --paper Letter-portrait
expect day 1 595x842 --view day --date 2026-11-24
expect fortnight 2 595x842 --view 14days --date 2026-11-24
expect diary 1+ 420x595 --view diary --date 2026-11-24 --paper A5
expect year 1+ 842x1191 --view year --date 2026-11-24 --paper A3
expect list 2+ 595x842 --view list --date 2026-11-24
expect agenda 2+ 612x792 --view agenda --date 2026-11-24 --paper Letter --language en
[ "$failed" -eq 0 ]
