"""From fingers to a saved job and back to fingers: the real program, driven from outside as a person would."""

import shutil
import time

import pytest
from job_reader import KEY, MOUSE, MOVE, NO_WINDOW, read_job
from person import RIGHT
from wine_desktop import wait_for

PAUSE_KEY = 19


def stop_by_pause_key(person):
    person.presses("Pause")


def stop_by_button(person):
    person.clicks("recording_Command1")


def stop_by_tray_icon(person):
    person.clicks_tray_icon()


def works_in_notepad_and_a_dialog(person):
    """Leaves "Help!": writes "Hello", looks for "lo" in the Find dialog and types over it."""
    person.clicks_into_notepad()
    person.types("Hello")
    person.presses("Control_L", "Home")
    person.presses("Control_L", "f")
    find = wait_for(lambda: person.probe.find("#32770", "Find", visible=True))
    assert find, "Notepad's own dialog did not come up"
    time.sleep(0.4)
    person.types("lo\n")
    person.presses("Escape")
    assert wait_for(lambda: not person.probe.find("#32770", "Find", visible=True))
    time.sleep(0.3)
    person.types("p!")


def run_by_button(person):
    person.clicks("job_page_run_job_button")


def run_by_hotkey(person):
    person.presses("Control_L", "Alt_L", "j")


def run_from_tray_menu(person):
    person.clicks_tray_icon(RIGHT)
    assert wait_for(lambda: person.probe.find("#32768", visible=True)), "the tray menu did not open"
    time.sleep(0.3)
    person.presses("Down")
    person.presses("Right")
    person.presses("Return")


def check_file(path, description):
    """What a recording of the work above must look like, whoever wrote it."""
    job = read_job(path)
    assert (job.version, job.speed, job.skip_moves, job.repeat, job.safety, job.similar) == (300, 100, 0, 1, 0, 0)
    assert (job.program, job.description) == ("", description)
    assert job.duration == job.events[-1].time
    times = [event.time for event in job.events]
    assert times == sorted(times)
    downs = [chr(key) for key, state in job.keys() if state == 0 and 48 <= key <= 90]
    assert "".join(downs) == "HELLOFLOP1", downs
    assert PAUSE_KEY not in [key for key, _ in job.keys()]
    assert job.targets() == {"Untitled - Notepad", "Find"}
    assert ("", "Edit") in {window[:2] for window in job.windows}
    for event in job.events:
        aimed = event.type == KEY and event.key_state in (0, 1) or event.type == MOUSE and event.flags == 0x8002
        assert (event.chain != NO_WINDOW) == aimed, event
        assert event.wait == (10 if aimed and event.key_state != 1 else 0) or event.type == MOUSE
    assert any(event.type == MOUSE and event.flags == MOVE for event in job.events)


@pytest.mark.parametrize("stop, runs", [
    (stop_by_pause_key, [run_by_button, run_by_hotkey, run_from_tray_menu]),
    (stop_by_button, [run_by_button]),
    (stop_by_tray_icon, [run_by_button]),
])
def test_a_recording_is_saved_and_played(stage, person, stop, runs):
    notepad = stage.notepad()
    program = person.start_program()
    person.starts_recording()
    works_in_notepad_and_a_dialog(person)
    assert notepad.holds("Help!")
    stop(person)
    path = person.saves_job_as("first", "says help")
    check_file(path, "says help")
    assert list(person.folder.glob("~*")) == []
    assert (person.desktop / "first.lnk").exists()
    assert person.text_of("job_page_lista_jobs").startswith("first\nsays help")
    if run_by_hotkey in runs:
        assign_hotkey(person)
    for run in runs:
        notepad.set_text("")
        run(person)
        assert wait_for(lambda: notepad.text == "Help!", 30), (run.__name__, notepad.text)
        assert wait_for(lambda: stage.main_window().enabled and person.sees("job_page_lista_jobs"), 15)
        time.sleep(1)  # the last keys of the job come up
    assert program.poll() is None


def assign_hotkey(person):
    """Ctrl+Alt+J, by keyboard alone, from wherever the focus is."""
    person.presses("Alt_L", "h")
    person.presses("Alt_L", "a")
    for name in ("job_page_hot_ctrl", "job_page_hot_alt"):
        person.clicks(name)
    person.clicks("job_page_hot_slovo")
    person.types("j\n")
    person.presses("Alt_L", "s")
    assert wait_for(lambda: not person.waits_for("job_page_button_save_changes").enabled), "saved"
    assert (person.folder / "settings.binary").exists()


