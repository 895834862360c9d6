"""A recording that comes to a bad end: the program is killed, or Windows keeps input from it."""

import os
import signal
import time

from job_reader import read_job
from stage import MIDDLE
from wine_desktop import wait_for

NOTICE = "Some actions may be missing. Please check the recording."


def typed(job):
    return "".join(chr(key) for key, state in job.keys() if state == 0)


def files_of(person):
    return {path.name: path.read_bytes() for path in person.folder.iterdir()}


def test_a_killed_recording_leaves_nothing_behind(stage, person):
    notepad = stage.notepad()
    person.puts_job("kept")
    program = person.start_program()
    before = files_of(person)
    person.records_by_shortcut()
    person.clicks_into_notepad()
    person.types("abc")
    stage.hands.press("d")
    stage.end(program)
    stage.hands.release("d")

    began = time.monotonic()
    person.types("efghij")
    assert notepad.holds("abcdefghij")
    assert time.monotonic() - began < 5, "no hook is left that input has to wait for"
    assert stage.probe.ask("keys") == []
    assert files_of(person) == before

    again = person.start_program()
    assert stage.box() is None
    assert person.text_of("job_page_lista_jobs").startswith("kept")
    person.records_by_shortcut()
    person.clicks_into_notepad()
    person.types("xyz")
    person.presses("Pause")
    job = read_job(person.saves_job_as("after"))
    assert typed(job) == "XYZ"
    assert job.targets() == {"Untitled - Notepad"}
    assert notepad.holds("abcdefghijxyz")
    assert again.poll() is None


def test_input_that_no_hook_heard_is_told(stage, person):
    """The program stands still for so long that the system passes its hooks over."""
    notepad = stage.notepad()
    program = person.start_program()
    person.records_by_shortcut()
    person.clicks_into_notepad()
    person.types("abc")
    assert person.text_of("recording_label_info") != NOTICE
    os.kill(program.pid, signal.SIGSTOP)
    person.types("d")
    time.sleep(8)  # none of it waits for the program any more
    os.kill(program.pid, signal.SIGCONT)
    assert wait_for(lambda: person.text_of("recording_label_info") == NOTICE, 10)
    time.sleep(2.5)
    assert person.text_of("recording_label_info") == NOTICE, "it stays"
    person.types("hij")
    person.presses("Pause")
    job = read_job(person.saves_job_as("gap"))
    assert typed(job) == "ABCHIJ"
    assert notepad.holds("abcdhij")


def test_the_end_of_windows_keeps_a_recording(stage, person):
    """As when the user logs off: Windows asks, is not held up, and says that it ends."""
    stage.notepad()
    program = person.start_program()
    person.records_by_shortcut()
    person.clicks_into_notepad()
    person.types("abc")
    main = stage.main_window().handle
    assert stage.probe.ask("send", main, 0x11, 0, 0) == 1, "WM_QUERYENDSESSION"
    stage.probe.ask("post", main, 0x16, 1, 0)  # WM_ENDSESSION
    assert wait_for(lambda: program.poll() is not None, 20)
    [recovered] = person.folder.glob("Recovered *.tsj")
    assert typed(read_job(recovered)) == "ABC"
    person.start_program()
    assert person.text_of("job_page_lista_jobs").startswith(recovered.stem)


def test_a_box_of_ours_is_no_part_of_a_recording(stage, person):
    """The box that refuses a horizontal wheel is closed by a click, and then by a key."""
    sideways = 7
    stage.notepad()
    person.start_program()
    person.records_by_shortcut()
    person.clicks_into_notepad()
    person.types("a")

    def click_its_button(box):
        person.clicks_window(next(child for child in stage.children(box) if child.class_name == "Button"))

    for close in (click_its_button, lambda _: person.presses("Return")):
        person.clicks_into_notepad()
        person.hands.click(*MIDDLE, sideways)
        box = person.box("Unknown mouse event")
        time.sleep(0.3)
        close(box)
        assert wait_for(lambda: stage.box("Unknown mouse event") is None)
    person.clicks_into_notepad()
    person.types("b")
    person.presses("Pause")
    job = read_job(person.saves_job_as("boxes"))
    assert typed(job) == "AB"
    assert job.targets() == {"Untitled - Notepad"}
