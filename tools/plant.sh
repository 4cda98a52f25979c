# shellcheck shell=bash
# Planted faults: how much of what a developer could break do the tests catch? Sourced by ./dev.

command_plant() {
    need_native_build
    need_packages python3 git
    make_build_root
    python3 "$ROOT/tools/plant.py" --root "$ROOT" --place "$BUILD/plant" "$@"
}
