"""Runs the benchmarks of the real platform layer on a Wine desktop."""

import sys

from wine_desktop import OUT, WineDesktop

with WineDesktop("bench") as desktop:
    program = desktop.start(OUT / "build" / "windows" / "bench" / "desktop_bench.exe", stdout=None, stderr=None)
    sys.exit(program.wait(600))
