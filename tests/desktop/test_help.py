"""F1 and the links to the help: which page they open, and what is said without the file.

What is opened is read from the viewer's own command line. Wine's hh.exe shows contents and index; the pages themselves
need a browser, which the tests do without.
"""

import shutil
import time
from pathlib import Path

import pytest
from editor import Editor
from wine_desktop import OUT, wait_for

HELP = "Tessarine Help.chm"
ASIDE = (1000, 830, 1270, 990)
ASKED = [
    ("record_page_command3", "Recording_a_new_job.htm"),
    ("schedule_page_Option11", "schedule.htm"),
    ("options_page_Command7", "options.htm"),
    ("about_page_Command4", "about.htm"),
]


class Viewer:
    """hh.exe, as the processes of this desktop tell of it."""

    def __init__(self, wine):
        self.mark = f"WINEPREFIX={wine.prefix}".encode()

    def processes(self):
        """The page of each viewer that is open, by its process."""
        found = {}
        for process in Path("/proc").glob("[0-9]*"):
            try:
                words = (process / "cmdline").read_bytes().split(b"\0")
                own = self.mark in (process / "environ").read_bytes().split(b"\0")
                if own and words[0].lower().endswith(b"\\hh.exe"):
                    found[int(process.name)] = words[1].decode()
            except OSError:
                continue
        return found

    def shows(self, path):
        """One viewer, with this page."""
        wait_for(lambda: list(self.processes().values()) == [path], 20)
        assert list(self.processes().values()) == [path]

    def end(self, person):
        for window in person.probe.windows():
            if window.class_name == "HH Parent":
                person.probe.ask("post", window.handle, 0x10, 0, 0)  # WM_CLOSE
        assert wait_for(lambda: not self.processes())


@pytest.fixture
def viewer(stage, person):
    """With the program in a folder of its own, and the help beside it."""
    folder = stage.wine.drive_c / "Tessarine, and its help"
    folder.mkdir()
    for name in ("tessarine.exe", "sounds.bin", HELP):
        shutil.copy(OUT / "windows" / name, folder)
    program, stage.program = stage.program, stage.wine.windows_path(folder / "tessarine.exe")
    viewer = Viewer(stage.wine)
    viewer.folder = folder
    viewer.path = lambda topic: f"{stage.wine.windows_path(folder)}\\{HELP}::/{topic}"
    yield viewer
    viewer.end(person)
    stage.clear()
    stage.program = program
    shutil.rmtree(folder)


def follows_link(person, name):
    left, top, _, bottom = person.waits_for(name).rect
    person.clicks_at(left + 6, (top + bottom) // 2)


def test_f1_and_the_links_open_the_page_of_what_is_seen(stage, person, viewer):
    notepad = stage.notepad()
    stage.typing_job(notepad, "abc").write(person.folder / "Letter.tsj")
    person.start_program()
    main = stage.main_window()

    def comes_back(form=main):
        """From the viewer, which is put aside."""
        assert wait_for(lambda: person.probe.find("HH Parent", visible=True))
        person.probe.place(person.probe.find("HH Parent", visible=True).handle, 1, ASIDE)
        person.stage.wine.settles()
        person.clicks_at(form.rect[0] + 200, form.rect[1] + 12)

    person.clicks("job_page_lista_jobs")
    person.presses("F1")
    person.presses("F1")  # a key that is held down
    viewer.shows(viewer.path("my_jobs.htm"))
    comes_back()
    person.clicks("job_page_other_option1")
    person.presses("F1")
    viewer.shows(viewer.path("repeat.htm"))
    comes_back()
    person.clicks("job_page_other_option0")
    follows_link(person, "job_page_panel_help")
    viewer.shows(viewer.path("speed.htm"))
    for control, topic in ASKED:
        comes_back()
        person.opens_page(control)
        if control.startswith("schedule"):
            follows_link(person, "help_link")
        else:
            person.presses("F1")
        viewer.shows(viewer.path(topic))
    comes_back()

    person.opens_page("job_page_lista_jobs")
    Editor(person).opens()
    person.presses("F1")
    viewer.shows(viewer.path("job_editor.htm"))
    comes_back(Editor(person).form)
    Editor(person).selects(1)
    person.presses("Return")
    assert wait_for(lambda: person.focus() == "edit_job_Text1")
    before = viewer.processes()
    person.presses("F1")
    assert wait_for(lambda: person.text_of("edit_job_Text1") == "abc{F1 DOWN}{F1 UP}"), "here it is a key of the job"
    time.sleep(1)
    assert viewer.processes() == before


def test_without_the_file_a_box_says_so(stage, person, viewer):
    (viewer.folder / HELP).unlink()
    person.start_program()
    person.presses("F1")
    box = person.box("Help")
    missing = f"there is no file '{stage.wine.windows_path(viewer.folder)}\\{HELP}'."
    assert stage.box_text(box) == f"The help is not installed: {missing}"
    person.presses("F1")
    time.sleep(0.5)
    assert len([window for window in person.probe.windows() if window.caption == "Help" and window.visible]) == 1
    person.presses("Return")
    assert wait_for(lambda: stage.main_window().enabled)
    assert viewer.processes() == {}
    follows_link(person, "help_link")
    stage.answer(person.box("Help"))
    assert wait_for(lambda: stage.main_window().enabled)
