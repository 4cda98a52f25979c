# shellcheck shell=bash
# The documents as HTML. Sourced by ./dev.

docs_packages=(doxygen python3)

# The headers that a host may include, but for MFC's, relative to the root.
reference_headers() {
    build native build.ninja >/dev/null
    sed "s|^$ROOT/||" "$BUILD/native/public_headers.list" | grep -v '^mfc/'
    printf '%s\n' include/dayvane/Dayvane.h
}

command_docs() {
    make_docs || die "There is something to mend in the documents."
    say "The documents are in $BUILD/html/index.html"
}

# BUILD/html with all pages, the reference made of the public headers, and a search. Fails on a dead link, a picture that no
# page shows, and a public name that nothing is said of.
make_docs() {
    local warnings status=0
    need_packages "${native_packages[@]}" "${docs_packages[@]}"
    check_snippets || die "A document shows other code than its sources; ./dev snippets puts it in."
    step "Documents"
    in_subshell check_pages || status=1
    warnings=$(log_file docs)
    rm -rf "$BUILD/html"
    (cd "$ROOT" && {
        cat tools/Doxyfile
        printf 'OUTPUT_DIRECTORY = %s\nPROJECT_NUMBER = %s\nINPUT = README.md CHANGELOG.md docs %s\n' "$BUILD" \
            "$(library_version)" "$(reference_headers | tr '\n' ' ')"
    } | LC_ALL=C.UTF-8 doxygen - >"$warnings" 2>&1) || die "Doxygen failed; see $warnings."
    undocumented_names "$warnings" >"$BUILD/undocumented.list"
    if [ -s "$BUILD/undocumented.list" ]; then
        warn "$(wc -l <"$BUILD/undocumented.list") public names without a word: $BUILD/undocumented.list"
        status=1
    fi
    python3 "$ROOT/tools/links.py" "$BUILD/html" || status=1
    return "$status"
}

# What Doxygen says of names without documentation, "core/CalendarCtrl.h CCalendarCtrl::SetGridColor".
undocumented_names() {
    sed -nE "s|^$ROOT/||; s/^([^:]+):[0-9]+: warning: (Member|Compound) (.*) is not documented\.$/\1 \3/p" "$1" |
        sed -E 's/ of (class|struct|file|namespace) .*/&/' | sort -u
}

# What takes no HTML to see: pictures, links between the pages, public names of which nothing is said.
check_pages() {
    local status=0 headers=()
    check_pictures || status=1
    cd "$ROOT" || return 1
    python3 tools/links.py README.md CHANGELOG.md docs/*.md || status=1
    mapfile -t headers < <(reference_headers)
    python3 tools/reference_filter.py --missing "${headers[@]}" || {
        warn "nothing is said of these names; write it there or into tools/reference_names.txt"
        status=1
    }
    return "$status"
}

# Every picture is shown by a page, and every page shows pictures that there are.
check_pictures() {
    local picture status=0
    cd "$ROOT" || return 1
    for picture in docs/shots/*.png; do
        grep -qF "shots/${picture##*/}" README.md docs/*.md || {
            warn "$picture is shown by no page"
            status=1
        }
    done
    while read -r picture; do
        [ -e "docs/shots/$picture" ] || {
            warn "there is no docs/shots/$picture"
            status=1
        }
    done < <(grep -ohE 'shots/[A-Za-z0-9-]+\.png' README.md docs/*.md | sed 's|shots/||' | sort -u)
    return "$status"
}
