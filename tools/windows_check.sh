#!/usr/bin/env bash
# Builds out/package/windows-check.zip: what is needed to try the program on a real Windows machine. There it is
# unpacked, and windows_check.cmd started; that writes one report.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh windows
tools/build.sh windows all desktop_bench
echo "==> Packing what tries the program on Windows"
exec /usr/bin/python3 tools/windows_check.py
