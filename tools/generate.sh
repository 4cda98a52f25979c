# shellcheck shell=bash
# The files that are made from the description of the C interface. Sourced by ./dev.

# The one place of the version number.
library_version() { sed -n 's/^project(Dayvane VERSION \([0-9.]*\).*/\1/p' "$ROOT/CMakeLists.txt"; }

# What is wanted and where it lies, a line each.
interface_files() {
    cat <<'FILES'
header ctl/dayvane_ctl.h
messages ctl/Messages.inc
exports ctl/DayvaneCtl.def
imports32 ctl/DayvaneCtl32.def
csharp ctl/DayvaneCtl.cs
delphi ctl/DayvaneCtl.pas
reference docs/c-interface.md
FILES
}

# generate [--check]: makes them anew, or fails when one is not as it would be made.
command_generate() {
    local mode=${1:-} want file made stale=0
    made=$(mktemp -d)
    at_exit "rm -rf '$made'"
    while read -r want file; do
        awk -v want="$want" -v version="$(library_version)" -f "$ROOT/ctl/generate.awk" \
            "$ROOT/ctl/dayvane_ctl.iface" >"$made/$want" || die "$file could not be made."
        case $mode in
            "") cmp -s "$made/$want" "$ROOT/$file" || cp "$made/$want" "$ROOT/$file" ;;
            --check)
                cmp "$made/$want" "$ROOT/$file" || stale=1
                ;;
            *) die "./dev generate knows only the option --check." ;;
        esac
    done < <(interface_files)
    [ "$(sed -n 's/^## \([0-9.]*\).*/\1/p' "$ROOT/CHANGELOG.md" | head -n 1)" = "$(library_version)" ] ||
        die "CHANGELOG.md does not begin with $(library_version)."
    [ "$stale" -eq 0 ] || die "Some files are out of date; ./dev generate makes them anew."
}
