#!/usr/bin/env bash
# Builds tsj for this machine, with all that needs no desktop: out/tsj.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh native
tools/build.sh native tsj_program
install -m 755 out/build/native/src/tsj/tsj out/tsj
echo "==> out/tsj ($(out/tsj --version))"
