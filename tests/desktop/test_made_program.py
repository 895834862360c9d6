"""Jobs made into programs of their own, from the job page and played where nothing else of the program is."""

import struct
import subprocess
import time

import pytest
from person import IDS
from wine_desktop import OUT, wait_for

RUNNER = OUT / "windows" / "execreator.bin"
SUCCESS, FAILED, CANCELLED, NOTHING_TO_PLAY, BUSY = range(5)
FOLDER = "Übung & Söhne, 100%"
FAILURE = {1: "Execution of job failed. Reason: ", 2: "Die Ausführung der Aufgabe ist fehlgeschlagen. Grund: ",
           3: "La ejecución de la tarea ha fallado. ", 4: "L'exécution de la tâche a échoué. "}


def made(stage, job, language=1, name="Mein Job", junk=b""):
    """A made program in a folder of a difficult name; its path on this side."""
    folder = stage.folder / FOLDER
    folder.mkdir(exist_ok=True)
    path = folder / f"{name}.exe"
    path.write_bytes(RUNNER.read_bytes() + struct.pack("<h", language) + job.bytes() + junk)
    return path


def holding_job(stage, notepad):
    """Holds Shift for a minute."""
    job = stage.typing_job(notepad, "abc")
    job.key(160, 42, 0, 0)
    job.pause(60000)
    job.key(160, 42, 2)
    return job


def start(stage, path):
    return stage.start(stage.wine.windows_path(path))


def status_lines(stage):
    lists = [window for window in stage.probe.windows() if window.class_name == "ListBox" and window.visible]
    return lists and stage.probe.list_lines(lists[0].handle)


def traces(stage):
    """Whatever a program can leave behind: lines of the registry that name it, and the files of the user."""
    query = stage.wine.start("reg", "query", "HKCU\\Software", "/s", stdout=subprocess.PIPE).communicate(timeout=30)[0]
    files = sorted(str(path) for path in (stage.wine.drive_c / "users").rglob("*"))
    return [line for line in query.splitlines() if b"tessarine" in line.lower()], files, sorted(stage.folder.rglob("*"))


def test_a_job_is_made_into_a_program(stage, person):
    """By the button on the job page and the save dialog; the program plays beside the one that made it."""
    notepad = stage.notepad()
    stage.typing_job(notepad, "made ").write(person.folder / "Morning.tsj")
    person.start_program()
    person.opens_page("job_page_lista_jobs")
    person.clicks("job_page_make_exe_button")
    person.box("Make .exe file")
    time.sleep(0.5)
    person.presses("Return")
    box = person.box("Tessarine")
    path = person.desktop / "Morning.exe"
    assert stage.box_text(box).endswith("Desktop\\Morning.exe' created successfully!")
    stage.answer(box)
    assert path.read_bytes() == RUNNER.read_bytes() + b"\1\0" + (person.folder / "Morning.tsj").read_bytes()
    stage.brings_to_front(notepad.handle)
    assert start(stage, path).wait(30) == SUCCESS
    path.unlink()
    assert notepad.holds("made ")
    assert stage.probe.ask("keys") == []


@pytest.mark.parametrize("language", [1, 2, 3, 4])
def test_it_plays_where_the_program_has_never_been(stage, person, language):
    """In its own language, without a trace; a failure stays to be read and is told by the exit code."""
    person.puts_into_registry("Software\\Tessarine", "Language")
    stage.wine.run("reg", "delete", "HKCU\\Software\\Tessarine", "/f")
    person.leave()
    try:
        notepad = stage.notepad()
        path = made(stage, stage.typing_job(notepad, "abc ", wait_for_window=1), language)
        before = traces(stage)
        assert start(stage, path).wait(30) == SUCCESS
        assert notepad.holds("abc ")
        stage.end(notepad.process)
        lost = start(stage, path)
        lines = wait_for(lambda: (found := status_lines(stage)) and len(found) > 2 and found)
        assert lines[0].startswith(FAILURE[language]) and "'Untitled - Notepad'" in lines[1]
        time.sleep(1)
        assert lost.poll() is None, "somebody may want to read why"
        close = IDS["executing_closebutton"]
        button = next(window for window in stage.probe.windows() if window.control_id == close and window.visible)
        stage.probe.ask("post", button.handle, 0xF5, 0, 0)  # BM_CLICK
        assert lost.wait(10) == FAILED
        assert traces(stage) == before
        assert person.registry("Software\\Tessarine", "Language") is None and not person.folder.exists()
    finally:
        person.speaks("en")


