"""The job editor, as a person has it in front of them."""

import time

from person import LEFT
from wine_desktop import wait_for

SELECTED, COLUMN_WIDTH = 2, 0x101D  # LVIS_SELECTED, LVM_GETCOLUMNWIDTH
NUMBER, ACTION, DELAY, DURATION, DETAIL = 0, 2, 3, 5, 7


class Editor:
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
        self.stage.wine.settles()

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
        self.selects_line(self.line_of(row), clicks)

    def selects_line(self, line, clicks=1):
        left, top, _, bottom = self.probe.ask("gridplace", self.grid, line)
        for _ in range(clicks):
            self.stage.hands.click(left + 70, (top + bottom) // 2)
        time.sleep(0.2)
        self.stage.wine.settles()

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

    def onscreen_keys(self):
        """(name, place) of each, in the order of the board."""
        parts = self.probe.ask("accessible", self.person.waits_for("edit_job_keyboard").handle)["parts"]
        return [(part["name"], part["place"]) for part in parts]

    def presses_onscreen_key(self, name, button=LEFT):
        left, top, width, height = next(place for key, place in self.onscreen_keys() if key == name)
        self.stage.hands.click(left + width // 2, top + height // 2, button)
        time.sleep(0.2)
        self.stage.wine.settles()

    def clicks_into_keystrokes(self, x):
        """Into the first line, this far from the left edge."""
        left, top, *_ = self.person.waits_for("edit_job_Text1").rect
        self.stage.hands.click(left + x, top + 12)

    def keystrokes_are(self, expected):
        wait_for(lambda: self.person.text_of("edit_job_Text1") == expected, 5)
        assert self.person.text_of("edit_job_Text1") == expected

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

    def first_column(self):
        """The right edge of the first column, on the screen."""
        return self.probe.ask("gridplace", self.grid, 0)[0] + self.probe.ask("send", self.grid, COLUMN_WIDTH, 0, 0)

    def drags_edge_of_first_column(self, way):
        """Where it was before."""
        edge, top = self.first_column(), self.person.sees("edit_job_grid").rect[1]
        self.stage.hands.move(edge, top + 8)
        time.sleep(0.1)
        self.stage.hands.button(1, True)
        for step in range(1, 5):
            self.stage.hands.move(edge + way * step // 4, top + 8)
            time.sleep(0.05)
        self.stage.hands.button(1, False)
        time.sleep(0.2)
        return edge

    def closes(self):
        self.person.clicks("edit_job_exit_button")

    def is_gone(self):
        self.person.waits_for_end_of("edit_job_grid")
        assert wait_for(lambda: self.stage.main_window().enabled), "the main window is the user's again"
