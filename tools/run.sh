#!/usr/bin/env bash
# The main job: the real program plays a shipped job into a Notepad that knows nothing of it, on a Wine desktop (on
# your own display when there is one), and what happened is told.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/set_up.sh windows desktop
tools/build.sh windows
exec /usr/bin/python3 tools/run_main_job.py
