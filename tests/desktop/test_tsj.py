"""tsj.exe, as a script meets it: the exit code of each end, what the reports say, and what an early end leaves."""

import dataclasses
import json
import signal
import subprocess
import time

import pytest
from jsonschema import Draft202012Validator
from junitparser import JUnitXml
from test_made_program import holding_job
from wine_desktop import OUT, ROOT, wait_for

SUCCESS, FAILED, CANCELLED, NOTHING_TO_PLAY, BUSY, UNREACHABLE, TIMED_OUT, USAGE = *range(7), 64
SCHEMA = Draft202012Validator(json.loads((ROOT / "docs" / "run_report.schema.json").read_text()))


class Tool:
    def __init__(self, stage):
        self.stage = stage
        self.folder = stage.folder / "reports, 100% für uns"
        self.folder.mkdir(exist_ok=True)

    def path(self, name):
        return self.stage.wine.windows_path(self.folder / name)

    def start(self, *words):
        """With files for its streams: other processes of Wine would keep a pipe open."""
        words = [self.stage.wine.windows_path(OUT / "windows" / "tsj.exe"), *words]
        with open(self.folder / "out.txt", "wb") as out, open(self.folder / "err.txt", "wb") as err:
            return self.stage.start(*words, stdin=subprocess.DEVNULL, stdout=out, stderr=err)

    def __call__(self, *words, timeout=60):
        return self.start(*words).wait(timeout)

    def run(self, job, *options):
        """The code of `tsj run`, after a look at both reports."""
        code = self("run", job, "--report", self.path("r.json"), "--junit", self.path("r.xml"), *options)
        SCHEMA.validate(self.report)
        assert self.report["exitCode"] == code
        suite = next(iter(JUnitXml.fromfile(str(self.folder / "r.xml"))))
        assert suite.tests == len(self.report["rows"]) + 1
        assert suite.failures == sum(row["verdict"] == "failed" for row in self.report["rows"])
        assert (suite.errors == 0) == (code == SUCCESS)
        return code

    @property
    def report(self):
        return json.loads((self.folder / "r.json").read_text())

    @property
    def out(self):
        return (self.folder / "out.txt").read_text()

    @property
    def err(self):
        return (self.folder / "err.txt").read_text()


@pytest.fixture
def tsj(stage):
    return Tool(stage)


def test_a_run_is_reported_and_fails_with_a_picture(stage, tsj):
    notepad = stage.notepad()
    job = stage.write(stage.typing_job(notepad, "reported "))
    assert tsj.run(job) == SUCCESS
    assert notepad.holds("reported ")
    assert "OK   1. MOUSE: Left click at: Untitled - Notepad" in tsj.out
    rows = tsj.report["rows"]
    assert [row["verdict"] for row in rows] == ["ok", "ok"]
    assert all(row["sentMs"] >= row["dueMs"] for row in rows) and rows[0]["searchRounds"] >= 1
    assert tsj.report["machine"]["monitors"][0]["width"] > 0

    job = stage.typing_job(notepad, "never", wait_for_window=1)
    stage.end(notepad.process)
    assert tsj.run(stage.write(job), "--picture", tsj.path("")) == FAILED
    failed = tsj.report["rows"][0]
    assert failed["verdict"] == "failed" and "Untitled - Notepad" in failed["reason"]
    assert (tsj.folder / failed["picture"]).read_bytes().startswith(b"\x89PNG")
    assert tsj.report["rows"][1]["verdict"] == "not reached"


