#!/usr/bin/env bash
# Builds out/package: the installer, the portable zip, and SHA256SUMS. Two packages of one commit are the same, byte by
# byte.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh package
tools/build_windows.sh
[ -z "$(git status --porcelain 2>/dev/null)" ] || echo "    the tree differs from its commit, and so does the package"
echo "==> Packaging"
exec /usr/bin/python3 tools/package.py
