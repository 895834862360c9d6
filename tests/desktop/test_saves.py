"""Saves that others are in the way of, for real: busy readers and locks.

save_stress.exe does it and counts; here it is judged.
"""

from wine_desktop import OUT

EXECUTABLE = OUT / "build" / "windows" / "tests" / "desktop" / "save_stress.exe"
REPORT = OUT / "test" / "saves.txt"


def stress(wine):
    folder = wine.drive_c / "saves"
    folder.mkdir()
    REPORT.parent.mkdir(parents=True, exist_ok=True)
    words = REPORT.with_suffix(".failures.txt")
    with open(REPORT, "wb") as output, open(words, "wb") as errors:
        code = wine.start(EXECUTABLE, wine.windows_path(folder), stdout=output, stderr=errors).wait(200)
    report = REPORT.read_text()
    assert code == 0, report + words.read_text("latin-1")
    return {name: int(number) for name, number in map(str.split, report.splitlines())}, report


def test_saves_under_pressure(wine):
    counts, report = stress(wine)
    assert counts["saves"] >= 400 and counts["save_failures"] == 0, report
    assert counts["reads"] >= 400, report
    assert counts["locks"] == 100, report
    assert counts["saves_that_waited"] >= 60, "the locks were in the way of saves\n" + report
    assert counts["torn"] == counts["missing"] == counts["shrunk"] == 0, report
