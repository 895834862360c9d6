"""The program as a process: instances, command lines, messages from strangers, its windows."""

import array

from stage import MIDDLE
from wine_desktop import OUT, wait_for


def shown(stage):
    return wait_for(lambda: (window := stage.main_window()) and window.visible and window)


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


def loudest(path):
    """Of the samples in a wave file that may still be written: 32-bit floats behind a header of 44 bytes."""
    samples = array.array("f")
    data = path.read_bytes()[44:] if path.exists() else b""
    samples.frombytes(data[:len(data) // 4 * 4])
    return max(map(abs, samples), default=0)


def test_sounds_are_heard(stage, person, tmp_path, monkeypatch):
    """A sound device that writes down what it is given: a key of a run, and a click on a tab."""
    heard, config = tmp_path / "heard.wav", tmp_path / "asound.conf"
    config.write_text(f"""pcm.nowhere {{ type null }}
        pcm.paper {{ type file slave.pcm "nowhere" file "{heard}" format "wav" }}
        pcm.!default {{ type plug slave.pcm "paper" }}""")
    monkeypatch.setenv("ALSA_CONFIG_PATH", str(config))
    notepad = stage.notepad()
    assert stage.run(stage.write(stage.typing_job(notepad, "keys are heard " * 3))) == 0
    assert 0.05 < loudest(heard) < 0.4, "heard, and not loud, also where two keys sound at once"
    heard.unlink()
    person.start_program()
    tabs = person.waits_for("form1_tabs")
    assert loudest(heard) == 0
    person.clicks_at(tabs.rect[0] + 120, tabs.rect[1] + 10)
    assert wait_for(lambda: loudest(heard) > 0.1, 5)


def test_the_status_windows(stage):
    """They show the run, stay out of the way of the pointer, and never take the focus."""
    notepad = stage.notepad()
    job = stage.job()
    edit = job.target(notepad.chain())
    for column in range(4):
        job.click(MIDDLE[0] - 100 + 50 * column, MIDDLE[1], edit)
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
