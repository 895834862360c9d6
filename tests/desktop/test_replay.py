"""Jobs played by the real program into a Notepad that knows nothing of it."""

import time

import pytest
from job_writer import HIGH, LOW, MAXIMUM_SPEED, MEDIUM
from stage import MIDDLE
from wine_desktop import wait_for

FIRST = "Hello wide world.\nTyped By Hand\n"
LINES = 30


def point(notepad, word):
    """Where a word of FIRST will stand."""
    notepad.set_text(FIRST)
    where = notepad.character(FIRST.replace("\n", "\r\n").index(word))
    notepad.set_text("")
    return where


def writing_job(stage, notepad, **options):
    """Clicks, types by text row and by raw keys, replaces a double-clicked word and a dragged selection, scrolls."""
    wide, typed, by = (point(notepad, word) for word in ("wide", "Typed", "By"))
    job = stage.job(**options)
    edit = job.target(notepad.chain())
    job.click(*MIDDLE, edit)
    job.text_row("{L_SHIFT DOWN}h{L_SHIFT UP}ello wide world.{ENTER}", edit, takes=800)
    job.pause(100)
    job.type("Typed By Hand\n", edit)
    job.double_click(wide[0] + 4, wide[1], edit)
    job.type("big ", edit)
    job.drag(typed, by, edit)
    job.type("x", edit)
    job.key(35, 79, 1, edit)  # End
    job.key(35, 79, 3)
    job.text_row("{ENTER}" * LINES, edit, takes=600)
    job.pause(100)
    for _ in range(20):
        job.wheel(*MIDDLE, 120, edit)
    return job


WRITTEN = "Hello big world.\nxBy Hand" + "\n" * LINES + "\n"


@pytest.mark.parametrize("speed", [100, 1000, MAXIMUM_SPEED])
@pytest.mark.parametrize("level", [HIGH, MEDIUM, LOW])
def test_a_whole_job(stage, level, speed):
    notepad = stage.notepad()
    path = stage.write(writing_job(stage, notepad, safety=level, speed=speed))
    assert stage.run(path) == 0
    assert notepad.holds(WRITTEN)
    assert wait_for(lambda: notepad.first_line() == 0, 5), "the wheel has scrolled back to the top"
    assert stage.probe.ask("keys") == []


def test_a_window_that_is_closed_or_comes_late(stage):
    notepad = stage.notepad()
    path = stage.write(stage.typing_job(notepad, wait_for_window=1))
    patient = stage.write(stage.typing_job(notepad), "patient")
    stage.end(notepad.process)
    program = stage.tessarine("-run", path)
    lines = wait_for(lambda: (found := stage.status_lines()) and any("Reason" in line for line in found) and found)
    assert lines[:2] == ["Execution of job failed. Reason: ", "Cannot find window: 'Untitled - Notepad'"]
    assert program.poll() is None and not stage.main_window().visible
    stage.end(program)
    program = stage.tessarine("-run", patient)
    time.sleep(2)
    late = stage.notepad()
    assert program.wait(30) == 0
    assert late.holds("abc ")


@pytest.mark.parametrize("similar", [0, 1])
def test_a_window_with_another_caption(stage, similar):
    """Recorded in one document, played into another: only where similar captions are allowed."""
    notepad = stage.notepad()
    path = stage.write(stage.typing_job(notepad, "abc", similar=similar, wait_for_window=1))
    stage.end(notepad.process)
    (stage.folder / "other.txt").write_text("")
    stage.start("notepad.exe", stage.wine.windows_path(stage.folder / "other.txt"))
    other = wait_for(lambda: stage.probe.find("Notepad", "other.txt - Notepad", visible=True))
    stage.probe.place(other.handle, 1, (300, 300, 900, 700))
    text = stage.probe.find("Edit", parent=other.handle).handle
    program = stage.tessarine("-run", path)
    if similar:
        assert program.wait(30) == 0
        assert wait_for(lambda: stage.probe.text(text) == "abc")
    else:
        refusal = "Cannot find window: 'Untitled - Notepad'"
        assert wait_for(lambda: (lines := stage.status_lines()) and lines[1] == refusal)
        assert stage.probe.text(text) == ""


