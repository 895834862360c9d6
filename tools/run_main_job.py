"""Plays assets/samples/hello.tsj with the real tessarine.exe on a Wine desktop and tells what happened."""

import os
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "desktop"))

from probe import Probe  # noqa: E402
from wine_desktop import OUT, WineDesktop, wait_for  # noqa: E402

PICTURE = OUT / "run" / "screenshot.png"
EXPECTED = "Hello from Tessarine.\nThis line was typed by a job.\n"


def say(text):
    print(f"==> {text}", flush=True)


def usable_display():
    """The user's own display, if it answers."""
    name = os.environ.get("DISPLAY")
    if not name:
        return None
    answers = subprocess.run(["xdpyinfo"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0
    return name if answers else None


def notepad_text(probe):
    window = probe.find("Notepad", visible=True)
    edit = window and probe.find("Edit", parent=window.handle)
    return probe.text(edit.handle).replace("\r\n", "\n") if edit else None


def play(desktop, probe):
    job = desktop.drive_c / "hello.tsj"
    shutil.copy(ROOT / "assets" / "samples" / "hello.tsj", job)
    say("tessarine.exe -run " + desktop.windows_path(job))
    began = time.monotonic()
    program = desktop.start(OUT / "windows" / "tessarine.exe", "-run", desktop.windows_path(job))
    seen = None
    while program.poll() is None and time.monotonic() - began < 60:
        text = notepad_text(probe)
        if text != seen and text is not None:
            print(f"    {time.monotonic() - began:5.1f} s  Notepad holds {text!r}", flush=True)
            seen = text
            if len(text) > len(EXPECTED) // 2 and not PICTURE.exists():
                desktop.screenshot(PICTURE)
        time.sleep(0.25)
    return program.poll(), time.monotonic() - began


def main():
    shutil.rmtree(PICTURE.parent, ignore_errors=True)
    display = usable_display()
    say(f"Starting a Windows desktop on {'display ' + display if display else 'a virtual display'}")
    with WineDesktop("run", display) as desktop:
        probe = Probe(desktop, OUT / "build" / "windows" / "tests" / "desktop" / "probe.exe")
        code, seconds = play(desktop, probe)
        wait_for(lambda: notepad_text(probe) == EXPECTED, 5)  # Notepad may still be at it
        text = notepad_text(probe)
        if not PICTURE.exists():
            desktop.screenshot(PICTURE)
        probe.close()
    played = code == 0 and text == EXPECTED
    say("The job was played to its end" if played else f"The job did not end as it should (exit code {code})")
    print(f"    text in Notepad  {text!r}")
    print(f"    time             {seconds:.1f} s")
    print(f"    screenshot       {PICTURE.relative_to(ROOT)} (taken while the job ran)")
    return 0 if played else 1


sys.exit(main())
