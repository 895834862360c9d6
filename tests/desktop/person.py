"""A person at the program: sees its windows, clicks its buttons and types, with hands from outside."""

import getpass
import re
import shutil
import subprocess
import time

import pytest
from stage import MIDDLE
from wine_desktop import ROOT, wait_for

# The controls' numbers, by the names that the forms' headers give them.
IDS = {name: int(number) for header in (ROOT / "src" / "program").rglob("*_ids.h")
       for name, number in re.findall(r"#define (\w+?(?<!_FIRST)(?<!_LAST)(?<!_dialog)) (\d+)", header.read_text())}
IDS["help_link"] = 9  # IDHELP, on every form

TRAY_ICON = (1269, 1014)
KEY_NAMES = {" ": "space", ".": "period", "\n": "Return", "-": "minus", "!": "exclam",
             "*": "asterisk", "?": "question"}
SHIFTED = "!*?"
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

    def speaks(self, language):
        """Chooses the program's language, for its next start."""
        self.puts_into_registry("Software\\Tessarine", "Language", language)

    def registry(self, key, value):
        """The text of a value below HKEY_CURRENT_USER, or None."""
        query = self.stage.wine.start("reg", "query", f"HKCU\\{key}", "/v", value, stdout=subprocess.PIPE)
        found = re.search(r"REG_SZ\s+(.*)", query.communicate(timeout=30)[0].decode("latin-1"))
        return found and found[1].strip()

    def puts_into_registry(self, key, value, text=None):
        """The value "" is that of the key itself. None for the text takes it away."""
        name = ["/v", value] if value else ["/ve"]
        words = ["delete", f"HKCU\\{key}", *name, "/f"] if text is None else [
            "add", f"HKCU\\{key}", *name, "/d", text, "/f"]
        self.stage.wine.run("reg", *words)

    def forgets_key(self, key):
        self.stage.wine.run("reg", "delete", f"HKCU\\{key}", "/f")

    def puts_job(self, name, **options):
        job = self.stage.job(**options)
        job.move(100, 100)
        return job.write(self.folder / f"{name}.tsj")

    def start_program(self, *words):
        program = self.stage.tessarine(*words)
        assert wait_for(self.stage.main_window), "the main window did not come up"
        if not words:
            assert wait_for(lambda: self.stage.main_window().visible)
            time.sleep(0.5)
            self.stage.wine.settles()
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

    def visible_controls(self, form):
        """The form's controls at every depth, as far as they are seen."""
        windows = self.probe.windows()
        found, parents = [], {form.handle}
        for window in windows:
            if window.visible and window.parent in parents:
                found.append(window)
                parents.add(window.handle)
        return found

    def nameless(self, form, *silent):
        """The form's controls of which a screen reader is not told; those of the classes `silent` need not be."""
        told = ((control, self.probe.ask("accessible", control.handle)) for control in self.visible_controls(form)
                if control.class_name not in ("Static", "msctls_updown32", *silent))
        return [(control.class_name, control.control_id, answer) for control, answer in told
                if not (answer and answer["name"] and answer["role"] > 0)]

    def focus(self):
        """The name of the control that has the keyboard; a part of one counts as the whole."""
        windows = {window.handle: window for window in self.probe.windows()}
        window = windows.get(self.probe.ask("focus"))
        names = {number: name for name, number in IDS.items()}
        while window and window.control_id not in names:
            window = windows.get(window.parent)
        return window and names[window.control_id]

    def box(self, title=None):
        box = wait_for(lambda: self.stage.box(title), 10) or pytest.fail(f"no box {title or ''}")
        self.stage.wine.settles()  # it has the keyboard, if it gets it
        return box

    def text_of(self, name):
        return self.probe.text(self.waits_for(name).handle).replace("\r\n", "\n")

    def form_of(self, name):
        return self.probe.window(self.waits_for(name).parent)

    # --- hands; a person looks what has come of it before the next move ---

    def clicks(self, name, button=LEFT):
        self.clicks_window(self.waits_for(name), button)

    def clicks_window(self, window, button=LEFT):
        left, top, right, bottom = window.rect
        self.clicks_at((left + right) // 2, (top + bottom) // 2, button)

    def clicks_at(self, x, y, button=LEFT):
        self.hands.click(x, y, button)
        self.stage.wine.settles()

    def clicks_tray_icon(self, button=LEFT):
        self.hands.click(*TRAY_ICON, button)

    def clicks_menu_entry(self, from_bottom):
        """An entry of the menu that is open; 0 is the last."""
        left, _, right, bottom = wait_for(lambda: self.probe.find("#32768", visible=True)).rect
        time.sleep(0.3)
        self.clicks_at((left + right) // 2, bottom - 10 - 16 * from_bottom)

    def types(self, text):
        for character in text:
            shifted = character.isupper() or character in SHIFTED
            if shifted:
                self.hands.press("Shift_L")
            self.hands.tap(KEY_NAMES.get(character, character), 20)
            if shifted:
                self.hands.release("Shift_L")
            time.sleep(0.03)
        self.stage.wine.settles()

    def presses(self, *names):
        """The keys together, as one combination."""
        for name in names[:-1]:
            self.hands.press(name)
            time.sleep(0.03)
        self.hands.tap(names[-1], 40)
        for name in reversed(names[:-1]):
            self.hands.release(name)
        time.sleep(0.2)
        self.stage.wine.settles()

    # --- the program's own ways ---

    def opens_page(self, control):
        """By Ctrl+Tab, up to the page with this control."""
        for _ in range(6):
            if self.sees(control):
                return
            self.presses("Control_L", "Tab")
        pytest.fail(f"no page shows {control}")

    def starts_recording(self):
        """By the record button, to the moment when input is recorded."""
        self.clicks("record_page_command3")
        self.waits_for("recording_Command1", 30)
        time.sleep(0.5)

    def records_by_shortcut(self):
        """The same, from any page."""
        self.presses("Control_L", "Shift_L", "n")
        self.waits_for("recording_Command1", 30)
        time.sleep(0.5)

    def clicks_into_notepad(self):
        self.clicks_at(*MIDDLE)

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
