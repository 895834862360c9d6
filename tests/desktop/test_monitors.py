"""A desktop of two monitors: the second one lies to the left of the primary one, so its coordinates are negative."""

import pytest
from hands import Hands
from job_writer import HIGH, LOW, MEDIUM
from probe import Probe
from stage import Stage
from test_contract import keeps_contract
from wine_desktop import OUT, WineDesktop

PRIMARY, LEFT = (0, 0, 1280, 1024), (-1024, 200, 0, 968)
ON_THE_LEFT = (-900, 300, -200, 700)


@pytest.fixture(scope="module")
def desktop():
    with WineDesktop("monitors", monitors=[PRIMARY, LEFT]) as desktop:
        yield desktop


@pytest.fixture
def stage(desktop):
    probe = Probe(desktop, OUT / "build" / "windows" / "tests" / "desktop" / "probe.exe")
    stage = Stage(desktop, probe, Hands(desktop.display), OUT / "windows" / "tessarine.exe")
    yield stage
    stage.clear()
    probe.close()


def test_the_contract_of_moves_and_clicks(desktop):
    passed, text = keeps_contract(desktop, "contract_monitors", "--gtest_filter=Input.AMove*:Input.AClick*")
    assert passed == 4
    assert "Clicked on 2 monitors." in text


@pytest.mark.parametrize("level", [HIGH, MEDIUM, LOW])
def test_a_job_on_the_left_monitor(stage, level):
    notepad = stage.notepad()
    stage.probe.place(notepad.handle, 1, ON_THE_LEFT)
    text = "many words\n" * 60
    notepad.set_text(text)
    word = notepad.character(0)
    assert word[0] < 0
    job = stage.job(safety=level)
    edit = job.target(notepad.chain())
    job.click(word[0] + 4, word[1], edit)
    job.pause(700)  # the first press may come late, and must not pair with the next
    job.double_click(word[0] + 4, word[1], edit)
    job.type("some ", edit)
    for _ in range(5):
        job.wheel(*word, -120, edit)
    assert stage.run(stage.write(job)) == 0
    assert notepad.holds("some words\n" + "many words\n" * 59)
    assert notepad.first_line() > 0, "the wheel has turned"