def test_each_end_has_its_code(stage, person, tsj):
    notepad = stage.notepad()
    held = stage.write(holding_job(stage, notepad), "held")
    long_run = tsj.start("run", held)
    assert wait_for(lambda: notepad.holds("abc") and stage.probe.ask("keys") != [])
    second = Tool(stage)
    second.folder = stage.folder
    assert second.run(held) == BUSY
    assert second.run(held, "--wait", "--timeout", "1") == TIMED_OUT
    person.presses("Escape")
    assert long_run.wait(20) == CANCELLED
    assert stage.probe.ask("keys") == []

    assert tsj.run(held, "--timeout", "2") == TIMED_OUT
    assert stage.probe.ask("keys") == [], "what was held is released"

    killed = tsj.start("run", held)
    assert wait_for(lambda: stage.probe.ask("keys") != [])
    killed.send_signal(signal.SIGKILL)
    assert wait_for(lambda: stage.probe.ask("keys") == []), "by the guard"

    assert tsj("run", tsj.path("none.tsj")) == NOTHING_TO_PLAY
    assert "none.tsj' cannot be read" in tsj.err
    (tsj.folder / "empty.tsj").write_bytes(stage.job().bytes())
    assert tsj.run(tsj.path("empty.tsj")) == NOTHING_TO_PLAY
    assert tsj("run", held, "--speed", "fast") == USAGE
    assert "--speed" in tsj.err


def test_who_records_is_not_disturbed(stage, person, tsj):
    notepad = stage.notepad()
    job = stage.write(stage.typing_job(notepad, "abc"))
    person.start_program()
    person.starts_recording()
    assert tsj.run(job) == BUSY
    person.presses("Pause")
    person.saves_job_as("recorded beside")
    assert tsj.run(job) == SUCCESS


def test_jobs_go_through_text_and_programs_unchanged(stage, tsj):
    notepad = stage.notepad()
    job = stage.write(stage.typing_job(notepad, "there and back "))
    bytes_of_job = (stage.folder / "job.tsj").read_bytes()
    assert tsj("export", job, tsj.path("ö.json")) == SUCCESS
    assert tsj("import", tsj.path("ö.json"), tsj.path("ö.tsj")) == SUCCESS
    assert (tsj.folder / "ö.tsj").read_bytes() == bytes_of_job
    assert tsj("exe", job, tsj.path("a.exe"), "--language", "fr") == SUCCESS
    assert tsj("unpack", tsj.path("a.exe"), tsj.path("b.tsj")) == SUCCESS
    assert (tsj.folder / "b.tsj").read_bytes() == bytes_of_job and tsj.err.endswith(" fr\n")
    stage.brings_to_front(notepad.handle)
    assert stage.start(tsj.path("a.exe")).wait(30) == SUCCESS
    assert notepad.holds("there and back ")
    time.sleep(0.2)
    assert tsj("show", tsj.path("ö.tsj")) == SUCCESS
    assert "there and back" in tsj.out


def test_explain_tells_why_a_window_is_not_found(stage, tsj):
    for left in [window for window in stage.probe.windows() if window.class_name == "Notepad"]:
        stage.probe.ask("post", left.handle, 0x10, 0, 0)  # WM_CLOSE; one that a log was shown in
    assert wait_for(lambda: not stage.probe.find("Notepad"))
    notepad = stage.notepad()
    job = stage.write(stage.typing_job(notepad, "abc"), "explained")

    def explains(sentence, code, row="1", path=job):
        assert tsj("explain", path, "--row", row) == code
        assert sentence in tsj.out

    def is_let_be():
        return notepad.text == "" and stage.probe.window(notepad.handle).rect == place

    place = stage.probe.window(notepad.handle).rect
    explains("The window is there, as it was recorded.", SUCCESS)
    assert is_let_be()
    stage.probe.place(notepad.handle, 1, (300, 300, 900, 700))
    place = stage.probe.window(notepad.handle).rect
    explains("not in its place or its size. A run puts it back.", SUCCESS, row="2")
    assert is_let_be(), "nothing is sent or moved"

    edit, top = notepad.chain()
    deep = stage.job()
    deep.click(400, 400, deep.target([edit, dataclasses.replace(edit, class_name="Pane"), top]))
    explains("Pane", FAILED, path=stage.write(deep, "deep"))

    assert tsj("explain", job, "--row", "9") == USAGE
    stage.end(notepad.process)
    explains("'Untitled - Notepad' is not there", FAILED)
    (stage.folder / "Report 12.txt").write_text("x")
    stage.start("notepad.exe", stage.wine.windows_path(stage.folder / "Report 12.txt"))
    assert wait_for(lambda: stage.probe.find("Notepad", "Report 12.txt - Notepad", visible=True))
    explains("its title is now 'Report 12.txt - Notepad', recorded was 'Untitled - Notepad'.", FAILED)