def test_a_fault_in_the_middle_lets_held_keys_go(stage):
    notepad = stage.notepad()
    job = stage.typing_job(notepad, "abc")
    job.key(160, 42, 0, 0)
    job.text_row("x", 0)
    job.strings.clear()  # the row now names a text that does not exist
    program = stage.tessarine("-run", stage.write(job))
    box = wait_for(lambda: stage.box("Tessarine"))
    assert stage.box_text(box) == "Text row 0 does not exist (there are 0)."
    assert stage.probe.ask("keys") == []
    stage.answer(box)
    assert wait_for(lambda: stage.box() is None)
    assert program.poll() is None
    assert stage.main_window().enabled


def test_a_dialog_of_another_program(stage):
    """The Find dialog of a registry editor: a button in it is pressed by its own identity, after it has moved."""
    stage.start("regedit.exe")
    editor = wait_for(lambda: stage.probe.find("RegEdit_RegEdit", visible=True))
    stage.probe.place(editor.handle, 1, (100, 100, 800, 600))
    stage.brings_to_front(editor.handle)

    def open_dialog():
        stage.hands.press("Control_L")
        stage.hands.tap("f")
        stage.hands.release("Control_L")
        return wait_for(lambda: stage.probe.find("#32770", "Find", visible=True))

    dialog = open_dialog()
    assert dialog, "the dialog is open"
    field = next(child for child in stage.children(dialog) if child.class_name == "Edit")
    cancel = next(child for child in stage.children(dialog) if child.control_id == 2)
    job = stage.job(safety=HIGH)
    job.click((field.rect[0] + field.rect[2]) // 2, (field.rect[1] + field.rect[3]) // 2,
              job.target(stage.probe.chain(field.handle)))
    job.type("found", len(job.chains) - 1)
    left, top, right, bottom = dialog.rect
    stage.probe.place(dialog.handle, 1, (left + 150, top + 120, right + 150, bottom + 120))
    time.sleep(0.3)
    path = stage.write(job, "dialog")
    assert stage.run(path) == 0
    assert stage.probe.text(field.handle) == "found"
    assert stage.probe.window(dialog.handle).rect == (left, top, right, bottom), "put back in place"

    job = stage.job(safety=HIGH)
    job.click((cancel.rect[0] + cancel.rect[2]) // 2, (cancel.rect[1] + cancel.rect[3]) // 2,
              job.target(stage.probe.chain(cancel.handle)))
    assert stage.run(stage.write(job, "dialog")) == 0
    assert wait_for(lambda: not getattr(stage.probe.window(dialog.handle), "visible", False))


def test_the_program_of_a_job(stage):
    """The job starts Notepad itself and waits for it."""
    notepad = stage.notepad()
    job = stage.typing_job(notepad, "abc", program="C:\\windows\\system32\\notepad.exe", style=1)
    stage.end(notepad.process)
    assert stage.run(stage.write(job)) == 0
    window = stage.probe.find("Notepad", visible=True)
    text = stage.probe.text(stage.probe.find("Edit", parent=window.handle).handle)
    stage.probe.ask("settext", stage.probe.find("Edit", parent=window.handle).handle, "")
    stage.probe.ask("post", window.handle, 0x10, 0, 0)  # WM_CLOSE
    assert text == "abc"


def test_a_target_that_does_not_answer(stage):
    """The run neither hangs on it nor runs away: the search goes on until ESC."""
    probe_program = stage.program.parents[1] / "build" / "windows" / "tests" / "desktop" / "probe.exe"
    stage.start(probe_program, "hang", "Silent")
    silent = wait_for(lambda: stage.probe.find("Static", "Silent"))
    job = stage.job(safety=HIGH)
    job.wait_for_window = 3
    window = silent.__class__(**{**silent.__dict__, "placement": {**silent.placement, "normal": [50, 50, 350, 250]}})
    edge = job.target([window])
    job.click(60, 800, edge)
    began = time.monotonic()
    program = stage.tessarine("-run", stage.write(job))
    time.sleep(1.5)
    stage.hands.tap("Escape")
    ended = wait_for(lambda: program.poll() is not None or
                     ((lines := stage.status_lines()) and any("Execution of job" in line for line in lines)), 15)
    assert ended
    assert time.monotonic() - began < 10
