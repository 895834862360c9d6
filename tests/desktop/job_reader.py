"""Reads a job file by the tables of docs/job_format.md. It shares no code with the program, nor with job_writer."""

import struct
from dataclasses import dataclass
from pathlib import Path

MOUSE, KEY = 0, 1
MOVE, LEFT_DOWN, LEFT_UP = 0x8001, 0x8002, 0x8004
NO_WINDOW = 0xF0000001 - (1 << 32)


@dataclass
class Event:
    type: int
    words: tuple  # six, by type
    chain: int
    wait: int
    if_no_window: int

    @property
    def time(self):
        return self.words[4] if self.type == MOUSE else self.words[2]

    @property
    def flags(self):
        return self.words[3]

    @property
    def virtual_key(self):
        return self.words[0] % 65536

    @property
    def key_state(self):
        return self.words[1]


class JobFile:
    """The fields of the header by their names, and four lists. A window is (caption, class, control id), a chain the
    numbers of its windows, target first."""

    def __init__(self):
        self.strings, self.events, self.windows, self.chains = [], [], [], []

    def keys(self):
        """(virtual key, state) of every key event."""
        return [(event.virtual_key, event.key_state) for event in self.events if event.type == KEY]

    def targets(self):
        """The captions of the outermost windows that events were aimed at."""
        return {self.windows[self.chains[event.chain][-1]][0] for event in self.events if event.chain >= 0}


def _text(raw):
    return raw.decode("cp1252").strip(" \0")


def read_job(path):
    data = Path(path).read_bytes()
    place = 0

    def take(layout):
        nonlocal place
        values = struct.unpack_from("<" + layout, data, place)
        place += struct.calcsize("<" + layout)
        return values

    job = JobFile()
    version, program, parameters, job.style, description = take("i800s300sh1000s")
    job.version, job.program, job.parameters = version, _text(program), _text(parameters)
    job.description = _text(description)
    job.duration, job.speed, job.skip_moves, job.caps, job.repeat, job.safety, job.similar = take("7i")
    event_count, string_count = take("2i")
    for _ in range(string_count):
        (length,) = take("H")
        job.strings.append(take(f"{length}s")[0].decode("cp1252"))
    for _ in range(event_count):
        kind, *rest = take("9iB")
        job.events.append(Event(kind, tuple(rest[:6]), *rest[6:]))
    for _ in range(take("i")[0]):
        *_, caption, name, control = take("3I8i1024s100si")
        job.windows.append((_text(caption), _text(name), control))
    for _ in range(take("i")[0]):
        leaf, *path_and_depth = take("258i")
        chain = path_and_depth[:path_and_depth[256] + 1]
        assert chain[0] == leaf
        job.chains.append(chain)
    assert place == len(data), "nothing stands behind the last chain"
    return job
