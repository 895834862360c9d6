"""What a killed program held down comes up by itself: the guard.

The number of kills comes from KILLS, 10 when it is not set:

    KILLS=100 python3 -m pytest -s tests/desktop/test_guard.py -k kill
"""

import os
import random
import signal
import time
from pathlib import Path

from job_writer import LEFT_DOWN, LEFT_UP, LOW, RIGHT_DOWN, RIGHT_UP, SCAN
from stage import MIDDLE
from wine_desktop import wait_for

KILLS = int(os.environ.get("KILLS", "10"))
MIDDLE_DOWN, MIDDLE_UP = 0x8020, 0x8040
MODIFIERS = ((160, 42, 0), (161, 54, 1), (162, 29, 0), (163, 29, 1))  # virtual key, scan code, extended
BUTTONS = ((LEFT_DOWN, LEFT_UP), (RIGHT_DOWN, RIGHT_UP), (MIDDLE_DOWN, MIDDLE_UP))


def random_job(stage, seed):
    """Keys and buttons go down and up on their own, three or so at a time, for a minute."""
    dice = random.Random(seed)
    job = stage.job(safety=LOW)
    keys = [(ord(letter.upper()), SCAN[letter], 0) for letter in "abcdefgh"] + list(MODIFIERS)
    held = []
    job.move(*MIDDLE)
    while job.now < 60_000:
        if len(held) > 5 or held and dice.random() < 0.45:
            up = held.pop(dice.randrange(len(held)))
            if len(up) == 3:
                job.key(up[0], up[1], 2 + up[2])
            else:
                job.mouse(up[1], *MIDDLE)
        else:
            down = dice.choice(keys if dice.random() < 0.8 else BUTTONS)
            if down in held:
                continue
            held.append(down)
            if len(down) == 3:
                job.key(down[0], down[1], down[2])
            else:
                job.mouse(down[0], *MIDDLE)
        job.pause(dice.randrange(5, 60))
    return job


def guards(stage):
    """The process ids of this desktop's guards."""
    found = []
    for process in Path("/proc").iterdir():
        try:
            if b"tessarine.exe" in (words := (process / "cmdline").read_bytes()) and b"-guard" in words:
                if os.fsencode(str(stage.wine.prefix)) in (process / "environ").read_bytes():
                    found.append(int(process.name))
        except (OSError, ValueError):
            continue  # gone by now, or no process
    return found


def keys_down(stage):
    return stage.probe.ask("keys")


def test_nothing_stays_down_after_a_kill(stage):
    stage.notepad()
    dice = random.Random(8)
    had_something_down = 0
    stayed = {}
    for kill in range(KILLS):
        program = stage.tessarine("-run", stage.write(random_job(stage, kill)))
        assert wait_for(lambda: keys_down(stage), 30, 0.01), "the run has begun"
        time.sleep(dice.uniform(0, 1.5))
        had_something_down += bool(keys_down(stage))
        os.kill(program.pid, signal.SIGKILL)
        time.sleep(1)
        if down := keys_down(stage):
            stayed[kill] = down
        program.wait(10)
    print(f"{KILLS} kills, {had_something_down} of them with something down; down after a second: {stayed}")
    assert had_something_down > KILLS / 2
    assert stayed == {}
    assert wait_for(lambda: guards(stage) == [], 10), "a guard ends with its program"


def holding_job(stage):
    job = stage.job(safety=LOW)
    job.move(*MIDDLE)
    job.pause(1500)  # when the focus moves, the display lets go of modifiers that are not held by hand
    job.mouse(MIDDLE_DOWN, *MIDDLE)
    job.key(160, 42, 0)
    job.pause(60_000)
    job.key(160, 42, 2)
    return job


def holds(stage):
    """The left Shift key, which is also a Shift key, and the middle button."""
    return wait_for(lambda: {4, 160} <= set(keys_down(stage)))


def test_without_a_guard_they_stay_down_and_a_second_run_gets_a_second_guard(stage):
    """The first half shows that the test sees what it looks for."""
    stage.notepad()
    path = stage.write(holding_job(stage))
    program = stage.tessarine("-run", path)
    assert holds(stage)
    assert wait_for(lambda: len(guards(stage)) == 1)
    first = guards(stage)[0]
    assert stage.probe.find(caption="guard") is None
    os.kill(first, signal.SIGKILL)
    assert wait_for(lambda: guards(stage) == [])
    stage.hands.tap("Escape", 100)  # asking for all keys, as below, takes the mark of a shorter tap away
    assert wait_for(lambda: keys_down(stage) == []), (keys_down(stage), stage.status_lines())
    assert wait_for(lambda: (lines := stage.status_lines()) and "Execution of job was canceled by user" in lines)

    stage.tessarine("-run", path)  # handed over to the first
    assert holds(stage)
    assert wait_for(lambda: len(guards(stage)) == 1), "a second guard"
    os.kill(guards(stage)[0], signal.SIGKILL)
    stage.end(program)
    time.sleep(1)
    assert 4 in keys_down(stage), "nobody is left to release it"  # the display may let go of Shift as the focus moves
    stage.hands.button(2, True)
    stage.hands.button(2, False)
    stage.hands.tap("Shift_L", 100)
    assert wait_for(lambda: keys_down(stage) == []), keys_down(stage)

    program = stage.tessarine("-run", path)
    assert holds(stage)
    assert wait_for(lambda: len(guards(stage)) == 1)
    stage.end(program)
    assert wait_for(lambda: keys_down(stage) == [], 1), keys_down(stage)


def test_a_guard_idles_while_the_program_lives(stage):
    """One for all runs, with no window and next to no work, and gone as soon as the program has ended."""
    stage.notepad()
    job = stage.job(safety=LOW)
    job.mouse(MIDDLE_DOWN, *MIDDLE)
    job.mouse(MIDDLE_UP, *MIDDLE)
    path = stage.write(job)
    failing = stage.job()
    failing.wait_for_window = 0
    missing = stage.probe.find("Notepad", visible=True)
    failing.click(400, 300, failing.target([missing.__class__(**{**missing.__dict__, "caption": "No such window"})]))
    program = stage.tessarine("-run", stage.write(failing, "failing"))
    assert wait_for(lambda: (lines := stage.status_lines()) and lines[0].startswith("Execution of job failed"))
    assert wait_for(lambda: len(guards(stage)) == 1)
    guard = guards(stage)[0]
    time.sleep(2)  # it has come up
    known = {window.process for window in stage.probe.windows()}
    spent = Path(f"/proc/{guard}/stat").read_text().split()[13:15]
    stage.tessarine("-run", path)  # handed over
    time.sleep(2)
    assert guards(stage) == [guard]
    assert Path(f"/proc/{guard}/stat").read_text().split()[13:15] == spent, "no processor time"
    assert {window.process for window in stage.probe.windows()} == known, "no window of another process"
    stage.end(program)
    assert wait_for(lambda: guards(stage) == [], 2)
