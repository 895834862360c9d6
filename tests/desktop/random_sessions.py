"""Sessions of a person who does things in Notepad and its dialogs that only a seed knows, each recorded by the real
program, with hands from outside, and played again after Notepad was left alone, moved, minimised or covered.

    tools/random_sessions.sh [SESSIONS [FROM]]

plays as many as one likes; test_random_sessions.py plays three of them.
"""

import random
import time

from stage import NOTEPAD_PLACE
from wine_desktop import wait_for

TEXT = "One two three four five.\nSix seven eight nine ten.\nEleven twelve thirteen.\n" * 8
WORDS = ["Hello", "wide world.", "Typed By Hand", "abc", "Why?", "12 3", "x-y"]
WAYS = ["left alone", "moved", "minimised", "covered"]
KEYS_FOR_SELECTION = ["Right", "Left", "Down", "Up", "End", "Home"]


class Session:
    """What the person of one seed does. Everything is told in `story`, so that a failure can be read."""

    def __init__(self, person, notepad, seed):
        self.person, self.hands, self.probe, self.notepad = person, person.hands, person.probe, notepad
        self.random = random.Random(seed)
        self.story = []

    def play(self):
        self.click()
        for _ in range(self.random.randint(5, 9)):
            act = self.random.choice([self.click, self.type, self.type, self.select_by_keys, self.drag,
                                      self.double_click, self.clicks_on_one_spot, self.copy_and_paste, self.menu,
                                      self.wheel, self.find])
            self.story.append(act.__name__)
            act()
            time.sleep(self.random.choice([0.05, 0.2, 0.7]))
        self.type()
        time.sleep(0.5)

    def place(self):
        """A point well inside the text."""
        left, top, right, bottom = NOTEPAD_PLACE
        return self.random.randint(left + 20, right - 60), self.random.randint(top + 60, bottom - 60)

    def press(self, button=1):
        self.hands.button(button, True)
        time.sleep(0.04)
        self.hands.button(button, False)

    def click(self):
        time.sleep(0.7)
        self.hands.click(*self.place())

    def clicks_on_one_spot(self):
        """Farther apart than a double click, and sometimes not by much."""
        time.sleep(0.7)
        self.hands.move(*self.place())
        for _ in range(2):
            self.press()
            time.sleep(self.random.choice([0.55, 0.6, 0.75, 0.95]))
        self.person.types(self.random.choice(WORDS))

    def double_click(self):
        time.sleep(0.7)
        self.hands.move(*self.place())
        time.sleep(0.05)
        for _ in range(2):
            self.press()
            time.sleep(0.08)
        time.sleep(0.2)
        self.person.types(self.random.choice(WORDS))

    def type(self):
        self.person.types(self.random.choice(WORDS))

    def select_by_keys(self):
        self.hands.press("Shift_L")
        for _ in range(self.random.randint(1, 5)):
            self.hands.tap(self.random.choice(KEYS_FOR_SELECTION), 20)
            time.sleep(0.03)
        self.hands.release("Shift_L")
        time.sleep(0.05)
        self.person.types(self.random.choice(WORDS))

    def drag(self):
        time.sleep(0.7)
        (x, y), (end_x, end_y) = self.place(), self.place()
        self.hands.move(x, y)
        time.sleep(0.05)
        self.hands.button(1, True)
        for step in range(1, 6):
            self.hands.move(x + (end_x - x) * step // 5, y + (end_y - y) * step // 5)
            time.sleep(0.03)
        self.hands.button(1, False)
        time.sleep(0.1)
        if self.random.random() < 0.5:
            self.hands.tap("Delete", 20)
        else:
            self.person.types(self.random.choice(WORDS))

    def copy_and_paste(self):
        self.select_by_keys()
        self.person.presses("Shift_L", "Home")
        self.person.presses("Control_L", "c")
        self.person.presses("End")
        self.person.presses("Control_L", "v")

    def menu(self):
        """Undo, Select All or nothing, from the Edit menu."""
        self.person.presses("Alt_L", "e")
        assert wait_for(lambda: self.probe.find("#32768", visible=True), 5), "the Edit menu did not open"
        time.sleep(0.3)
        choice = self.random.choice(["u", "a", "Escape"])
        self.person.presses(choice)
        assert choice == "Escape" or wait_for(lambda: not self.probe.find("#32768", visible=True), 5), choice
        time.sleep(0.2)
        self.person.presses("Escape" if choice == "Escape" else "Right")

    def wheel(self):
        self.hands.move(*self.place())
        for _ in range(self.random.randint(1, 4)):
            self.hands.wheel(self.random.random() < 0.5)
            time.sleep(0.05)

    def find(self):
        """Notepad's own dialog: found text is typed over."""
        self.person.presses("Control_L", "Home")
        self.person.presses("Control_L", "f")
        assert wait_for(lambda: self.probe.find("#32770", "Find", visible=True), 10), "the dialog did not come up"
        time.sleep(0.5)
        self.person.types(self.random.choice(["five", "ten", "ev"]) + "\n")
        time.sleep(0.2)
        self.person.presses("Escape")
        assert wait_for(lambda: not self.probe.find("#32770", "Find", visible=True), 10)
        time.sleep(0.4)
        self.person.types(self.random.choice(WORDS))


class Sessions:
    """Notepad and the program, for any number of sessions."""

    def __init__(self, stage, person):
        self.stage, self.person, self.probe = stage, person, stage.probe
        self.cover = None
        person.start_program()
        person.clicks("record_page_display_countdown_check")

    def record(self, seed):
        """The text that the person left, and what was done."""
        self.notepad = self.stage.notepad()
        self.set_up()
        self.person.records_by_shortcut()
        session = Session(self.person, self.notepad, seed)
        session.play()
        self.person.presses("Pause")
        text = self.settled_text()
        self.person.saves_job_as(f"s{seed}")
        return text, session.story

    def set_up(self):
        self.probe.place(self.notepad.handle, 1, NOTEPAD_PLACE)
        self.notepad.set_text(TEXT)
        self.probe.ask("send", self.notepad.edit, 0xB1, 0, 0)  # EM_SETSEL
        self.probe.ask("send", self.notepad.edit, 0xB6, 0, -100)  # EM_LINESCROLL
        self.stage.brings_to_front(self.notepad.handle)

    def settled_text(self):
        """Once nothing more arrives."""
        before, now = None, self.notepad.text
        while before != now:
            time.sleep(0.5)
            before, now = now, self.notepad.text
        return now

    def play(self, way):
        """The text after a replay. None for a replay that fails, with what it says in `reason`."""
        self.set_up()
        self.change(way)
        self.person.clicks("job_page_run_job_button")
        assert wait_for(lambda: not self.stage.main_window().enabled, 10), "the run did not begin"
        assert wait_for(lambda: self.stage.main_window().enabled, 120), "the run does not end"
        self.reason = [line for line in self.stage.status_lines() or [] if "Reason" in line or "Cannot" in line]
        text = self.settled_text()
        if self.cover:
            self.stage.end(self.cover)
            self.cover = None
        return text

    def change(self, way):
        if way == "moved":
            self.probe.place(self.notepad.handle, 1, (300, 300, 900, 760))
        elif way == "minimised":
            self.probe.ask("show", self.notepad.handle, 6)
        elif way == "covered":
            self.cover = self.stage.start("regedit.exe")
            cover = wait_for(lambda: self.probe.find("RegEdit_RegEdit", visible=True)).handle
            self.probe.place(cover, 1, (0, 150, 800, 900))
        # The page with the run button is in front of it all.
        self.stage.brings_to_front(self.stage.main_window().handle)

    def finish(self):
        self.stage.end(self.notepad.process)


def differences(stage, person, seed):
    """A line for each replay of this session that left another text than the person did."""
    sessions = Sessions(stage, person)
    typed, story = sessions.record(seed)
    for way in WAYS:
        played = sessions.play(way)
        if played != typed:
            yield (f"session {seed}, Notepad {way}, {', '.join(story)}: {sessions.reason}\n"
                   f"  typed    {typed!r}\n  replayed {played!r}")
    sessions.finish()
