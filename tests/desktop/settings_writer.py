"""Writes settings.binary as the program does: the options of a user who changed nothing, hotkeys and schedules."""

import struct

COUNT_AT, RECORD = 2638, 1366
DAILY, ENABLED, RUNNING = 1, -1, -100
NAME_AT, NAME_WIDTH = 4, 256
LAST_RESULT_AT = 846  # in a record: behind last_run


def text(value, width):
    return value.encode("cp1252").ljust(width)


def daily(name, start, job):
    """A daily schedule; `start` is a time of day, `job` a path."""
    record = struct.pack("<i", DAILY) + text(name, NAME_WIDTH) + text("", 10) + text(start, 8)
    record += struct.pack("<4i", 0, 0, 0, 0) + text(job, 512) + struct.pack("<h", ENABLED) + text("", 19) + text("", 19)
    record += struct.pack("<i", 0) + text(f"{job[:-4]}.log", 512) + struct.pack("<i", 0)
    assert len(record) == RECORD
    return record


def hotkey(modifiers, letter, job):
    """`job` is a path."""
    return struct.pack("<ih", modifiers, ord(letter)) + text(job, 512)


def settings(schedules=(), hotkeys=()):
    front = struct.pack("<3i", 306, 3000, 3000) + struct.pack("<5i", 0, 0, 0, 0, 0) + struct.pack("<3i", 1, 1, 3)
    front += struct.pack("<h4i", -1, 0, 0, 0, 1) + text("", 5 * 512) + struct.pack("<3i", 0, 0, 1)
    front += struct.pack("<i", len(hotkeys))
    assert len(front) == COUNT_AT
    return front + b"".join(hotkeys) + struct.pack("<i", len(schedules)) + b"".join(schedules)


def record_at(data, index):
    start = COUNT_AT + 4 + index * RECORD
    return data[start:start + RECORD]


def names_in(data):
    """The names of the schedules in a settings.binary; fails for one that is cut."""
    count = struct.unpack_from("<i", data, COUNT_AT)[0]
    records = [record_at(data, index) for index in range(count)]
    assert all(len(record) == RECORD for record in records), "cut"
    return [record[NAME_AT:NAME_AT + NAME_WIDTH].decode("cp1252").rstrip() for record in records]


def last_result(data, index):
    return struct.unpack_from("<i", record_at(data, index), LAST_RESULT_AT)[0]
