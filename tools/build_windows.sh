#!/usr/bin/env bash
# Builds out/windows/tessarine.exe and the help, ready to be copied to a Windows machine, and what is tried under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh windows
tools/build.sh windows
tools/build_help.sh
echo "==> out/windows/tessarine.exe ($(stat -c %s out/windows/tessarine.exe) bytes)"
