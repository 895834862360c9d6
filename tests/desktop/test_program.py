"""The program as a process: instances, command lines, messages from strangers, its windows."""

import getpass
import struct
import time

from stage import NOTEPAD_PLACE
from wine_desktop import OUT, wait_for


def shown(stage):
    return wait_for(lambda: (window := stage.main_window()) and window.visible and window)


def settled(stage, visible):
    time.sleep(1)
    return stage.main_window().visible == visible


def test_a_second_start_raises_the_first(stage):
    first = stage.tessarine()
    window = shown(stage)
    assert window
    stage.probe.ask("post", window.handle, 0x10, 0, 0)  # WM_CLOSE hides
    assert wait_for(lambda: not stage.main_window().visible)
    assert stage.tessarine().wait(20) == 0
    assert shown(stage).handle == window.handle
    assert first.poll() is None
    assert wait_for(lambda: stage.probe.ask("foreground") == window.handle)


def test_a_second_start_hands_its_job_over(stage):
    notepad = stage.notepad()
    job = stage.job()
    edit = job.target(notepad.chain())
    job.click(NOTEPAD_PLACE[0] + 300, NOTEPAD_PLACE[1] + 250, edit)
    job.type("handed over", edit)
    path = stage.write(job)
    first = stage.tessarine()
    assert shown(stage)
    assert stage.tessarine("-run", path).wait(30) == 0
    assert notepad.holds("handed over")
    assert first.poll() is None
    assert shown(stage), "visible again, as it had been"


def test_a_command_line_that_is_too_long(stage):
    first = stage.tessarine()
    assert shown(stage)
    before = stage.main_window().visible
    assert stage.tessarine("-xyz" + "y" * 251).wait(20) == 0, "255 characters pass"
    second = stage.tessarine("-xyz" + "y" * 252)
    box = wait_for(lambda: next((window for window in stage.probe.windows() if window.class_name == "#32770"
                                 and window.visible and window.caption == "Tessarine"), None))
    assert box, "256 characters fail, and it is said"
    stage.answer(box)
    assert second.wait(20) != 0
    assert first.poll() is None and stage.main_window().visible == before


def test_a_start_with_the_computer_stays_hidden(stage):
    program = stage.tessarine("-startup")
    assert wait_for(stage.main_window)
    assert settled(stage, visible=False)
    assert program.poll() is None


def test_a_job_that_does_not_exist(stage):
    program = stage.tessarine("-run", "C:\\no\\such.tsj")
    box = wait_for(lambda: stage.box("File access error"))
    assert stage.box_text(box).replace("\r", "") == "File does not exist:\nC:\\no\\such.tsj"
    stage.answer(box)
    assert program.wait(10) == 0


def test_messages_from_strangers(stage):
    program = stage.tessarine()
    window = shown(stage)
    for words in ((3, 0, "null"), (3, 200, "null"), (3, 4000000000, "null"), (7, 5, "-run x"), (0, 255, "-run x"),
                  (3, 1, "-"), (3, 12, "nothing much")):
        stage.probe.ask("post", window.handle, 0, 0, 0)
        stage.probe.ask("copydata", window.handle, *words)
    assert program.poll() is None
    stage.probe.ask("copydata", window.handle, 3, 300, "-nothing" + "x" * 290)
    box = wait_for(lambda: stage.box("Tessarine"), 5)
    assert box, "a payload that is too long is told in a box"
    stage.answer(box)
    assert wait_for(lambda: stage.box() is None)
    assert program.poll() is None


def test_the_status_windows(stage):
    """They show the run, stay out of the way of the pointer, and never take the focus."""
    notepad = stage.notepad()
    job = stage.job()
    edit = job.target(notepad.chain())
    for column in range(4):
        job.click(NOTEPAD_PLACE[0] + 200 + 50 * column, NOTEPAD_PLACE[1] + 250, edit)
        job.type("abc ", edit)
    job.pause(2500)
    job.type("d", edit)
    stage.tessarine("-run", stage.write(job, "morning"))
    assert wait_for(lambda: stage.status_lines())
    assert wait_for(lambda: notepad.text == "abc " * 4)
    lines = stage.status_lines()
    assert lines[0].split() == "OK 1. MOUSE: Left click at: Untitled - Notepad".split()
    assert stage.probe.ask("foreground") == notepad.handle
    stage.wine.screenshot(OUT / "test" / "status_windows.png")

    frame = stage.probe.window(stage.status_list().parent)
    was = frame.rect
    stage.hands.move((was[0] + was[2]) // 2, was[1] + 12)
    stage.hands.move((was[0] + was[2]) // 2 + 3, was[1] + 40)
    assert wait_for(lambda: stage.probe.window(frame.handle).rect[0] != was[0], 5), "it dodges the pointer"
    assert wait_for(lambda: notepad.text == "abc " * 4 + "d")


def settings_with_hotkey(job_path, modifiers, key):
    """The bytes of a settings.binary with one hotkey and nothing else."""
    options = struct.pack("<10i", *[0] * 7, 1, 1, 5) + struct.pack("<h", -1) + struct.pack("<4i", 0, 0, 0, 1)
    recent = b" " * 2560
    hotkey = struct.pack("<ih", modifiers, ord(key)) + job_path.encode("cp1252").ljust(512)
    return (struct.pack("<i", 306) + options + recent + struct.pack("<3i", 1, 0, 1) + struct.pack("<i", 1) + hotkey
            + struct.pack("<i", 0))


def test_a_hotkey_starts_its_job(stage):
    notepad = stage.notepad()
    job = stage.job()
    edit = job.target(notepad.chain())
    job.pause(800)  # the fingers leave the combination first
    job.click(NOTEPAD_PLACE[0] + 300, NOTEPAD_PLACE[1] + 250, edit)
    job.type("by hotkey", edit)
    folder = stage.wine.drive_c / "users" / getpass.getuser() / "Documents" / "Tessarine"
    folder.mkdir(parents=True, exist_ok=True)
    path = stage.write(job, "hotkey")
    (folder / "settings.binary").write_bytes(settings_with_hotkey(path, 1 | 2, "K"))  # Alt and Ctrl
    program = stage.tessarine("-startup")
    assert wait_for(stage.main_window)
    time.sleep(1)
    for name in ("Control_L", "Alt_L"):
        stage.hands.press(name)
    stage.hands.tap("k", ms=50)
    for name in ("Alt_L", "Control_L"):
        stage.hands.release(name)
    (folder / "settings.binary").unlink()
    assert notepad.holds("by hotkey")
    assert program.poll() is None


def test_settings_survive_a_kill(stage):
    """A program that is killed leaves no half-written file, and the next start says nothing odd."""
    program = stage.tessarine()
    assert shown(stage)
    stage.end(program)
    again = stage.tessarine()
    assert shown(stage)
    assert stage.box() is None
    assert again.poll() is None
