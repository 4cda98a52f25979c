# shellcheck shell=bash
# Planted faults: how much of what a developer could break do the tests catch? Sourced by ./dev.

# A build whose tests tell which lines they reach (tests/support/CoverageByTest.cpp); no sanitizers, for speed.
plant_flags=(-DCMAKE_BUILD_TYPE=None -DDAYVANE_BENCH=OFF -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
    "-DCMAKE_EXE_LINKER_FLAGS=-no-pie -fuse-ld=lld"
    "-DDAYVANE_SANITIZE=-O1 -g1 -fsanitize-coverage=trace-pc -D_GLIBCXX_ASSERTIONS")

test_targets() { sed 's/\t.*//; s/^/test_/' "$1/tests.list"; }

# plant [--windows] ARGUMENT...
command_plant() {
    local windows=() arguments=() argument targets native=$BUILD/plant/native
    for argument in "$@"; do
        if [ "$argument" = --windows ]; then windows=(--windows "$BUILD/win32"); else arguments+=("$argument"); fi
    done
    [[ $ROOT$BUILD != *[[:space:]]* ]] || die "Faults are planted only where no folder's name has a blank: $ROOT, $BUILD."
    need_native_build
    need_packages python3 git lld
    make_build_root
    run_logged plant "Configuring the build for faults" cmake -G Ninja -S "$ROOT" -B "$native" "${plant_flags[@]}"
    if [ ${#windows[@]} -gt 0 ]; then
        build win32 build.ninja
        mapfile -t targets < <(test_targets "$BUILD/win32")
        build win32 "${targets[@]}" master_pictures
        start_system 932
    else
        mapfile -t targets < <(test_targets "$native")
        step "Building what faults are planted in"
        # An object's lines must be found in this tree, not in another whose object ccache has kept.
        CCACHE_HASHDIR=1 run_logged plant "Building it" ninja -C "$native" "${targets[@]}"
    fi
    python3 -B "$ROOT/tools/plant.py" --root "$ROOT" --place "$BUILD/plant" --build "$native" "${windows[@]}" \
        "${arguments[@]}" 9>&-
}
