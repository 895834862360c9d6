#!/usr/bin/env python3
"""What the search of a run pays for those who can listen to one: instructions of the search as it is, with nobody who
listens, against the same sources without listeners. A count, for what is left lies far below the noise of a clock.

    tools/search_figure.py        after tools/build.sh native benches, with Debian's python3
"""

import re
import subprocess
import sys
from pathlib import Path

BENCHES = Path(__file__).resolve().parent.parent / "out" / "build" / "native" / "bench"
LIMIT = 1.02


def instructions(program, scene):
    counted = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                              "--toggle-collect=FindTarget*", BENCHES / program, scene],
                             capture_output=True, text=True, check=True)
    return int(re.search(r"Collected : (\d+)", counted.stderr)[1])


def main():
    good = True
    for scene in ("in place", "window", "element"):
        ratio = instructions("heard_search", scene) / instructions("plain_search", scene)
        good = good and ratio <= LIMIT
        told = scene if scene == "in place" else f"missing {scene}"
        print(f"{'unheard search / plain one, ' + told:<44} {ratio:.4f}  (at most {LIMIT})  "
              f"{'ok' if ratio <= LIMIT else 'TOO MUCH'}", flush=True)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
