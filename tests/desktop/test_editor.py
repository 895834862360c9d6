"""The job editor for real: a recording is opened, mended row by row, saved, run, and read in Notepad."""

import re
import time

import pytest
from job_reader import read_job
from stage import MIDDLE
from test_main_window import LANGUAGES, check_letters, walk
from wine_desktop import OUT, wait_for

SELECTED = 2
NUMBER, ACTION, DELAY, DURATION, DETAIL = 0, 2, 3, 5, 7


class Editor:
    """The editor's window, as a person has it in front of them."""

    def __init__(self, person):
        self.person, self.stage, self.probe = person, person.stage, person.probe

    def opens(self, job_row=0):
        """By a double click on a row of the list of jobs."""
        left, top, *_ = self.person.waits_for("job_page_lista_jobs").rect
        for _ in range(2):
            self.stage.hands.click(left + 60, top + 22 + 44 * job_row)
        self.is_there()

    def is_there(self):
        self.person.waits_for("edit_job_grid")
        time.sleep(0.3)

    @property
    def form(self):
        return self.person.form_of("edit_job_grid")

    @property
    def grid(self):
        return self.person.waits_for("edit_job_grid").handle

    def lines(self):
        """All that the grid shows, line by line."""
        return self.probe.ask("grid", self.grid)

    def rows(self):
        """The actions, with what is typed beside them; moves are left out."""
        cells = [line["cells"] for line in self.lines()]
        return [f"{cell[ACTION]} {cell[DETAIL]}" if cell[ACTION] in ("Keystrokes", "WHEEL") else cell[ACTION]
                for cell in cells if cell[NUMBER]]

    def line_of(self, row):
        """The line of a row of rows()."""
        return [index for index, line in enumerate(self.lines()) if line["cells"][NUMBER]][row]

    def selects(self, row, clicks=1):
        left, top, _, bottom = self.probe.ask("gridplace", self.grid, self.line_of(row))
        for _ in range(clicks):
            self.stage.hands.click(left + 70, (top + bottom) // 2)
        time.sleep(0.2)

    def selected(self):
        return [index for index, line in enumerate(self.lines()) if line["state"] & SELECTED]

    def cell(self, row, column):
        return self.lines()[self.line_of(row)]["cells"][column]

    def answers(self, key, title=None):
        """The box that is open, by a letter or a key of it; its text."""
        box = self.person.box(title)
        text = self.stage.box_text(box)
        self.person.presses(*(["Alt_L", key] if len(key) == 1 else [key]))
        assert wait_for(lambda: self.stage.box(title) is None), "the box stays"
        return text

    def presses_onscreen_key(self, name):
        keys = self.probe.ask("accessible", self.person.waits_for("edit_job_keyboard").handle)["parts"]
        left, top, width, height = next(key["place"] for key in keys if key["name"] == name)
        self.stage.hands.click(left + width // 2, top + height // 2)
        time.sleep(0.2)

    def records(self, button, text):
        """A piece for the job: a click into Notepad, and what is typed there."""
        person = self.person
        person.clicks(button)
        assert self.answers("Return", "Insert commands") == "Click OK when you are ready to start recording"
        person.waits_for("recording_Command1", 30)
        assert not person.sees("edit_job_grid"), "the editor is out of the way"
        time.sleep(0.5)
        person.clicks_into_notepad()
        person.types(text)
        time.sleep(0.3)
        person.presses("Pause")
        self.is_there()

    def closes(self):
        self.person.clicks("edit_job_exit_button")

    def is_gone(self):
        self.person.waits_for_end_of("edit_job_grid")
        assert wait_for(lambda: self.stage.main_window().enabled), "the main window is the user's again"


@pytest.fixture
def editor(person):
    return Editor(person)


def record_letter(person):
    """Three words, each behind a click, and a turn of the wheel."""
    person.records_by_shortcut()
    for word in ["one", "two", "three"]:
        person.clicks_into_notepad()
        time.sleep(0.6)  # no double click
        person.types(word)
    person.hands.wheel(False)
    time.sleep(0.3)
    person.presses("Pause")
    return person.saves_job_as("Letter")


def test_a_recording_is_mended_row_by_row(stage, person, editor):
    """Delete, delay, duration, both ways to retype, a wheel notch, two pieces recorded in; half of it back and forth."""
    notepad = stage.notepad()
    person.start_program()
    path = record_letter(person)
    assert notepad.holds("onetwothree")
    editor.opens()
    assert editor.form.caption == "Job Editor - Letter.tsj"
    words = ["Keystrokes one", "Keystrokes two", "Keystrokes three"]
    assert editor.rows() == ["LEFT CLICK", words[0], "LEFT CLICK", words[1], "LEFT CLICK", words[2],
                             "WHEEL {WHEEL DOWN}"]
    assert person.focus() == "edit_job_grid" and not person.sees("edit_job_save_button").enabled

    editor.selects(2)
    for _ in range(editor.line_of(3) - editor.line_of(2)):
        person.presses("Shift_L", "Down")
    person.presses("Delete")
    assert editor.answers("y", "Delete event(s)") == "Are you sure you want to delete this event(s)??"
    assert editor.rows() == ["LEFT CLICK", words[0], "LEFT CLICK", words[2], "WHEEL {WHEEL DOWN}"]
    assert person.sees("edit_job_save_button").enabled

    editor.selects(3)
    person.clicks("edit_job_delay_mk")
    person.presses("Control_L", "a")
    person.types("700\n")
    assert person.focus() == "edit_job_duration_mk"
    person.types("900\n")
    assert person.focus() == "edit_job_grid"
    assert (editor.cell(3, DELAY), editor.cell(3, DURATION)) == ("700ms", "900ms")

    editor.presses_onscreen_key("x")
    assert person.text_of("edit_job_Text1") == "threex"
    person.presses("Pause")  # leads out of the box
    assert person.focus() != "edit_job_Text1"
    editor.selects(1, clicks=2)
    assert person.focus() == "edit_job_Text1"
    for _ in "one":
        person.presses("BackSpace")
    person.types("uno")
    assert wait_for(lambda: editor.cell(1, DETAIL) == "uno", 5)
    person.presses("Control_L", "s")  # input for the row, and no command
    assert wait_for(lambda: "CTRL" in editor.cell(1, DETAIL), 5) and person.sees("edit_job_save_button").enabled
    for _ in range(3):
        person.presses("BackSpace")
    assert wait_for(lambda: editor.cell(1, DETAIL) == "uno", 5)
    person.presses("Pause")
    editor.selects(4)
    person.clicks("edit_job_Command5")
    assert editor.cell(4, DETAIL) == "{WHEEL DOWN}{WHEEL UP}"

    editor.selects(2)
    editor.records("edit_job_start_recording_above", "in")
    editor.selects(6)
    editor.records("edit_job_start_recording_below", "end")
    mended = ["LEFT CLICK", "Keystrokes uno", "LEFT CLICK", "Keystrokes in", "LEFT CLICK", "Keystrokes threex",
              "WHEEL {WHEEL DOWN}{WHEEL UP}", "LEFT CLICK", "Keystrokes end"]
    assert editor.rows() == mended
    for _ in range(3):
        person.presses("Control_L", "z")
    assert editor.rows() == ["LEFT CLICK", "Keystrokes uno", "LEFT CLICK", "Keystrokes threex", "WHEEL {WHEEL DOWN}"]
    for _ in range(3):
        person.presses("Control_L", "y")
    assert editor.rows() == mended and not person.sees("edit_job_redo").enabled
    stage.wine.screenshot(OUT / "test" / "forms" / "editor_mended.png")
    person.presses("Control_L", "s")
    assert wait_for(lambda: not person.sees("edit_job_save_button").enabled)

    notepad.set_text("")
    editor.selects(7)
    person.presses("F5")
    assert notepad.holds("end"), "from here to the end"
    person.clicks("executing_closebutton")
    editor.is_there()
    editor.closes()
    editor.is_gone()
    notepad.set_text("")
    assert {"uno", "threex"} <= set(read_job(path).strings)
    person.clicks("job_page_run_job_button")
    assert wait_for(lambda: notepad.text == "unointhreexend", 30), notepad.text
