"""The stage of the desktop tests: one Wine desktop for all of them, and hands and eyes for each.

Input comes from outside, through the X server (XTest), as a person's does. What happened is read from the windows
themselves by the probe.
"""

import os
import re
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tools"), str(Path(__file__).resolve().parent)]

from hands import Hands  # noqa: E402
from person import Person  # noqa: E402
from probe import Probe  # noqa: E402
from stage import Stage  # noqa: E402
from wine_desktop import OUT, WineDesktop  # noqa: E402

BUILD = OUT / "build" / "windows"


@pytest.fixture(scope="session")
def wine():
    with WineDesktop("tests", dpi=int(os.environ.get("DPI", "96"))) as desktop:
        yield desktop


@pytest.fixture(scope="session")
def probe(wine):
    probe = Probe(wine, BUILD / "tests" / "desktop" / "probe.exe")
    yield probe
    probe.close()


@pytest.fixture(scope="session")
def hands(wine):
    return Hands(wine.display)


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    outcome = yield
    if call.when == "call" and outcome.get_result().failed and "stage" in item.fixturenames:
        name = re.sub(r"[^\w.-]+", "_", item.name)
        item.funcargs["stage"].wine.screenshot(OUT / "test" / f"{name}.png")


@pytest.fixture
def stage(wine, probe, hands):
    """A cleared desktop; what a test started is gone after it."""
    stage = Stage(wine, probe, hands, OUT / "windows" / "tessarine.exe")
    yield stage
    stage.clear()


@pytest.fixture
def person(stage):
    person = Person(stage)
    yield person
    person.leave()
