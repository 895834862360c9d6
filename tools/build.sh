#!/usr/bin/env bash
# Configures and builds one CMake preset; one build of a preset at a time. With CCACHE in the path it is used.
#
#   tools/build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=$1
shift
folder=out/build/$preset
mkdir -p "$folder"
exec 9>"$folder/.lock"
flock 9
options=()
command -v ccache >/dev/null && options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
echo "==> Building ($preset)"
log=$folder/build.log
{
    [ -f "$folder/build.ninja" ] || cmake --preset "$preset" "${options[@]}"
    cmake --build --preset "$preset" ${1:+--target "$@"}
} >"$log" 2>&1 || { tail -n 60 "$log" >&2; echo "build.sh: building $preset failed; all of it is in $log" >&2; exit 1; }
