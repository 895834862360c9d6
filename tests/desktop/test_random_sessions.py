"""Random work in Notepad, recorded and played by the real program. More of it: tools/random_sessions.sh."""

import os

import pytest
from random_sessions import differences

FROM, SESSIONS = int(os.environ.get("TESSARINE_FROM", 1)), int(os.environ.get("TESSARINE_SESSIONS", 3))


@pytest.mark.parametrize("seed", range(FROM, FROM + SESSIONS))
def test_a_random_session_is_replayed_as_it_was(stage, person, seed):
    found = list(differences(stage, person, seed))
    assert not found, "\n".join(found)