def test_escape_ends_it_and_one_run_goes_on_at_a_time(stage):
    notepad = stage.notepad()
    path = made(stage, holding_job(stage, notepad))
    first = start(stage, path)
    assert wait_for(lambda: 160 in stage.probe.ask("keys")), "the job holds Shift"
    assert start(stage, path).wait(10) == BUSY
    assert start(stage, made(stage, stage.typing_job(notepad), name="other")).wait(10) == BUSY
    stage.hands.tap("Escape")
    assert first.wait(10) == CANCELLED
    assert stage.probe.ask("keys") == []
    assert notepad.holds("abc")


def test_a_killed_one_leaves_no_key_down(stage):
    path = made(stage, holding_job(stage, stage.notepad()), name="Задача")  # no name of the code page
    first = start(stage, path)
    assert wait_for(lambda: 160 in stage.probe.ask("keys")), "the job holds Shift"
    stage.end(first)
    assert wait_for(lambda: stage.probe.ask("keys") == [], 3)
    second = start(stage, path)
    assert wait_for(lambda: 160 in stage.probe.ask("keys")), "the place of the killed one is free"
    stage.hands.tap("Escape")
    assert second.wait(10) == CANCELLED


def test_a_damaged_one_says_so(stage):
    notepad = stage.notepad()
    path = made(stage, stage.typing_job(notepad, "abc "), junk=b"behind it")
    assert start(stage, path).wait(30) == SUCCESS, "what stands behind the job does no harm"
    assert notepad.holds("abc ")
    whole = path.read_bytes()
    for length, said in ((RUNNER.stat().st_size, "there is no job in it."), (len(whole) - 1000, "it ends too early.")):
        path.write_bytes(whole[:length])
        damaged = start(stage, path)
        box = wait_for(lambda: stage.box("Tessarine"))
        assert said in stage.box_text(box), stage.box_text(box)
        stage.answer(box)
        assert damaged.wait(10) == NOTHING_TO_PLAY
    assert notepad.text == "abc "


def test_a_million_events(stage):
    notepad = stage.notepad()
    job = stage.typing_job(notepad, "abc ")
    job.move(300, 300)
    job.events += job.events[-1:] * 1_000_000
    program = start(stage, made(stage, job))
    assert wait_for(lambda: notepad.text == "abc ", 30)
    stage.hands.tap("Escape")
    assert program.wait(20) in (CANCELLED, SUCCESS)
    assert stage.probe.ask("keys") == []


def test_the_file_has_nothing_odd():
    """What virus scanners look at: each section either writable or executable, all of them known, none packed."""
    for name in ("tessarine.exe", "execreator.bin"):
        data = (OUT / "windows" / name).read_bytes()
        headers = struct.unpack_from("<I", data, 0x3C)[0]
        count, time_stamp, symbols = struct.unpack_from("<HII", data, headers + 6)
        optional = struct.unpack_from("<H", data, headers + 20)[0]
        assert (time_stamp, symbols) == (0, 0)
        sections = [struct.unpack_from("<8s4I12xI", data, headers + 24 + optional + 40 * i) for i in range(count)]
        names = {section[0].rstrip(b"\0").decode() for section in sections}
        assert names <= {".text", ".data", ".rdata", ".pdata", ".xdata", ".bss", ".idata", ".CRT", ".tls", ".rsrc",
                         ".reloc"}
        assert not [section for section in sections if section[5] & 0xA0000000 == 0xA0000000], "write and execute"
        assert max(section[4] + section[3] for section in sections) == len(data), "nothing stands behind the sections"