def record_a_key(person):
    """A short recording with the key "a" in it, up to the Save As form."""
    person.clicks("record_page_display_countdown_check")
    person.starts_recording()
    person.types("a")
    stop_by_pause_key(person)
    person.waits_for("Save_As_Form_name")
    time.sleep(0.3)


def answers_box(person):
    """OK, to a box of the program; what it said."""
    text = person.stage.box_text(person.box("Tessarine"))
    person.presses("Return")
    assert wait_for(lambda: person.stage.box("Tessarine") is None)
    return text


def find_question(person):
    """The question behind Esc has the form's own title."""
    return next((box for box in person.probe.windows() if box.class_name == "#32770" and box.caption == "Save Job As"
                 and person.stage.box_text(box).endswith("Do you want to save it?")), None)


def test_leaving_loses_no_recording(stage, person):
    """The main window is closed in the middle of a recording, and Esc pressed in the form where it could be saved."""
    person.start_program()
    person.records_by_shortcut()
    person.types("a")
    stage.probe.ask("post", stage.main_window().handle, 0x10, 0, 0)  # WM_CLOSE
    person.waits_for("Save_As_Form_name")
    time.sleep(0.3)
    person.types("kept")
    person.presses("Escape")
    assert wait_for(lambda: find_question(person))
    person.presses("Escape")
    assert wait_for(lambda: not find_question(person))
    assert person.text_of("Save_As_Form_name") == "kept", "a way back"
    person.presses("Escape")
    assert wait_for(lambda: find_question(person))
    person.presses("Return")
    person.waits_for_end_of("Save_As_Form_name")
    assert [key for key in read_job(person.folder / "kept.tsj").keys() if key[0] == ord("A")]
    assert wait_for(lambda: not stage.main_window().visible), "and then it closes"


def test_names_that_no_file_can_have_and_a_file_that_cannot_be_written(person):
    """Each is told in a sentence, what was typed stays, and the recording is saved under a good name after all."""
    person.start_program()
    record_a_key(person)
    person.presses("Tab")
    person.types("described")
    person.presses("Shift_L", "Tab")
    for name, sentence in (("con", "'con'"), ("dot.", "dot"), (" ", "valid file name"), ("q*", "valid file name")):
        person.presses("Control_L", "a")
        person.types(name)
        person.presses("Return")
        told = answers_box(person)
        assert sentence in told, told
        assert person.text_of("Save_As_Form_name") == name
    assert list(person.folder.glob("*.tsj")) == []
    person.presses("Control_L", "a")
    shutil.rmtree(person.folder)
    person.folder.write_bytes(b"no folder any more")
    person.types("first")
    person.presses("Return")
    assert "first.tsj" in answers_box(person)
    person.folder.unlink()
    person.folder.mkdir()
    assert person.text_of("Save_As_Form_name") == "first"
    person.presses("Control_L", "a")
    job = read_job(person.saves_job_as("second"))
    assert job.description == "described"
    assert [key for key in job.keys() if key[0] == ord("A")] == [(ord("A"), 0), (ord("A"), 2)]


def test_pause_and_resume(stage, person):
    """What is typed during a pause is no part of the job, and the pause takes no time in it."""
    notepad = stage.notepad()
    person.start_program()
    person.clicks("record_page_display_countdown_check")
    person.starts_recording()
    person.clicks_into_notepad()
    person.types("ab")
    person.clicks("recording_Command2")
    assert wait_for(lambda: person.text_of("recording_Label1") == "PAUSED")
    time.sleep(0.6)  # Wine looks for double clicks in each program by itself: this would be one in Notepad
    person.clicks_into_notepad()
    person.types("xy")
    stop_by_pause_key(person)  # means nothing now
    time.sleep(2.5)
    person.clicks("recording_Command2")
    assert wait_for(lambda: person.text_of("recording_Label1") == "Recording")
    assert wait_for(lambda: person.probe.ask("foreground") == notepad.handle), "Notepad has the keyboard again"
    time.sleep(0.3)
    person.types("cd")
    stop_by_button(person)
    job = read_job(person.saves_job_as("paused"))
    assert [chr(key) for key, state in job.keys() if state == 0] == list("ABCD")
    downs = [event.time for event in job.events if event.type == KEY and event.key_state == 0]
    assert downs[2] - downs[1] < 2500
    assert notepad.holds("abxycd")
