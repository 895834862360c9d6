"""Writes assets/samples/hello.tsj: it starts Notepad, clicks into it and types two lines, one as text, one as keys."""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from job_writer import HIGH, JobWriter  # noqa: E402
from probe import Window  # noqa: E402


def window(class_name, caption, control_id, normal):
    place = {"flags": 0, "show": 1, "min": (-1, -1), "max": (-1, -1), "normal": normal}
    return Window(0, 0, class_name, caption, control_id, normal, True, True, 0, 0, place)


def main():
    job = JobWriter(safety=HIGH, description="Starts Notepad and writes two lines into it.",
                    program="C:\\windows\\system32\\notepad.exe", style=1)
    edit = job.target([window("Edit", "", 15, (0, 0, 692, 334)),
                       window("Notepad", "Untitled - Notepad", 0, (60, 40, 760, 440))])
    job.pause(500)
    job.click(360, 240, edit)
    job.text_row("{L_SHIFT DOWN}h{L_SHIFT UP}ello from {L_SHIFT DOWN}t{L_SHIFT UP}essarine.{ENTER}", edit, takes=1500)
    job.pause(200)
    job.type("This line was typed by a job.\n", edit, gap=60)
    job.move(500, 600)
    target = ROOT / "assets" / "samples" / "hello.tsj"
    target.parent.mkdir(parents=True, exist_ok=True)
    job.write(target)


main()
