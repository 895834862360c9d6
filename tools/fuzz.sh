#!/usr/bin/env bash
# Runs each fuzz target for a minute (or the seconds given). What crashes is kept in out/fuzz/TARGET/.
#
#   tools/fuzz.sh [SECONDS]
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
tools/set_up.sh fuzz || exit 1
tools/build.sh fuzz || exit 1
failed=0
for target in out/build/fuzz/fuzz/fuzz_*; do
    [ -x "$target" ] && [ -f "$target" ] || continue
    name=$(basename "$target")
    work=$PWD/out/fuzz/$name
    mkdir -p "$work/corpus"
    echo "==> $name, $seconds s"
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -malloc_limit_mb=256 -print_final_stats=1 \
        -artifact_prefix="$work/" "$work/corpus" "fuzz/corpus/${name#fuzz_}" >"$work/log" 2>&1
    if [ $? = 0 ]; then
        grep -E 'number_of_executed_units|peak_rss_mb' "$work/log" | sed 's/^/    /'
    else
        failed=1
        tail -n 40 "$work/log"
    fi
done
exit "$failed"
