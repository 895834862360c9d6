#!/usr/bin/env bash
# Makes out/windows/"Tessarine Help.chm" from the pages in assets/help, when something there has changed.
set -euo pipefail
cd "$(dirname "$0")/.."
target="out/windows/Tessarine Help.chm"
if [ -f "$target" ] && [ -z "$(find assets/help tools/build_help.sh tools/build_help.py -newer "$target" -print -quit)" ]; then
    exit 0
fi
tools/set_up.sh help
echo "==> Building the help"
exec /usr/bin/python3 tools/build_help.py "$target"
