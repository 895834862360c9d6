"""Random work in Notepad, recorded and played by the real program. More of it: tools/random_sessions.sh."""

import os

from random_sessions import differences

FROM, SESSIONS = int(os.environ.get("TESSARINE_FROM", 1)), int(os.environ.get("TESSARINE_SESSIONS", 3))


def test_random_sessions_are_replayed_as_they_were(stage, person):
    found = []
    for difference in differences(stage, person, range(FROM, FROM + SESSIONS)):
        print(difference, flush=True)
        found.append(difference)
    assert not found, f"{len(found)} of {SESSIONS * 4} replays"
