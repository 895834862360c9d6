#!/usr/bin/env bash
# Every test: the logic on the simulated desktop, under sanitizers, the real program on a Wine desktop, the pages of the
# help, and every linter. Ends in one summary. Reports lie in out/test/.
set -uo pipefail
cd "$(dirname "$0")/.." || exit
mkdir -p out
exec 8>out/.test.lock
flock --nonblock 8 || { echo "==> Another make test is at work here; waiting for it"; flock 8; }
reports=$PWD/out/test
rm -rf "$reports"
mkdir -p "$reports"

tools/set_up.sh windows native desktop help package lint || exit 1
tools/build.sh windows || exit 1
tools/build_help.sh || exit 1

# The desktop tests wait more than they compute. What they leave of the machine builds the native ones meanwhile, runs
# them, and lints: in a class that gives way to everything else at once.
idle=(chrt --idle 0)
"${idle[@]}" true 2>/dev/null || idle=(nice -n 19)
native_tests() {
    "${idle[@]}" tools/build.sh sanitize || return
    "${idle[@]}" ctest --preset sanitize --parallel "$(nproc)" --progress --output-junit "$reports/native.xml" \
        >"$reports/native.log" 2>&1
}
# With the analyzer's shorter paths; make lint follows the long ones, which takes as long as all the rest.
meanwhile() {
    local failures=0
    native_tests || failures=1
    "${idle[@]}" tools/lint.sh --shallow >"$reports/lint.log" 2>&1 || failures=$((failures + 2))
    return "$failures"
}
meanwhile &
meanwhile=$!
trap 'kill "$meanwhile" 2>/dev/null' EXIT

failed=0
echo "==> Desktop tests (the real program under Wine; pictures of failures in out/test/)"
/usr/bin/python3 -m pytest -q -n 2 -p no:cacheprovider --junitxml "$reports/desktop.xml" tests/desktop || failed=1

echo "==> Native tests (the logic, under sanitizers) and linters, at work since the build for Windows was done"
wait "$meanwhile"
failures=$?
if ((failures & 1)); then
    failed=1
    [ -e "$reports/native.log" ] || exit 1
    sed -n '/tests passed/,$p' "$reports/native.log"
    echo "    all of it: out/test/native.log"
fi
if ((failures & 2)); then
    failed=1
    cat "$reports/lint.log"
fi

echo "==> Pages of the help"
/usr/bin/python3 -m pytest -q -p no:cacheprovider --junitxml "$reports/help.xml" tests/help || failed=1

/usr/bin/python3 tools/test_summary.py "$reports"/native.xml "$reports"/help.xml "$reports"/desktop.xml || failed=1
exit "$failed"
