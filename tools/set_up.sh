#!/usr/bin/env bash
# Installs the Debian packages that a purpose needs and that are missing. Costs a fraction of a second when nothing
# is. Safe to run twice, at the same time, and after an interrupted run.
#
#   tools/set_up.sh PURPOSE...      windows  native  desktop  help  package  lint  coverage  fuzz  bench
set -euo pipefail

packages() {
    case "$1" in
        windows) echo cmake ninja-build make g++-mingw-w64-x86-64-posix googletest python3 libcli11-dev nlohmann-json3-dev libstb-dev ;;
        native) echo cmake ninja-build make g++ googletest libgtest-dev libgmock-dev libbenchmark-dev python3 libcli11-dev nlohmann-json3-dev libstb-dev ;;
        desktop) echo wine64 fonts-wine xvfb xdotool imagemagick x11-utils python3 python3-xlib python3-pytest python3-pytest-xdist python3-jsonschema python3-junitparser ;;
        help) echo fp-utils python3 ;;
        package) echo nsis git python3 ;;
        lint) echo clang-format-14 clang-tidy-14 shellcheck python3 python3-flake8 yamllint ;;
        coverage) echo gcovr ;;
        bench) echo valgrind python3 ;;
        fuzz) echo cmake ninja-build make clang-14 libclang-rt-14-dev llvm-14 python3 libcli11-dev nlohmann-json3-dev libstb-dev ;;
        *) echo "set_up.sh: unknown purpose '$1'" >&2; exit 2 ;;
    esac
}

missing() {
    local wanted=() purpose
    for purpose in "$@"; do read -r -a list <<<"$(packages "$purpose")"; wanted+=("${list[@]}"); done
    local installed
    installed=" $(dpkg-query -W -f '${db:Status-Abbrev}${Package}\n' "${wanted[@]}" 2>/dev/null |
        sed -n 's/^ii *//p' | tr '\n' ' ') "
    local name
    for name in "${wanted[@]}"; do [[ $installed == *" $name "* ]] || echo "$name"; done | sort -u
}

install() {
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "set_up.sh: not root, and there is no sudo; please install: $*" >&2; exit 1; }
        as_root=(sudo)
    fi
    export DEBIAN_FRONTEND=noninteractive
    "${as_root[@]}" dpkg --configure -a  # what an interrupted run may have left half done
    "${as_root[@]}" apt-get -o DPkg::Lock::Timeout=600 -qq update
    "${as_root[@]}" apt-get -o DPkg::Lock::Timeout=600 -qq -y --no-install-recommends install "$@"
}

for purpose in "$@"; do packages "$purpose" >/dev/null; done
read -r -a needed <<<"$(missing "$@" | tr '\n' ' ')"
[ "${#needed[@]}" = 0 ] && exit 0

# One installation at a time; whoever waited looks again.
exec 9>"${TMPDIR:-/tmp}/tessarine-set-up-$(id -u).lock"
flock 9
read -r -a needed <<<"$(missing "$@" | tr '\n' ' ')"
[ "${#needed[@]}" = 0 ] && exit 0
echo "==> Installing what is missing: ${needed[*]}"
install "${needed[@]}" >"${TMPDIR:-/tmp}/tessarine-set-up-$(id -u).log" 2>&1 ||
    { tail -n 30 "${TMPDIR:-/tmp}/tessarine-set-up-$(id -u).log" >&2; echo "set_up.sh: the installation failed" >&2; exit 1; }
