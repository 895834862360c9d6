"""The program's own controls, in the dialog of gallery.exe, under a person's hands."""

import json
import time

import pytest
from wine_desktop import OUT, wait_for

EXECUTABLE = OUT / "build" / "windows" / "tests" / "desktop" / "gallery.exe"
LIST, COUNTDOWN, OFFSET, START, ENABLED, ASKS, FEWER, MORE, EVENTS, STATE = range(101, 111)
LEFT, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 3, 4, 5


class Gallery:
    def __init__(self, stage):
        self.probe, self.hands, self.settles = stage.probe, stage.hands, stage.wine.settles
        stage.start(EXECUTABLE)
        self.top = wait_for(lambda: stage.probe.find(caption="Gallery", visible=True))
        assert self.top, "the gallery did not come up"
        self.controls = {window.control_id: window for window in self.probe.windows()
                         if window.parent == self.top.handle}
        self.lies = self.controls[LIST].rect
        assert wait_for(lambda: self.probe.text(self.handle(STATE)))
        self.settles()
        self.forget()

    def handle(self, control):
        return self.controls[control].handle

    # --- what is seen ---

    def events(self):
        return self.probe.list_lines(self.handle(EVENTS))

    def forget(self):
        self.probe.ask("send", self.handle(EVENTS), 0x184, 0, 0)  # LB_RESETCONTENT

    def hears(self, *lines):
        """These events and no other, and forgets them."""
        wait_for(lambda: self.events() == list(lines), 5)
        self.settles()
        heard = self.events()
        self.forget()
        return heard == list(lines) or pytest.fail(f"heard {heard}")

    def state(self):
        return json.loads(self.probe.text(self.handle(STATE)))

    def becomes(self, **expected):
        def fits():
            state = self.state()
            return all(state[key] == value for key, value in expected.items())
        return wait_for(fits, 5) or pytest.fail(f"{self.state()}")

    def has_focus(self, handle):
        return wait_for(lambda: self.probe.ask("focus") == handle, 5)

    # --- where things are ---

    def row(self, index, right=60):
        state = self.state()
        height = state["row"][3]
        return self.lies[0] + right, self.lies[1] + int((index - state["scroll"] + 0.5) * height)

    def button(self, name):
        left, top, right, bottom = self.state()[name]
        return self.probe.ask("screen", self.handle(LIST), (left + right) // 2, (top + bottom) // 2)

    def arrow(self, control, upper):
        left, top, right, bottom = self.controls[control].rect
        return right - 8, (3 * top + bottom) // 4 if upper else (top + 3 * bottom) // 4

    # --- what hands do ---

    def click_row(self, index, button=LEFT):
        self.hands.click(*self.row(index), button)
        self.settles()

    def turn_wheel(self, button, notches=1):
        for _ in range(notches):
            self.hands.click(self.lies[0] + 60, self.lies[1] + 60, button)
        self.settles()

    def click_on(self, control):
        left, top, _, bottom = self.controls[control].rect
        self.hands.click(left + 8, (top + bottom) // 2)
        self.settles()

    def tap(self, *names):
        for name in names:
            self.hands.tap(name)
        self.settles()

    def with_key(self, held, name):
        self.hands.press(held)
        self.hands.tap(name)
        self.hands.release(held)
        self.settles()

    def press_mouse(self, x, y):
        self.hands.move(x, y)
        time.sleep(0.1)
        self.hands.button(LEFT, True)

    def release_mouse(self):
        self.hands.button(LEFT, False)
        self.settles()


@pytest.fixture
def gallery(stage):
    return Gallery(stage)


def test_keys_lead_through_the_list(gallery):
    gallery.click_row(0)
    assert gallery.hears("press left 0", "click 0")
    gallery.tap("a", "b", "s", "e")
    assert gallery.hears("click 1", "click 4")
    assert wait_for(lambda: gallery.probe.text(gallery.handle(LIST)).splitlines()[0] == "Absence")
    gallery.tap("End", "Down", "Up", "Prior", "Home")
    assert gallery.hears("click 11", "click 10", "click 5", "click 0")
    assert gallery.becomes(selected=0, scroll=0)
    gallery.tap("Tab")
    assert gallery.has_focus(gallery.handle(COUNTDOWN)), "arrows and letters are the list's, Tab is the dialog's"


def test_wheel_and_scroll_bar(gallery):
    assert gallery.state()["bar"]
    gallery.turn_wheel(WHEEL_DOWN, notches=3)
    assert gallery.becomes(scroll=3)
    gallery.turn_wheel(WHEEL_DOWN, notches=9)
    assert gallery.becomes(scroll=7)
    gallery.turn_wheel(WHEEL_UP)
    assert gallery.becomes(scroll=6)

    right, top = gallery.lies[2] - 9, gallery.lies[1]
    gallery.hands.click(right, top + 30)  # above the thumb: a page
    assert gallery.becomes(scroll=1)
    gallery.press_mouse(right, top + 70)
    gallery.hands.move(right, top + 150)
    assert wait_for(lambda: gallery.state()["scroll"] > 3), "rows follow while the thumb is dragged"
    gallery.hands.move(right, top + 260)
    assert gallery.becomes(scroll=7)
    gallery.release_mouse()
    assert gallery.becomes(scroll=7)
    for _ in range(7):
        gallery.click_on(FEWER)
    assert gallery.becomes(count=5, scroll=0, bar=False)
    gallery.click_on(MORE)
    assert gallery.becomes(count=6, bar=True)
    assert gallery.hears()


def test_small_buttons(gallery):
    gallery.click_row(1)
    assert gallery.hears("press left 1", "click 1")
    gallery.becomes(selected=1)
    gallery.hands.click(*gallery.button("gumb"))
    gallery.hands.click(*gallery.button("gumb1"))
    assert gallery.hears("press left 1", "gumb 1", "press left 1", "gumb1 1")
    assert gallery.state()["selected"] == 1
    gallery.press_mouse(*gallery.button("gumb"))
    gallery.hands.move(*gallery.row(4))
    gallery.release_mouse()
    assert gallery.hears("press left 1")

    # The first of two clicks brings up a button under the pointer, which the second one is not meant for.
    x, y = gallery.button("gumb")
    y += gallery.state()["row"][3]
    gallery.hands.move(x, y)
    for _ in range(2):
        gallery.hands.button(LEFT, True)
        gallery.hands.button(LEFT, False)
    assert gallery.hears("press left 2", "click 2", "double 2")


def test_a_box_that_opens_while_the_button_is_held(gallery):
    gallery.click_row(0)
    gallery.click_on(ASKS)
    gallery.forget()
    gallery.press_mouse(*gallery.row(3))
    box = wait_for(lambda: gallery.probe.find("#32770", "Question", visible=True))
    gallery.settles()
    gallery.hands.move(box.rect[0] + 5, box.rect[3] - 5)
    gallery.release_mouse()
    gallery.tap("n")
    assert wait_for(lambda: not gallery.probe.find("#32770", "Question"))
    assert gallery.hears("press left 3"), "the press is no click, neither now nor with the next release"
    gallery.hands.move(*gallery.row(1))
    gallery.hands.move(*gallery.row(3))
    assert gallery.hears()
    assert gallery.state()["selected"] == 0

    gallery.tap("Down")
    assert wait_for(lambda: gallery.probe.find("#32770", "Question", visible=True))
    gallery.tap("y")
    assert gallery.hears("click 1")
    gallery.click_on(ASKS)
    gallery.click_row(2)
    assert gallery.hears("press left 2", "click 2")


def test_dragging_a_row(gallery):
    x, y = gallery.row(2)
    gallery.press_mouse(x, y)
    gallery.hands.move(x + 2, y + 2)
    time.sleep(0.1)
    gallery.release_mouse()
    assert gallery.hears("press left 2", "click 2"), "a hand that trembles"
    x, y = gallery.row(1)
    gallery.press_mouse(x, y)
    gallery.hands.move(x + 12, y)
    assert gallery.hears("press left 1", "drag 1")
    gallery.hands.move(x + 40, y)
    gallery.hands.move(x, y)
    gallery.release_mouse()
    assert gallery.hears()


def test_menu_button_and_menu_key(gallery):
    gallery.tap("Menu")
    assert gallery.hears(), "nothing is selected"
    gallery.click_row(3, RIGHT)
    assert gallery.hears("press right 3")
    gallery.click_row(0)
    gallery.turn_wheel(WHEEL_DOWN, notches=4)
    assert gallery.becomes(selected=0, scroll=4)
    gallery.forget()
    gallery.tap("Menu")
    gallery.with_key("Shift_L", "F10")
    assert gallery.hears("press right 0", "press right 0")
    assert gallery.becomes(selected=0, scroll=0), "the row is brought into sight"


def test_disabled_controls(gallery):
    gallery.click_on(ENABLED)
    for control in (LIST, COUNTDOWN, START):
        gallery.click_on(control)
        assert not gallery.probe.window(gallery.handle(control)).enabled
    for control in (COUNTDOWN, START):
        gallery.hands.click(*gallery.arrow(control, upper=True))
    assert gallery.hears()
    gallery.click_on(ENABLED)
    gallery.hands.click(*gallery.arrow(START, upper=True))
    assert gallery.hears("start 13:00:00")


def test_number_picker(gallery):
    gallery.with_key("Alt_L", "c")
    assert gallery.has_focus(gallery.handle(COUNTDOWN)), "the label's letter leads into the box"
    gallery.tap("4", "x", "5")
    assert gallery.hears("countdown 4", "countdown 10")
    assert gallery.probe.text(gallery.handle(COUNTDOWN)) == "10"
    gallery.tap("Up", "Down")
    assert gallery.hears("countdown 9")
    gallery.tap("BackSpace")
    assert gallery.hears("countdown 1")
    assert gallery.probe.text(gallery.handle(COUNTDOWN)) == "1", "an empty box would be out of range"
    gallery.press_mouse(*gallery.arrow(COUNTDOWN, upper=True))
    assert gallery.becomes(countdown=10), "an arrow that is held goes on"
    gallery.release_mouse()
    gallery.forget()
    gallery.tap("Tab", "minus", "9", "minus", "9")
    assert gallery.has_focus(gallery.handle(OFFSET))
    assert gallery.hears("offset 0", "offset -9", "offset -50")
    gallery.hands.click(*gallery.arrow(OFFSET, upper=True))
    for _ in range(2):
        gallery.hands.click(*gallery.arrow(OFFSET, upper=False))
    assert gallery.hears("offset -49", "offset -50"), "and no further"


def test_time_picker(gallery):
    hours, minutes, seconds = [window.handle for window in gallery.probe.windows() if window.class_name == "Edit"
                               and window.parent == gallery.handle(START)]
    gallery.with_key("Alt_L", "s")
    assert gallery.has_focus(hours)
    gallery.tap(*"081530")
    assert gallery.becomes(start="08:15:30")
    assert gallery.has_focus(hours), "from the seconds back to the hours"
    gallery.tap("7")
    gallery.with_key("Shift_L", "semicolon")
    assert gallery.has_focus(minutes)
    assert gallery.probe.text(hours) == "07"
    gallery.tap("5", "BackSpace")
    assert gallery.has_focus(hours), "back from the box that was emptied"
    gallery.tap("Right", "Right")
    assert gallery.has_focus(seconds)
    gallery.hands.click(*gallery.arrow(START, upper=False))
    gallery.tap("Down", "Down", "Up")
    assert gallery.becomes(start="07:00:28")
    assert wait_for(lambda: gallery.probe.text(gallery.handle(START)) == "07:00:28")
    gallery.with_key("Shift_L", "Tab")
    assert gallery.has_focus(gallery.handle(OFFSET)), "one stop, from whichever box"
    gallery.tap("Tab", "Tab")
    assert gallery.has_focus(gallery.handle(ENABLED))
