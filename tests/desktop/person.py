"""A person at the program: sees its windows, clicks its buttons and types, with hands from outside."""

import getpass
import re
import shutil
import time

import pytest
from wine_desktop import ROOT, wait_for

# The controls' numbers, by the names that the forms' headers give them.
IDS = {name: int(number) for header in (ROOT / "src" / "program").glob("*_ids.h")
       for name, number in re.findall(r"#define (\w+) (\d+)", header.read_text())}

TRAY_ICON = (1269, 1014)
KEY_NAMES = {" ": "space", ".": "period", "\n": "Return", "-": "minus", "!": "exclam"}
LEFT, RIGHT = 1, 3


class Person:
    """With an empty data folder and a desktop without shortcuts."""

    def __init__(self, stage):
        self.stage, self.hands, self.probe = stage, stage.hands, stage.probe
        home = stage.wine.drive_c / "users" / getpass.getuser()
        self.folder, self.desktop = home / "Documents" / "Tessarine", home / "Desktop"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)

    def leave(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        for link in self.desktop.glob("*.lnk"):
            link.unlink()

    def start_program(self, *words):
        program = self.stage.tessarine(*words)
        assert wait_for(self.stage.main_window), "the main window did not come up"
        if not words:
            assert wait_for(lambda: self.stage.main_window().visible)
            time.sleep(0.5)
        return program

    # --- eyes ---

    def sees(self, name):
        """The visible control of this name, or None."""
        main = self.stage.main_window()
        if main is None:
            return None
        windows = {window.handle: window for window in self.probe.windows()}

        def shown(window):
            return window is None or (window.visible and shown(windows.get(window.parent)))

        return next((window for window in windows.values() if window.control_id == IDS[name] and window.parent
                     and window.process == main.process and shown(window)), None)

    def waits_for(self, name, seconds=15):
        return wait_for(lambda: self.sees(name), seconds) or pytest.fail(f"{name} did not show up")

    def waits_for_end_of(self, name, seconds=15):
        assert wait_for(lambda: self.sees(name) is None, seconds), f"{name} stays"

    def text_of(self, name):
        return self.probe.text(self.waits_for(name).handle).replace("\r\n", "\n")

    def form_of(self, name):
        return self.probe.window(self.waits_for(name).parent)

    # --- hands ---

    def clicks(self, name, button=LEFT):
        left, top, right, bottom = self.waits_for(name).rect
        self.hands.click((left + right) // 2, (top + bottom) // 2, button)

    def clicks_tray_icon(self, button=LEFT):
        self.hands.click(*TRAY_ICON, button)

    def types(self, text):
        for character in text:
            if character.isupper() or character == "!":
                self.hands.press("Shift_L")
            self.hands.tap(KEY_NAMES.get(character, character), 20)
            if character.isupper() or character == "!":
                self.hands.release("Shift_L")
            time.sleep(0.03)

    def presses(self, *names):
        """The keys together, as one combination."""
        for name in names[:-1]:
            self.hands.press(name)
            time.sleep(0.03)
        self.hands.tap(names[-1], 40)
        for name in reversed(names[:-1]):
            self.hands.release(name)
        time.sleep(0.2)

    # --- the program's own ways ---

    def starts_recording(self):
        """By the record button, to the moment when input is recorded."""
        self.clicks("record_page_command3")
        self.waits_for("recording_Command1", 30)
        time.sleep(0.5)

    def saves_job_as(self, name, description=""):
        """The Save As form, by keyboard alone."""
        self.waits_for("Save_As_Form_name")
        time.sleep(0.3)
        self.types(name)
        if description:
            self.presses("Tab")
            self.types(description)
        self.presses("Alt_L", "s")
        self.waits_for_end_of("Save_As_Form_name")
        return self.folder / f"{name}.tsj"
