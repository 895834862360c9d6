#!/usr/bin/env bash
# Every test: natively on the simulated desktop, the same under sanitizers, the real program on a Wine desktop, and the
# quick linters. Ends in one summary. Reports lie in out/test/.
set -uo pipefail
cd "$(dirname "$0")/.." || exit
mkdir -p out
exec 8>out/.test.lock
flock --nonblock 8 || { echo "==> Another make test is at work here; waiting for it"; flock 8; }
reports=$PWD/out/test
rm -rf "$reports"
mkdir -p "$reports"

tools/set_up.sh windows native desktop lint || exit 1
for preset in native sanitize windows; do tools/build.sh "$preset" || exit 1; done

failed=0
native() {
    echo "==> Native tests ($1)"
    ctest --preset "$1" --parallel "$(nproc)" --progress --output-junit "$reports/$1.xml" >"$reports/$1.log" 2>&1 || {
        failed=1
        sed -n '/tests passed/,$p' "$reports/$1.log"
        echo "    all of it: out/test/$1.log"
    }
}
native native
native sanitize

# clang-tidy takes as long as all the rest: make lint.
tools/lint.sh --quick || failed=1

echo "==> Desktop tests (the real program under Wine; pictures of failures in out/test/)"
/usr/bin/python3 -m pytest -q -n 2 -p no:cacheprovider --junitxml "$reports/desktop.xml" tests/desktop || failed=1

/usr/bin/python3 tools/test_summary.py "$reports"/native.xml "$reports"/sanitize.xml "$reports"/desktop.xml || failed=1
exit "$failed"
