#!/usr/bin/env bash
# A runner that misreads a crash or an empty run as success hides every fault, so its reading of logs is tested.
set -euo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
BUILD=$(mktemp -d)
source "$ROOT/tools/common.sh"
source "$ROOT/tools/test.sh"
at_exit "rm -rf '$BUILD'"

failures=0
# check NAME STATUS EXPECTED LOG...: the log's lines, the exit status, what count_results shall begin with.
check() {
    local name=$1 status=$2 expected=$3 got
    shift 3
    printf '%s\r\n' "$@" >"$BUILD/log"
    got=$(count_results "$BUILD/log" "$status")
    if [[ $got != "$expected"* ]]; then
        say "$name: expected '$expected', got '$got'"
        failures=$((failures + 1))
    fi
}

run_a='[ RUN      ] Suite.A'
ok_a='[       OK ] Suite.A (3 ms)'
failed_b='[  FAILED  ] Suite.B, where GetParam() = 4 (0 ms)'
skipped_c='[  SKIPPED ] Suite.C (0 ms)'
check "all pass" 0 "1 0 0 " "$run_a" "$ok_a" '[==========] 1 test from 1 test suite ran. (3 ms total)'
check "text before the mark" 0 "1 0 0 " "$run_a" "printed $ok_a" '[==========] 1 test from 1 test suite ran. (3 ms total)'
check "one of each" 1 "1 1 1 " "$run_a" "$ok_a" "$failed_b" "$skipped_c" \
    '[==========] 3 tests from 1 test suite ran. (3 ms total)' '[  FAILED  ] Suite.B, where GetParam() = 4'
check "crash" 139 "1 1 0 crashed in Suite.B" "$run_a" "$ok_a" '[ RUN      ] Suite.B'
check "crash after the tests" 139 "1 1 0 passed its tests but" "$run_a" "$ok_a" \
    '[==========] 1 test from 1 test suite ran. (3 ms total)'
check "hang" 124 "1 1 0 hung in Suite.B" "$run_a" "$ok_a" '[ RUN      ] Suite.B'
check "quiet exit" 0 "0 1 0 crashed in Suite.A" "$run_a"
check "no test" 0 "0 1 0 ran no test" '[==========] 0 tests from 0 test suites ran. (0 ms total)'
check "lost result" 0 "1 1 0 reports 2 tests but shows 1" "$run_a" "$ok_a" \
    '[==========] 2 tests from 1 test suite ran. (3 ms total)'

results=$BUILD/results
printf '3 0 0\n2 1 0\n' >"$results"
if totals=$(print_totals) || [ "$(tail -n 1 <<<"$totals")" != "5 passed, 1 failed" ]; then
    say "totals: $totals"
    failures=$((failures + 1))
fi
: >"$results"
if (print_totals) >/dev/null 2>&1; then
    say "an empty run passes"
    failures=$((failures + 1))
fi
[ "$failures" -eq 0 ]
