#!/usr/bin/env bash
# Runs each fuzz target for a minute (or the seconds given), as many at a time as there are cores. What crashes is kept
# in out/fuzz/TARGET/.
#
#   tools/fuzz.sh [SECONDS]
set -uo pipefail
cd "$(dirname "$0")/.." || exit
export seconds=${1:-60}
tools/set_up.sh fuzz || exit 1
targets=(fuzz_read_job fuzz_check_job fuzz_check_job_header fuzz_load_settings fuzz_keystrokes fuzz_copydata fuzz_sound_bank
    fuzz_schedules fuzz_edit_job fuzz_made_program fuzz_import_job_text)
tools/build.sh fuzz "${targets[@]}" || exit 1

fuzz() {
    local name=$1 work=$PWD/out/fuzz/$1
    mkdir -p "$work/corpus"
    "out/build/fuzz/fuzz/$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -malloc_limit_mb=256 \
        -max_len=16384 -print_final_stats=1 -artifact_prefix="$work/" "$work/corpus" "fuzz/corpus/${name#fuzz_}" \
        >"$work/log" 2>&1 || { tail -n 40 "$work/log"; echo "$name: FAILED; see out/fuzz/$name"; return 1; }
    sed -n 's/^stat::number_of_executed_units: *//p' "$work/log" |
        xargs -I {} printf '%-24s %12s inputs, nothing found\n' "$name" {}
}
export -f fuzz

echo "==> Fuzzing, $seconds s each"
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I {} bash -c 'fuzz {}'
