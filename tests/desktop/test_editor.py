"""The job editor for real: a recording is opened, mended row by row, saved, run, and read in Notepad."""

import time

import pytest
from editor import DELAY, DETAIL, DURATION
from job_reader import read_job
from stage import MIDDLE
from test_main_window import LANGUAGES, check_letters, walk
from wine_desktop import OUT, wait_for


def record_letter(person, notepad):
    """Three words, each behind a click, and a turn of the wheel."""
    person.records_by_shortcut()
    assert wait_for(lambda: person.probe.ask("foreground") == notepad.handle)
    for word in ["one", "two", "three"]:
        person.clicks_into_notepad()
        person.types(word)
        time.sleep(0.6)  # a click any sooner could come to be a double click, with a piece put in before it
    person.hands.wheel(False)
    time.sleep(0.3)
    person.presses("Pause")
    return person.saves_job_as("Letter")


def test_a_recording_is_mended_row_by_row(stage, person, editor):
    """Delete, delay, duration, both ways to retype, a wheel notch, two pieces recorded; half of it back and forth."""
    notepad = stage.notepad()
    person.start_program()
    path = record_letter(person, notepad)
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

    editor.selects_line(editor.line_of(2) - 1)  # the way of the pointer, before which there is a pause
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


def test_saving_as_another_job_and_closing(stage, person, editor):
    """Names that are taken or bad, changes that are kept, dropped and saved; the window comes back as it was left."""
    path = person.puts_job("a")
    taken = person.puts_job("taken").read_bytes()
    person.start_program()
    editor.opens()
    person.clicks("edit_job_Option3")
    person.clicks("edit_job_job_description")
    person.types("sends it")
    assert wait_for(lambda: person.sees("edit_job_save_button").enabled, 5)
    person.clicks("edit_job_save_as_button")
    assert person.text_of("save_name_name") == "a"
    person.types("what?\n")
    assert "Please enter a valid file name." in editor.answers("Return", "Invalid file name")
    person.waits_for("save_name_name")
    person.presses("Control_L", "a")
    person.types("taken\n")
    assert editor.answers("n", "Overwrite job") == "Overwrite 'taken'?"
    person.waits_for("save_name_name")
    person.presses("Control_L", "a")
    person.types("copy\n")
    assert wait_for(lambda: editor.form.caption == "Job Editor - copy.tsj", 5)
    assert read_job(person.folder / "copy.tsj").description == "sends it"
    assert (read_job(path).description, (person.folder / "taken.tsj").read_bytes()) == ("", taken)

    person.clicks("edit_job_job_description")
    person.types(" today")
    editor.closes()
    asked = editor.answers("Escape")
    assert asked.startswith("Do you want to save changes you made to job 'copy'?"), asked
    editor.is_there()
    left, top, right, bottom = editor.form.rect
    stage.probe.place(editor.form.handle, 1, (left - 20, top - 10, right - 80, bottom - 50))
    edge = editor.drags_edge_of_first_column(40)
    editor.closes()
    editor.answers("n")
    editor.is_gone()
    assert read_job(person.folder / "copy.tsj").description == "sends it"
    editor.opens(1)
    assert editor.form.rect == (left - 20, top - 10, right - 80, bottom - 50)
    assert editor.first_column() == edge + 40
    person.clicks("edit_job_Option3")
    person.clicks("edit_job_job_description")
    person.types("now ")
    person.presses("Alt_L", "F4")
    editor.answers("y")
    editor.is_gone()
    assert "now" in read_job(person.folder / "copy.tsj").description


def test_one_editor_for_all(stage, person, editor):
    """A second start asks for a job: it opens here, and while it is open, no other one does."""
    first, other = (stage.wine.windows_path(person.puts_job(name)) for name in ("a", "b"))
    person.start_program()
    assert stage.tessarine("-edit", first).wait(30) == 0
    editor.is_there()
    assert wait_for(lambda: stage.probe.ask("foreground") == editor.form.handle, 5)
    assert not stage.main_window().enabled
    second = stage.tessarine("-edit", other)
    assert editor.answers("Return", "Job Editor") == "The job 'a' is open in the editor. Please close it first."
    assert second.wait(30) == 0
    assert editor.form.caption == "Job Editor - a.tsj"
    assert stage.tessarine("-edit", first).wait(30) == 0
    editor.is_there()
    editor.closes()
    editor.is_gone()


def job_of_many_rows(stage, person):
    job = stage.job(description="Writes a letter", program="C:\\windows\\notepad.exe", parameters="letter.txt")
    desktop = job.target(stage.probe.chain(stage.probe.find("Shell_TrayWnd").handle))
    for _ in range(3):
        job.click(*MIDDLE, desktop)
        job.type("Dear Ann ", desktop)
        job.wheel(*MIDDLE, 120, desktop)
    job.write(person.folder / "Letter.tsj")


@pytest.mark.parametrize("language", LANGUAGES)
def test_in_every_language(stage, person, editor, language):
    person.speaks(language)
    try:
        job_of_many_rows(stage, person)
        person.start_program()
        editor.opens()
        editor.selects_line(2)
        check_letters(person, editor.form, f"{language}_editor")
        person.clicks("edit_job_save_as_button")
        check_letters(person, person.form_of("save_name_name"), f"{language}_save_name")
        person.presses("Escape")
        stage.probe.place(editor.form.handle, 1, (5, 5, 55, 55))
        left, top, right, bottom = wait_for(lambda: editor.form.rect)
        assert right - left <= 1280 and bottom - top <= 1000, "never larger than a screen"
        check_letters(person, editor.form, f"{language}_editor_small")
        if language == "en":
            by_keyboard_and_by_ear(stage, person, editor)
    finally:
        person.speaks("en")


def by_keyboard_and_by_ear(stage, person, editor):
    """Each control can be reached by Tab and has a name; the block of selected rows is one, whatever is held."""
    editor.selects_line(2)
    there = walk(person, 8, "Tab")
    assert there == [f"edit_job_{name}" for name in (
        "delay_mk", "delay_set", "duration_mk", "duration_set", "wait_for_window_text", "wait_for_window_ms",
        "if_no_window", "Option1")]
    assert not person.nameless(editor.form, "SysHeader32", "ScrollBar")
    editor.selects_line(2)
    for keys, rows in ([["Shift_L", "Down"], [2, 3]], [["Control_L", "Down"], [4]], [["Control_L", "space"], [4]],
                       [["Shift_L", "Home"], [0, 1, 2, 3, 4]], [["Up"], [0]]):
        person.presses(*keys)
        assert editor.selected() == rows, keys
    stage.hands.press("Control_L")
    editor.selects_line(3)
    stage.hands.release("Control_L")
    assert editor.selected() == [3]
    person.presses("Control_L", "a")
    assert len(editor.selected()) == len(editor.lines())
