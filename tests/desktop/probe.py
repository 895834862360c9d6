"""What is seen on the desktop, read from the windows themselves by probe.exe."""

import json
import subprocess
from dataclasses import dataclass


@dataclass(frozen=True)
class Window:
    handle: int
    parent: int
    class_name: str
    caption: str
    control_id: int
    rect: tuple
    visible: bool
    enabled: bool
    process: int
    exstyle: int
    placement: dict


def _window(record):
    return Window(record["handle"], record["parent"], record["class"], record["caption"], record["id"],
                  tuple(record["rect"]), record["visible"], record["enabled"], record["process"],
                  record["exstyle"], record["placement"])


class Probe:
    def __init__(self, desktop, executable):
        self._process = desktop.start(executable, stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, *words):
        line = " ".join(str(word) for word in words) + "\n"
        self._process.stdin.write(line.encode("latin-1"))
        self._process.stdin.flush()
        return json.loads(self._process.stdout.readline())

    def close(self):
        self._process.stdin.close()
        self._process.stdout.close()

    def windows(self):
        return [_window(record) for record in self.ask("windows")]

    def find(self, class_name=None, caption=None, parent=None, visible=None):
        """The topmost window that fits, or None."""
        for window in self.windows():
            if ((class_name is None or window.class_name == class_name)
                    and (caption is None or window.caption == caption)
                    and (parent is None or window.parent == parent)
                    and (visible is None or window.visible == visible)):
                return window
        return None

    def window(self, handle):
        return next((window for window in self.windows() if window.handle == handle), None)

    def chain(self, handle):
        """The window and its parents, innermost first."""
        known = {window.handle: window for window in self.windows()}
        chain = []
        while handle:
            chain.append(known[handle])
            handle = known[handle].parent
        return chain

    def text(self, handle):
        return self.ask("text", handle)

    def set_text(self, handle, text):
        return self.ask("settext", handle, text.replace("\n", "\\n"))

    def list_lines(self, handle):
        count = self.ask("send", handle, 0x18B, 0, 0)  # LB_GETCOUNT
        return [self.ask("line", handle, index) for index in range(count)]

    def place(self, handle, show, rect):
        return self.ask("place", handle, show, *rect)
