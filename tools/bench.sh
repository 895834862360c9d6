#!/usr/bin/env bash
# Every figure, as a ratio against a plain baseline in the same run: the logic natively, the real desktop under Wine.
# Fails when a figure is missed.
set -uo pipefail
cd "$(dirname "$0")/.." || exit
tools/set_up.sh windows native desktop bench || exit 1
tools/build.sh native benches || exit 1
tools/build.sh windows all benches || exit 1
failed=0
for benchmark in out/build/native/bench/*_bench; do
    "$benchmark" || failed=1
done
/usr/bin/python3 tools/search_figure.py || failed=1
/usr/bin/python3 tools/bench_on_desktop.py || failed=1
/usr/bin/python3 tools/schedule_figures.py || failed=1
exit "$failed"
