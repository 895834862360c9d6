#!/usr/bin/env python3
"""What the program in the notification area costs with 100 schedules, and how soon after its second one of them runs.

    tools/schedule_figures.py        after tools/build.sh windows, with Debian's python3
"""

import datetime
import getpass
import os
import sys
import time

from wine_desktop import OUT, ROOT, WineDesktop, wait_for

sys.path.append(str(ROOT / "tests" / "desktop"))

from job_writer import JobWriter  # noqa: E402
from settings_writer import RUNNING, daily, last_result, settings  # noqa: E402

SCHEDULES = 100
IDLE_SECONDS = 60


def processor_ms(process):
    fields = open(f"/proc/{process.pid}/stat").read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) * 1000 / os.sysconf("SC_CLK_TCK")


def report(title, figure, limit):
    print(f"{title:<44} {figure:6.2f}  (at most {limit})  {'ok' if figure <= limit else 'TOO MUCH'}", flush=True)
    return figure <= limit


def measure(desktop):
    folder = desktop.drive_c / "users" / getpass.getuser() / "Documents" / "Tessarine"
    folder.mkdir(parents=True, exist_ok=True)
    job = desktop.windows_path(folder / "job.tsj")
    due = (datetime.datetime.now() + datetime.timedelta(seconds=IDLE_SECONDS + 85)).replace(microsecond=0)
    far = [f"{(due.hour + 2 + n % 20) % 24:02}:{n % 60:02}:00" for n in range(SCHEDULES - 1)]
    file = folder / "settings.binary"
    file.write_bytes(settings([daily("near", due.strftime("%H:%M:%S"), job)]
                              + [daily(f"far {n}", start, job) for n, start in enumerate(far)]))
    write_job(folder / "job.tsj")
    program = desktop.start(OUT / "windows" / "tessarine.exe", "-startup")
    time.sleep(10)
    before = processor_ms(program)
    time.sleep(IDLE_SECONDS)
    idle = processor_ms(program) - before

    def under_way():
        return last_result(file.read_bytes(), 0) == RUNNING

    time.sleep(max(0, due.timestamp() - time.time() - 1))
    assert not under_way(), "it runs too early"
    assert wait_for(under_way, 10, 0.002), "it does not run"
    late = (file.stat().st_mtime - due.timestamp()) * 1000
    good = report("idle in the tray, 100 schedules / a minute", idle, 20)
    return report("begin of a scheduled run, ms after its second", late, 300) and good


def write_job(path):
    """A move of the mouse and a wait, so that the run can be met."""
    job = JobWriter()
    job.move(100, 100)
    job.pause(3000)
    job.move(110, 100)
    job.write(path)


def main():
    with WineDesktop("schedules") as desktop:
        return 0 if measure(desktop) else 1


if __name__ == "__main__":
    sys.exit(main())
