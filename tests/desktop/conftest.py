"""The stage of the desktop tests: a Wine desktop for each process that runs them, and hands and eyes for each test.

Input comes from outside, through the X server (XTest), as a person's does. What happened is read from the windows
themselves by the probe.
"""

import os
import re
import subprocess
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tools"), str(Path(__file__).resolve().parent)]

from editor import Editor  # noqa: E402
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


def taken_picture(wine, path):
    """Where it lies, or why there is none."""
    try:
        return str(wine.screenshot(path).relative_to(ROOT))
    except (OSError, subprocess.CalledProcessError) as failure:
        return f"could not be taken: {failure}"


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item, call):
    """Whatever fails tells where the picture of the desktop lies, as it was then."""
    outcome = yield
    report = outcome.get_result()
    wine = item.funcargs.get("wine")
    if report.failed and wine is not None:
        name = re.sub(r"[^\w.-]+", "_", f"{item.path.stem}.{item.name}.{call.when}").removesuffix(".call")
        report.sections.append(("Picture of the desktop", taken_picture(wine, OUT / "test" / f"{name}.png")))


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


@pytest.fixture
def editor(person):
    return Editor(person)
