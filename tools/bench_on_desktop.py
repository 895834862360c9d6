"""Runs the benchmarks of the real platform layer, and those of the program itself, on a Wine desktop.

    tools/bench_on_desktop.py [start_bench.exe]      all of them, or one
"""

import getpass
import sys

from wine_desktop import OUT, ROOT, WineDesktop

sys.path.append(str(ROOT / "tests" / "desktop"))

from job_writer import JobWriter  # noqa: E402

JOBS = 100


def write_jobs(desktop):
    """What the list of jobs is filled with at each start of the program."""
    folder = desktop.drive_c / "users" / getpass.getuser() / "Documents" / "Tessarine"
    folder.mkdir(parents=True)
    for number in range(JOBS):
        job = JobWriter(description=f"Sends report {number}")
        for step in range(200):
            job.move(100 + step, 200)
        job.write(folder / f"Report {number}.tsj")


with WineDesktop("bench") as desktop:
    folder = OUT / "build" / "windows" / "bench"
    tessarine = OUT / "windows" / "tessarine.exe"
    write_jobs(desktop)
    programs = [desktop.start(folder / name, *words, stdout=None, stderr=None).wait(900)
                for name, *words in (("desktop_bench.exe",), ("reach_bench.exe",), ("hook_bench.exe",),
                                     ("start_bench.exe", tessarine, folder / "dialog_templates.exe"),
                                     ("memory_bench.exe", tessarine))
                if sys.argv[1:] in ([], [name])]
    sys.exit(max(programs))
