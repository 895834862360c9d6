"""Makes job files byte by byte. It shares no code with the program, so that the two check each other."""

import struct

MOVE, LEFT_DOWN, LEFT_UP, RIGHT_DOWN, RIGHT_UP, WHEEL = 0x8001, 0x8002, 0x8004, 0x8008, 0x8010, 0x8800
DOUBLE_CLICK = 221
NO_WINDOW = -0x0FFFFFFF  # 0xF0000001 as a signed word
HIGH, MEDIUM, LOW = 0, 1, 2
MAXIMUM_SPEED = 1001
STOP, SKIP, ANYWAY = 0, 1, 2

# Virtual keys and scan codes of a US keyboard, as far as the tests type.
SCAN = {"a": 30, "b": 48, "c": 46, "d": 32, "e": 18, "f": 33, "g": 34, "h": 35, "i": 23, "j": 36, "k": 37, "l": 38,
        "m": 50, "n": 49, "o": 24, "p": 25, "q": 16, "r": 19, "s": 31, "t": 20, "u": 22, "v": 47, "w": 17, "x": 45,
        "y": 21, "z": 44, " ": 57, "\n": 28, ".": 52, "1": 2, "2": 3, "3": 4}
VIRTUAL = {"\n": 13, " ": 32, ".": 190}
SHIFT, SHIFT_SCAN = 160, 42


def _text(value, size):
    return value.encode("cp1252").ljust(size, b" ")


class JobWriter:
    def __init__(self, speed=100, skip_moves=0, caps=0, repeat=1, safety=HIGH, similar=0, description="",
                 program="", parameters="", style=0, wait_for_window=10):
        self.options = (speed, skip_moves, caps, repeat, safety, similar)
        self.description = description
        self.program = (program, parameters, style)
        self.strings, self.events, self.windows, self.chains = [], [], [], []
        self.now = 0
        self.wait_for_window = wait_for_window
        self.if_no_window = STOP

    # --- windows ---

    def target(self, chain):
        """Stores a chain of windows as the probe gives it, and returns its index."""
        path = []
        for window in chain:
            place = window.placement
            record = struct.pack("<3I8i", 0, place["flags"], place["show"], *place["min"], *place["max"],
                                 *place["normal"])
            record += _text(window.caption.strip(), 1024) + _text(window.class_name, 100)
            record += struct.pack("<i", window.control_id)
            if record not in self.windows:
                self.windows.append(record)
            path.append(self.windows.index(record))
        padded = path + [0] * (256 - len(path))
        self.chains.append(struct.pack("<258i", path[0], *padded, len(path) - 1))
        return len(self.chains) - 1

    # --- events ---

    def pause(self, ms):
        self.now += ms

    def _event(self, words, chain, waits):
        wait = self.wait_for_window if waits else 0
        self.events.append(struct.pack("<9iB", *words, chain, wait, self.if_no_window if waits else 0))

    def mouse(self, flags, x, y, data=0, chain=NO_WINDOW):
        self._event((0, x, y, data, flags, self.now, 0), chain, chain != NO_WINDOW)

    def key(self, virtual_key, scan, state, chain=NO_WINDOW):
        self._event((1, scan * 65536 + virtual_key, state, self.now, 0, 0, 0), chain, chain != NO_WINDOW)

    def text_row(self, text, chain, takes=0):
        """A text row; `takes` ms of text continuation follow it."""
        self.strings.append(text)
        number = len(self.strings)
        self._event((2, 0, 0, self.now, 0, 0, number), chain, True)
        if takes:
            self.now += takes
            self._event((4, 0, 0, self.now, 0, 0, number), NO_WINDOW, False)

    def move(self, x, y, gap=15):
        self.mouse(MOVE, x, y)
        self.now += gap

    def click(self, x, y, chain):
        self.move(x, y)
        self.mouse(LEFT_DOWN, x, y, chain=chain)
        self.now += 60
        self.mouse(LEFT_UP, x, y)
        self.now += 150

    def double_click(self, x, y, chain):
        self.move(x, y)
        self.mouse(DOUBLE_CLICK, x, y, chain=chain)
        self.now += 300

    def drag(self, start, end, chain, steps=8):
        self.move(*start)
        self.mouse(LEFT_DOWN, *start, chain=chain)
        for step in range(1, steps + 1):
            self.now += 20
            self.mouse(MOVE, start[0] + (end[0] - start[0]) * step // steps,
                       start[1] + (end[1] - start[1]) * step // steps)
        self.now += 60
        self.mouse(LEFT_UP, *end)
        self.now += 150

    def wheel(self, x, y, delta, chain):
        self.mouse(WHEEL, x, y, data=delta, chain=chain)
        self.now += 60

    def type(self, text, chain, gap=40):
        """Raw key events; a capital is typed with the left Shift key held."""
        for character in text:
            shifted = character.isupper()
            low = character.lower()
            virtual = VIRTUAL.get(low, ord(low.upper()))
            if shifted:
                self.key(SHIFT, SHIFT_SCAN, 0, chain)
                self.now += gap // 2
            self.key(virtual, SCAN[low], 0, chain)
            self.now += gap // 2
            self.key(virtual, SCAN[low], 2)
            self.now += gap // 2
            if shifted:
                self.key(SHIFT, SHIFT_SCAN, 2)
                self.now += gap // 2

    # --- the file ---

    def bytes(self):
        program, parameters, style = self.program
        speed = self.options[0]
        last = self.events[-1] if self.events else None
        duration = 0
        if last:
            words = struct.unpack("<9iB", last)
            duration = round((words[5] if words[0] == 0 else words[3]) * 100 / speed)
        parts = [struct.pack("<i", 300), _text(program, 800), _text(parameters, 300), struct.pack("<h", style),
                 _text(self.description, 1000), struct.pack("<i", duration), struct.pack("<6i", *self.options),
                 struct.pack("<ii", len(self.events), len(self.strings))]
        for text in self.strings:
            encoded = text.encode("cp1252")
            parts += [struct.pack("<H", len(encoded)), encoded]
        parts += self.events
        parts += [struct.pack("<i", len(self.windows)), *self.windows]
        parts += [struct.pack("<i", len(self.chains)), *self.chains]
        return b"".join(parts)

    def write(self, path):
        path.write_bytes(self.bytes())
        return path
