"""Runs the benchmarks of the real platform layer, and those of the program itself, on a Wine desktop.

    tools/bench_on_desktop.py [start_bench.exe]      all of them, or one
"""

import getpass
import os
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


def run_all(programs):
    """The worst of their exit codes."""
    with WineDesktop("bench") as desktop:
        write_jobs(desktop)
        return max((desktop.start(program, *words, stdout=None, stderr=None).wait(900)
                    for program, *words in programs), default=0)


def those_asked_for(*programs):
    return [program for program in programs if sys.argv[1:] in ([], [program[0].name])]


folder = OUT / "build" / "windows" / "bench"
tessarine = OUT / "windows" / "tessarine.exe"
started = those_asked_for((folder / "guard_bench.exe",),
                          (folder / "start_bench.exe", tessarine, folder / "dialog_templates.exe"),
                          (folder / "memory_bench.exe", tessarine))
talking = those_asked_for((folder / "desktop_bench.exe",), (folder / "reach_bench.exe",), (folder / "hook_bench.exe",))
worst = run_all(started) if started else 0
# These ask the system one thing after another. What an answer of the Wine server takes depends on whether it has the
# same processor (24 ms for the classes of 1,000 windows) or another one that has to be woken (60 to 90), which changes
# from one second to the next: on one processor both sides of a ratio pay the same.
os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})
worst = max(worst, run_all(talking) if talking else 0)
sys.exit(worst)
