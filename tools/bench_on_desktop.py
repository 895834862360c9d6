"""Runs the benchmarks of the real platform layer on a Wine desktop."""

import sys

from wine_desktop import OUT, WineDesktop

with WineDesktop("bench") as desktop:
    folder = OUT / "build" / "windows" / "bench"
    tessarine = OUT / "windows" / "tessarine.exe"
    programs = [desktop.start(folder / name, *words, stdout=None, stderr=None).wait(900)
                for name, *words in (("desktop_bench.exe",), ("reach_bench.exe",), ("hook_bench.exe",),
                                     ("memory_bench.exe", tessarine))]
    sys.exit(max(programs))
