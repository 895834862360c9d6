"""Two starts at once, a hotkey behind a question, settings that cannot be read, and what killed saves leave behind."""

import time

import pytest
from job_reader import read_job
from settings_writer import hotkey, settings
from wine_desktop import OUT, wait_for


def main_windows(stage):
    return [window for window in stage.probe.windows() if window.class_name == "TessarineMainWindow"]


@pytest.mark.parametrize("attempt", range(5))
def test_starts_at_the_same_moment_end_in_one_program(stage, attempt):
    programs = [stage.tessarine() for _ in range(3)]
    assert wait_for(lambda: [program.poll() for program in programs].count(None) == 1, 60)
    time.sleep(1)
    assert [program.poll() for program in programs].count(None) == 1
    assert wait_for(lambda: len(main_windows(stage)) == 1 and main_windows(stage)[0].visible)


def test_jobs_of_two_starts_at_the_same_moment_run_one_after_the_other(stage):
    notepad = stage.notepad()
    paths = [stage.write(stage.typing_job(notepad, letter * 10), f"job_{letter}") for letter in "ab"]
    programs = [stage.tessarine("-run", path) for path in paths]
    assert [program.wait(90) for program in programs] == [0, 0]
    assert wait_for(lambda: len(notepad.text) == 20, 20), notepad.text
    assert notepad.text in ("a" * 10 + "b" * 10, "b" * 10 + "a" * 10)
    assert wait_for(lambda: not main_windows(stage)), "nobody asked for a program that stays"


def test_a_start_during_a_box_of_the_first(stage, person):
    """The settings are damaged and the user is told; a job is started meanwhile, by another start of the program."""
    notepad = stage.notepad()
    path = stage.write(stage.typing_job(notepad, "handed over"))
    damaged = b"\x32\x01\x00\x00" + b"half there"
    (person.folder / "settings.binary").write_bytes(damaged)
    first = stage.tessarine("-startup")  # a window that is shown behind the run can take its last keys, on a slow Wine

    def box():
        return next((window for window in stage.probe.windows() if window.class_name == "#32770" and window.visible
                     and window.caption == "Tessarine"), None)

    told = wait_for(box, 60)
    assert told and "settings (kept).binary" in stage.box_text(told)
    stage.wine.screenshot(OUT / "test" / "settings_kept.png")
    second = stage.tessarine("-run", path)
    assert second.wait(20) == 0, "it need not wait for the user"
    assert notepad.text == "" and first.poll() is None and not main_windows(stage)
    stage.answer(told)
    assert wait_for(lambda: notepad.text == "handed over", 20), notepad.text
    assert wait_for(lambda: len(main_windows(stage)) == 1)
    assert first.poll() is None
    assert (person.folder / "settings (kept).binary").read_bytes() == damaged
    stage.end(first)
    stage.tessarine()
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
    assert box() is None, "told once"


def test_a_hotkey_while_a_question_is_open(stage, person):
    """The run leaves the question where it was, the window behind it disabled, and the answer counts."""
    notepad = stage.notepad()
    hotkey_job = stage.write(stage.typing_job(notepad, "by hotkey", pause=800), "hotkey")
    for name in ("a", "b"):
        person.puts_job(name)
    (person.folder / "settings.binary").write_bytes(settings(hotkeys=[hotkey(1 | 2, "K", hotkey_job)]))
    person.start_program()
    person.clicks("job_page_Check7")
    person.clicks("job_page_lista_jobs")  # in the middle, on the other job
    question = person.box("Save Changes")
    assert not stage.main_window().enabled
    person.presses("Control_L", "Alt_L", "k")
    assert wait_for(lambda: notepad.text == "by hotkey", 20), notepad.text
    assert wait_for(lambda: (box := stage.probe.window(question.handle)) and box.visible, 10), "it is there again"
    time.sleep(1)
    stage.wine.screenshot(OUT / "test" / "hotkey_behind_a_question.png")
    assert not stage.main_window().enabled, "the window behind it is not in use"
    stage.probe.ask("post", question.handle, 0x111, 6, 0)  # Yes
    assert wait_for(lambda: stage.main_window().enabled)
    assert wait_for(lambda: read_job(person.folder / "a.tsj").skip_moves == 1, 5), "the answer counts"
    assert stage.box() is None


def temporary_of(folder, process):
    """The name that a save of this process has for its temporary file."""
    digits, number, name = "0123456789abcdefghijklmnopqrstuvwxyz", process * 16, ""
    while len(name) < 7:
        number, digit = divmod(number, 36)
        name = digits[digit] + name
    return folder / f"~{name}.tmp"


def test_leftovers_of_killed_saves(stage, person):
    notepad = stage.notepad()
    killed = stage.tessarine()
    assert wait_for(stage.main_window, 60)
    dead, alive = (temporary_of(person.folder, window.process) for window in (stage.main_window(), notepad.top))
    stage.end(killed)
    assert wait_for(lambda: not stage.main_window())
    others = person.folder / "notes.tmp"
    for path in (dead, alive, others):
        path.write_bytes(b"half a job")
    person.start_program()
    assert not dead.exists() and alive.exists() and others.exists()
