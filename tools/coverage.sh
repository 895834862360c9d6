#!/usr/bin/env bash
# Which lines and branches of the logic the native tests reach, as pages for people: out/coverage/index.html. There is
# no threshold.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh native coverage
tools/build.sh coverage
echo "==> Native tests (coverage)"
folder=out/build/coverage
find "$folder" -name '*.gcda' -delete  # counts of runs before this one
mkdir -p out/coverage
ctest --preset coverage --parallel "$(nproc)" --progress >out/coverage/tests.log 2>&1 ||
    { sed -n '/tests passed/,$p' out/coverage/tests.log; echo "    the pages tell of a run with failures"; }
gcovr --root . --object-directory "$folder" --filter src/ --exclude src/program --exclude src/platform/win32 \
    --exclude-throw-branches --exclude-unreachable-branches --gcov-ignore-parse-errors \
    --html-details out/coverage/index.html --html-title "Tessarine: what the native tests reach" \
    --print-summary "$folder" 2>out/coverage/gcovr.log | grep -E '^(lines|branches)'
echo "==> out/coverage/index.html"
