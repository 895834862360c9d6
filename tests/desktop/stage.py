"""What a story of the desktop tests is told with: Notepad, the program, and the jobs that are played."""

import os
import signal
import subprocess

import pytest
from job_writer import JobWriter
from wine_desktop import wait_for

MAIN_CAPTION = "Tessarine 3.0.6"
# Clear of the status form of a recording, which a window that comes to the front would cover on Wine's screen.
NOTEPAD_PLACE = (60, 200, 760, 600)
MIDDLE = (360, 450)  # of the text in it


class Notepad:
    """A running Notepad with an empty text, in a known place."""

    def __init__(self, stage):
        self.stage = stage
        self.process = stage.wine.start("notepad.exe")
        self.top = wait_for(lambda: stage.probe.find("Notepad", "Untitled - Notepad", visible=True))
        assert self.top, "Notepad did not come up"
        self.handle = self.top.handle
        stage.probe.place(self.handle, 1, NOTEPAD_PLACE)
        self.edit = wait_for(lambda: stage.probe.find("Edit", parent=self.handle)).handle
        stage.brings_to_front(self.handle)

    @property
    def text(self):
        return self.stage.probe.text(self.edit).replace("\r\n", "\n")

    def holds(self, text):
        """The text, once Notepad has dealt with the input that was still on its way to it."""
        wait_for(lambda: self.text == text, 5)
        return self.text == text or pytest.fail(f"Notepad holds {self.text!r}")

    def set_text(self, text):
        self.stage.probe.set_text(self.edit, text)

    def chain(self):
        return self.stage.probe.chain(self.edit)

    def character(self, index):
        """The screen position just inside the character at `index`."""
        packed = self.stage.probe.ask("send", self.edit, 0xD6, index, 0)  # EM_POSFROMCHAR
        x, y = packed & 0xFFFF, packed >> 16 & 0xFFFF
        left, top = self.stage.probe.ask("screen", self.edit, 0, 0)
        return left + x + 2, top + y + 6

    def first_line(self):
        return self.stage.probe.ask("send", self.edit, 0xCE, 0, 0)  # EM_GETFIRSTVISIBLELINE


class Stage:
    def __init__(self, wine, probe, hands, program):
        self.wine, self.probe, self.hands, self.program = wine, probe, hands, program
        self.started = []
        self.folder = wine.folder / "jobs"
        self.folder.mkdir(exist_ok=True)

    def notepad(self):
        notepad = Notepad(self)
        self.started.append(notepad.process)
        return notepad

    def start(self, *command, **options):
        process = self.wine.start(*command, **options)
        self.started.append(process)
        return process

    def tessarine(self, *words):
        return self.start(self.program, *words)

    def brings_to_front(self, handle):
        """A window, which is asked to come and comes a moment later."""
        self.probe.ask("front", handle)
        self.wine.settles()
        assert self.probe.ask("foreground") == handle

    def job(self, **options):
        return JobWriter(**options)

    def typing_job(self, notepad, text="abc ", pause=0, **options):
        """Clicks into Notepad, after a pause, and types."""
        job = self.job(**options)
        edit = job.target(notepad.chain())
        job.pause(pause)
        job.click(*MIDDLE, edit)
        job.type(text, edit)
        return job

    def write(self, job, name="job"):
        """Writes the job and returns its Windows path, which has no blanks in it."""
        return self.wine.windows_path(job.write(self.folder / f"{name}.tsj"))

    def run(self, path, timeout=60):
        """Runs a job to its end in a program of its own; the exit code."""
        return self.tessarine("-run", path).wait(timeout)

    def main_window(self):
        return self.probe.find("TessarineMainWindow", MAIN_CAPTION)

    def status_lines(self):
        """The action list of the status window."""
        window = self.status_list()
        return self.probe.list_lines(window.handle) if window else None

    def status_list(self):
        main = self.main_window()
        return next((window for window in self.probe.windows()
                     if window.class_name == "ListBox" and main and window.process == main.process), None)

    def box(self, title=None):
        """A message box of the program, with its texts, or None."""
        main = self.main_window()
        for window in self.probe.windows():
            if (window.class_name == "#32770" and window.visible and window.caption == (title or window.caption) != ""
                    and (main is None or window.process == main.process)
                    and any(child.class_name == "Button" for child in self.children(window))):
                return window
        return None

    def children(self, window):
        return [other for other in self.probe.windows() if other.parent == window.handle]

    def box_text(self, box):
        return "\n".join(child.caption for child in self.children(box) if child.class_name == "Static").strip()

    def answer(self, box):
        """As by its OK button; returns when it has closed, and its owner can be used again."""
        self.probe.ask("post", box.handle, 0x111, 1, 0)  # WM_COMMAND, IDOK
        assert wait_for(lambda: self.probe.window(box.handle) is None), "the box stays"

    def clear(self):
        for process in self.started:
            self.end(process)
        self.started.clear()
        wait_for(lambda: not self.probe.find("Notepad") and not self.main_window(), 10)

    def end(self, process):
        """Ends a program by its own process id, as a crash would; a held key is let go."""
        if process.poll() is None:
            os.kill(process.pid, signal.SIGKILL)
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            pass
