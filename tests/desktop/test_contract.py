"""The contract of the platform layer, run against the real one."""

import re

from wine_desktop import OUT


def keeps_contract(desktop, name, *words):
    """How many tests have passed, and the whole report, which lies in out/test/NAME.txt, too."""
    report = OUT / "test" / f"{name}.txt"
    report.parent.mkdir(parents=True, exist_ok=True)
    executable = OUT / "build" / "windows" / "tests" / "platform" / "platform_contract.exe"
    with open(report, "wb") as output:
        code = desktop.start(executable, *words, stdout=output, stderr=output).wait(300)
    text = report.read_text("latin-1")
    assert code == 0, text[-4000:]
    return int(re.search(r"\[  PASSED  \] (\d+) test", text)[1]), text


def test_the_platform_keeps_its_contract(wine):
    assert keeps_contract(wine, "contract")[0] > 20
