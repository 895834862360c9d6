#!/usr/bin/env bash
# Plays sessions of the random user, records and replays them, on all cores. A session that is replayed otherwise than
# it was recorded is one line with its seed; the end tells how many there were.
#
#   tools/circle.sh [SESSIONS [FROM [same|other]]]     the desktop of the replay: as it was, or another
set -euo pipefail
cd "$(dirname "$0")/.."
sessions=${1:-1500}
from=${2:-1}
case ${3:-same} in
    same) circle='*AsItWas' ;;
    other) circle='*OnAnotherDesktop*' ;;
    *) echo "circle.sh: the desktop is same or other" >&2; exit 2 ;;
esac
tools/set_up.sh native
tools/build.sh native closed_circle_tests
TESSARINE_SESSIONS=$sessions TESSARINE_FROM=$from \
    out/build/native/tests/recording/closed_circle_tests --gtest_brief=1 --gtest_filter="$circle"
