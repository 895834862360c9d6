#!/usr/bin/env python3
"""What the program in the notification area costs with 100 schedules, and how soon after its second one of them runs.

    tools/schedule_figures.py        after tools/build.sh windows, with Debian's python3
"""

import datetime
import getpass
import os
import struct
import sys
import time

from wine_desktop import OUT, ROOT, WineDesktop, wait_for

sys.path.append(str(ROOT / "tests" / "desktop"))

from job_writer import JobWriter  # noqa: E402

SCHEDULES = 100
IDLE_SECONDS = 60
COUNT_AT, RECORD = 2638, 1366
DAILY, ENABLED, RUNNING = 1, -1, -100
LAST_RESULT_AT = 846  # in a record: behind last_run


def text(value, width):
    return value.encode("cp1252").ljust(width)


def schedule(name, start, job):
    record = struct.pack("<i", DAILY) + text(name, 256) + text("", 10) + text(start, 8) + struct.pack("<4i", 0, 0, 0, 0)
    record += text(job, 512) + struct.pack("<h", ENABLED) + text("", 19) + text("", 19) + struct.pack("<i", 0)
    return record + text(f"{job[:-4]}.log", 512) + struct.pack("<i", 0)


def settings(schedules):
    """Of a user who changed nothing, with these schedules."""
    front = struct.pack("<3i", 306, 3000, 3000) + struct.pack("<5i", 0, 0, 0, 0, 0) + struct.pack("<3i", 1, 1, 3)
    front += struct.pack("<h4i", -1, 0, 0, 0, 1) + text("", 5 * 512) + struct.pack("<4i", 0, 0, 1, 0)
    assert len(front) == COUNT_AT
    return front + struct.pack("<i", len(schedules)) + b"".join(schedules)


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
    file.write_bytes(settings([schedule("near", due.strftime("%H:%M:%S"), job)]
                              + [schedule(f"far {n}", start, job) for n, start in enumerate(far)]))
    write_job(folder / "job.tsj")
    program = desktop.start(OUT / "windows" / "tessarine.exe", "-startup")
    time.sleep(10)
    before = processor_ms(program)
    time.sleep(IDLE_SECONDS)
    idle = processor_ms(program) - before

    def under_way():
        data = file.read_bytes()
        return struct.unpack_from("<i", data, COUNT_AT + 4 + LAST_RESULT_AT)[0] == RUNNING

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
