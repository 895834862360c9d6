"""Editing the keys of a row, in the dialog of keystroke_gallery.exe, under a person's hands."""

import json
import time

import pytest
from wine_desktop import OUT, wait_for

EXECUTABLE = OUT / "build" / "windows" / "tests" / "desktop" / "keystroke_gallery.exe"
ROWS, OPTION1, OPTION2, OPTION3, TEXT, PLAIN, DESCRIPTION, KEYBOARD, WHEEL_UP, WHEEL_DOWN, STATE = range(101, 112)
LEFT, RIGHT = 1, 3
# Places on the board, in quarters of a key.
BOARD = (90, 26)
KEY_A, KEY_SHIFT, KEY_F5 = (9, 16), (2, 20), (28, 2)
FIRST = "hello {L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}"


class Gallery:
    def __init__(self, stage):
        self.probe, self.hands = stage.probe, stage.hands
        assert wait_for(lambda: not self.probe.find(caption="Keystroke gallery")), "another one is still there"
        stage.start(EXECUTABLE)
        self.top = wait_for(lambda: stage.probe.find(caption="Keystroke gallery", visible=True))
        assert self.top, "the gallery did not come up"
        self.controls = {window.control_id: window for window in self.probe.windows()
                         if window.parent == self.top.handle}
        assert wait_for(lambda: self.probe.text(self.handle(STATE)))

    def handle(self, control):
        return self.controls[control].handle

    def state(self):
        return json.loads(self.probe.text(self.handle(STATE)))

    def becomes(self, **expected):
        def fits():
            state = self.state()
            return all(state[key] == value for key, value in expected.items())
        return wait_for(fits, 5) or pytest.fail(f"{self.state()}")

    def has_focus(self, control):
        return wait_for(lambda: self.probe.ask("focus") == self.handle(control), 5)

    def box(self):
        return wait_for(lambda: self.probe.find(class_name="#32770", caption="Edit Keystrokes", visible=True), 5)

    def click(self, control, x=8, y=None):
        left, top, _, bottom = self.controls[control].rect
        self.hands.click(left + x, (top + bottom) // 2 if y is None else top + y)

    def click_row(self, index):
        self.click(ROWS, y=8 + 13 * index)

    def click_text(self, x):
        self.click(TEXT, x, 12)

    def key(self, place, button=LEFT):
        left, top, right, bottom = self.controls[KEYBOARD].rect
        x, y = (left + place[0] * (right - left) // BOARD[0], top + place[1] * (bottom - top) // BOARD[1])
        self.hands.click(x, y, button)

    def tap(self, *names):
        for name in names:
            self.hands.tap(name)

    def with_key(self, held, name):
        self.hands.press(held)
        self.hands.tap(name)
        self.hands.release(held)


@pytest.fixture
def gallery(stage):
    return Gallery(stage)


def test_every_key_becomes_part_of_the_row(gallery):
    gallery.click_text(500)
    gallery.becomes(text=FIRST + "|", hooked=True)
    gallery.tap("Tab", "F10", "Escape", "Menu")
    gallery.with_key("Alt_L", "F4")
    gallery.with_key("Alt_L", "p")
    gallery.with_key("Control_L", "c")
    typed = ("{TAB DOWN}{TAB UP}{F10 DOWN}{F10 UP}{ESC DOWN}{ESC UP}{MENUKEY DOWN}{MENUKEY UP}"
             "{ALT DOWN}{F4 DOWN}{F4 UP}{ALT UP}{ALT DOWN}p{ALT UP}{L_CTRL DOWN}c{L_CTRL UP}")
    gallery.becomes(text=FIRST + typed + "|", row=FIRST + typed)
    assert gallery.has_focus(TEXT), "and none of them did what it does elsewhere"
    gallery.tap("Pause")
    assert wait_for(lambda: gallery.probe.ask("focus") != gallery.handle(TEXT), 5), "but one leads out"
    gallery.becomes(hooked=False)


def test_caret_goes_by_tokens(gallery):
    gallery.click_text(2)
    gallery.becomes(text="|" + FIRST)
    gallery.tap("Left", "Right", "Right", "Delete")
    gallery.becomes(text="he|lo {L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}")
    gallery.tap("BackSpace", "x")
    gallery.becomes(text="hx|lo {L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}")
    gallery.click_text(60)
    gallery.becomes(text="hxlo |{L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}")
    gallery.click_text(120)
    gallery.becomes(text="hxlo {L_SHIFT DOWN}|w{L_SHIFT UP}orld{ENTER}")


def test_the_board_under_the_mouse(gallery):
    gallery.key(KEY_F5)
    gallery.becomes(text=FIRST + "{F5 DOWN}{F5 UP}|", hot=116)
    assert gallery.has_focus(TEXT)
    gallery.key(KEY_SHIFT, RIGHT)
    time.sleep(0.3)
    gallery.tap("Down", "Down", "Return")  # to hold it, and none of the three is for the row
    gallery.becomes(text=FIRST + "{F5 DOWN}{F5 UP}{L_SHIFT DOWN}|")
    gallery.key(KEY_A)
    gallery.key(KEY_SHIFT)
    gallery.becomes(text=FIRST + "{F5 DOWN}{F5 UP}{L_SHIFT DOWN}a{L_SHIFT UP}|")
    gallery.key(KEY_A, RIGHT)
    time.sleep(0.3)
    gallery.tap("Escape")
    time.sleep(0.3)
    gallery.tap("b")
    gallery.becomes(text=FIRST + "{F5 DOWN}{F5 UP}{L_SHIFT DOWN}a{L_SHIFT UP}b|")


def test_wheel_rows(gallery):
    gallery.click_row(1)
    gallery.becomes(text="{WHEEL UP}{WHEEL UP}|")
    gallery.click(WHEEL_DOWN)
    gallery.becomes(text="{WHEEL UP}{WHEEL UP}{WHEEL DOWN}|")
    gallery.click_text(2)
    gallery.tap("a", "F5")
    gallery.key(KEY_A)
    gallery.click(WHEEL_UP)
    gallery.becomes(text="{WHEEL UP}|{WHEEL UP}{WHEEL UP}{WHEEL DOWN}")


def test_plain_text_is_typed(gallery):
    gallery.click_text(500)
    gallery.tap("F5")
    gallery.with_key("Alt_L", "d")  # the letter of another view
    gallery.tap("q")
    gallery.click(OPTION2)
    plain = gallery.handle(PLAIN)
    assert wait_for(lambda: gallery.probe.text(plain) == "hello World\r\n{F5 DOWN}{F5 UP}q", 5), \
        gallery.probe.text(plain)
    gallery.becomes(playing=False, hooked=False, view=2)
    assert gallery.probe.ask("keys") == []
    assert gallery.probe.window(gallery.top.handle), "and Alt did nothing to the form"
    gallery.tap("x")
    box = gallery.box()
    assert box, "the user's own key is told where to go"
    gallery.tap("Return")
    gallery.click_row(2)
    assert wait_for(lambda: gallery.probe.text(plain) == "{F5}some text \r\n" * 25, 20), gallery.probe.text(plain)
    assert gallery.has_focus(ROWS)


def test_screen_readers_are_told(gallery):
    gallery.click_text(500)
    gallery.becomes(hooked=True)
    text = gallery.probe.ask("accessible", gallery.handle(TEXT))
    assert (text["name"], text["value"]) == ("Keystrokes", FIRST)
    assert "Pause/Break" in text["description"]
    board = gallery.probe.ask("accessible", gallery.handle(KEYBOARD))
    assert len(board["parts"]) == 106
    named = {part["name"]: part for part in board["parts"]}
    assert {"a", "F5", "Shift", "{LEFT_ARROW}", "Ent"} <= named.keys()
    left, top, width, height = named["a"]["place"]
    gallery.hands.click(left + width // 2, top + height // 2)
    gallery.becomes(text=FIRST + "a|")
