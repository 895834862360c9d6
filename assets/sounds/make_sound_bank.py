"""Writes sounds.bin: the sound of the menu and those of keys, made here and now, the same bytes every time.

    python3 make_sound_bank.py sounds.bin

docs/job_format.md tells how the bank is laid out. The first sound is the menu's, all others are keys.
"""

import math
import random
import struct
import sys
from pathlib import Path

RATE = 22050  # samples a second, mono, 16 bits
ATTACK_MS = 4
RELEASE_MS = 8
KEYS = 6


def softened(samples):
    """Without a click at either end: both rise and fall as half a cosine."""
    attack, release = (RATE * ms // 1000 for ms in (ATTACK_MS, RELEASE_MS))
    last = len(samples) - 1

    def share(place, length):
        return 1.0 if place >= length else 0.5 - 0.5 * math.cos(math.pi * place / length)

    return [sample * share(place, attack) * share(last - place, release) for place, sample in enumerate(samples)]


def at_peak(samples, peak):
    largest = max(abs(sample) for sample in samples)
    return [sample * peak / largest for sample in samples]


def tone(hertz, ms, decay_ms, overtone):
    """A struck tone with a little of its fifth above the octave, dying away."""
    for place in range(RATE * ms // 1000):
        seconds = place / RATE
        ring = math.sin(2 * math.pi * hertz * seconds) + overtone * math.sin(2 * math.pi * 3 * hertz * seconds)
        yield ring * math.exp(-seconds * 1000 / decay_ms)


def rustle(chance, ms, decay_ms, smoothness):
    """Noise without its sharp half, dying away."""
    level = 0.0
    for place in range(RATE * ms // 1000):
        level += (chance.uniform(-1, 1) - level) * smoothness
        yield level * math.exp(-place / RATE * 1000 / decay_ms)


def menu_sound():
    return at_peak(softened(list(tone(660, 90, 22, 0.15))), 0.12)


def key_sound(number):
    """A dull knock with some rustle: each key a little higher and shorter than the one before."""
    chance = random.Random(number)
    ms = 48 - 3 * number
    knock = list(tone(180 + 23 * number, ms, 9, 0.3))
    noise = list(rustle(chance, ms, 6, 0.35))
    return at_peak(softened([a + 0.8 * b for a, b in zip(knock, noise)]), 0.10)


def wave(samples):
    data = struct.pack(f"<{len(samples)}h", *(round(sample * 32767) for sample in samples))
    form = struct.pack("<HHIIHH", 1, 1, RATE, 2 * RATE, 2, 16)
    chunks = b"".join(name + struct.pack("<I", len(body)) + body for name, body in ((b"fmt ", form), (b"data", data)))
    return b"RIFF" + struct.pack("<I", 4 + len(chunks)) + b"WAVE" + chunks


def bank():
    waves = [wave(menu_sound())] + [wave(key_sound(number)) for number in range(KEYS)]
    return struct.pack("<i", len(waves)) + b"".join(struct.pack("<i", len(each)) + each for each in waves)


if __name__ == "__main__":
    target = Path(sys.argv[1])
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(bank())
