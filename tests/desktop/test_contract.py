"""The contract of the platform layer, run against the real one."""

import re

from wine_desktop import OUT


def test_the_platform_keeps_its_contract(wine):
    executable = OUT / "build" / "windows" / "tests" / "platform" / "platform_contract.exe"
    report = OUT / "test" / "contract.txt"
    report.parent.mkdir(parents=True, exist_ok=True)
    with open(report, "wb") as output:
        code = wine.start(executable, stdout=output, stderr=output).wait(300)
    text = report.read_text("latin-1")
    assert code == 0, text[-4000:]
    assert int(re.search(r"\[  PASSED  \] (\d+) test", text)[1]) > 20
