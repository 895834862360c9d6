#!/usr/bin/env bash
# Random work in Notepad, with hands from outside, recorded and played again by the real program: SESSIONS sessions from
# seed FROM on, each with Notepad left alone, moved, minimised and covered. A replay that leaves another text is told.
#
#   tools/random_sessions.sh [SESSIONS [FROM]]
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh windows desktop
tools/build.sh windows
TESSARINE_SESSIONS=${1:-50} TESSARINE_FROM=${2:-1} \
    /usr/bin/python3 -m pytest -q -n 2 -p no:cacheprovider tests/desktop/test_random_sessions.py
