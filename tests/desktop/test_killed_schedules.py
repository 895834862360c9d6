"""The program is killed while it begins, plays or ends a scheduled run: the settings stay whole.

The number of kills comes from KILLS, 3 when it is not set:

    KILLS=200 python3 -m pytest -s tests/desktop/test_killed_schedules.py
"""

import datetime
import os
import random
import signal
import time

from settings_writer import RUNNING, daily, last_result, names_in, settings

KILLS = int(os.environ.get("KILLS", "3"))
SCHEDULES = 20
AHEAD = 3  # seconds: enough for the start of the program


def test_settings_stay_whole_whenever_the_program_is_killed(stage, person):
    dice = random.Random(9)
    job = stage.job()
    job.move(100, 100)
    job.pause(300)
    job.move(110, 100)
    path = person.folder / "job.tsj"
    job.write(path)
    file = person.folder / "settings.binary"
    names = [f"schedule {n}" for n in range(SCHEDULES)]
    under_way = ended = 0
    for kill in range(KILLS):
        now = datetime.datetime.now()
        due = (now + datetime.timedelta(seconds=AHEAD + 1)).replace(microsecond=0)
        starts = [due] + [due + datetime.timedelta(minutes=10 + n) for n in range(SCHEDULES - 1)]
        windows_path = stage.wine.windows_path(path)
        file.write_bytes(settings([daily(name, start.strftime("%H:%M:%S"), windows_path)
                                   for name, start in zip(names, starts)]))
        program = stage.tessarine("-startup")
        time.sleep(max(0, due.timestamp() - time.time()) + dice.uniform(-0.2, 2.2))
        os.kill(program.pid, signal.SIGKILL)
        program.wait(10)
        data = file.read_bytes()
        assert names_in(data) == names, f"after kill {kill}"
        result = last_result(data, 0)
        under_way += result == RUNNING
        ended += result == 1
    print(f"{KILLS} kills: {under_way} with the run under way, {ended} after it; no schedule was lost")
    again = person.start_program()
    assert stage.box() is None, "the settings are read as they are"
    assert again.poll() is None
