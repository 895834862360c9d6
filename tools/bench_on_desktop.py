"""Runs the benchmarks of the real platform layer on a Wine desktop."""

import sys

from wine_desktop import OUT, WineDesktop

with WineDesktop("bench") as desktop:
    folder = OUT / "build" / "windows" / "bench"
    programs = [desktop.start(folder / name, stdout=None, stderr=None).wait(900)
                for name in ("desktop_bench.exe", "reach_bench.exe", "hook_bench.exe")]
    sys.exit(max(programs))
