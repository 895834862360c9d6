#!/usr/bin/env bash
# Every linter over the whole tree: clang-format, clang-tidy (.clang-tidy), shellcheck, flake8 (.flake8), yamllint
# (.yamllint). No findings, or it fails. What has not changed since it was clean costs nothing.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh native windows lint
echo "==> Linting"
exec /usr/bin/python3 tools/lint.py "$@"
