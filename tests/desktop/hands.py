"""A person's hands: input from outside, through the X server."""

import time

from Xlib import XK, X, display
from Xlib.ext import xtest


class Hands:
    def __init__(self, name):
        self._display = display.Display(name)

    def _send(self, kind, detail=0, x=0, y=0):
        xtest.fake_input(self._display, kind, detail, x=x, y=y)
        self._display.sync()

    def _code(self, name):
        return self._display.keysym_to_keycode(XK.string_to_keysym(name))

    def move(self, x, y):
        self._send(X.MotionNotify, x=x, y=y)

    def press(self, name):
        self._send(X.KeyPress, self._code(name))

    def release(self, name):
        self._send(X.KeyRelease, self._code(name))

    def tap(self, name, ms=10):
        self.press(name)
        time.sleep(ms / 1000)
        self.release(name)

    def button(self, number, down):
        self._send(X.ButtonPress if down else X.ButtonRelease, number)

    def wheel(self, up):
        self._send(X.ButtonPress, 4 if up else 5)
        self._send(X.ButtonRelease, 4 if up else 5)

    def click(self, x, y, button=1):
        self.move(x, y)
        time.sleep(0.05)
        self._send(X.ButtonPress, button)
        time.sleep(0.03)
        self._send(X.ButtonRelease, button)
        time.sleep(0.05)
