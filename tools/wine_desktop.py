"""A Windows desktop of its own: an X display, a Wine prefix and a Wine server, started and ended together.

    with WineDesktop("name") as desktop:
        desktop.start("notepad.exe")
        desktop.screenshot("picture.png")

What it starts, it ends, by its own process ids and its own prefix. Should this process be killed, the display goes with
it and takes the programs along, and the next desktop clears away what is left. Programs are 64-bit and come from the
package wine64 alone.
"""

import contextlib
import ctypes
import fcntl
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from monitors import display_size, set_monitors

ROOT = Path(__file__).resolve().parent.parent
OUT = ROOT / "out"
LOADER = "/usr/lib/wine/wine64"
SERVER = "/usr/lib/wine/wineserver64"
SIZE = (1280, 1024)
PR_SET_PDEATHSIG = 1


def _die_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def _alive(pid):
    try:
        os.kill(pid, 0)
    except ProcessLookupError:
        return False
    except PermissionError:
        pass
    return True


def _at_work(process):
    """Whether a thread of it runs, would if there were a processor for it, or waits for the disk."""
    for thread in process.glob("task/*/stat"):
        with contextlib.suppress(OSError):
            if thread.read_bytes().rpartition(b")")[2].split()[0] in (b"R", b"D"):
                return True
    return False


class WineDesktop:
    """The prefix lies in a folder of its own, out/desktop/NAME-PID. With `display` an existing X display is used. With
    `monitors` (rectangles, the first one that of the primary monitor, with its corner at 0, 0) the desktop has those;
    its windows then stand on the display by themselves, for a whole desktop in one X window has one monitor. At more
    than 96 `dpi` the desktop grows in proportion."""

    def __init__(self, name, display=None, monitors=None, dpi=96):
        self.folder = OUT / "desktop" / f"{name}-{os.getpid()}"
        self.prefix = self.folder / "prefix"
        self.drive_c = self.prefix / "drive_c"
        self._own_display = display is None
        self._monitors = monitors
        self._held_display = None
        self._dpi = dpi
        self._size = tuple(length * dpi // 96 for length in SIZE)
        self.display = display
        self._xvfb = None
        self._programs = []

    def __enter__(self):
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        try:
            if self._own_display:
                self._start_display()
            self._make_prefix()
            if self._monitors:
                self._use_monitors()
            if self._dpi != 96:
                self._use_dpi()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    # --- programs ---

    def environment(self):
        environment = {key: value for key, value in os.environ.items() if not key.startswith("WINE")}
        environment.update(
            DISPLAY=self.display,
            WINEPREFIX=str(self.prefix),
            WINELOADER=LOADER,
            WINESERVER=SERVER,
            WINEDEBUG="-all",
            WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe=",
            LC_ALL="C.UTF-8",
        )
        return environment

    def start(self, *command, **options):
        """Starts a program and returns its Popen. A path is a Windows path, a name of the system folder, or a Path."""
        program = subprocess.Popen(
            [LOADER, *map(self._windows_word, command)],
            env=self.environment(),
            stdin=options.pop("stdin", subprocess.DEVNULL),
            stdout=options.pop("stdout", subprocess.DEVNULL),
            stderr=options.pop("stderr", subprocess.DEVNULL),
            **options,
        )
        self._programs.append(program)
        return program

    def run(self, *command, timeout=60):
        """Runs a program to its end and returns its exit code."""
        return self.start(*command).wait(timeout)

    def settles(self, seconds=2):
        """Returns when no program of this desktop, and not the display, has had anything to do for three looks on end,
        or when the time is over: some programs are never at rest."""
        end = time.monotonic() + seconds
        quiet = 0
        while quiet < 3 and time.monotonic() < end:
            time.sleep(0.01)
            quiet = 0 if any(map(_at_work, self._processes())) else quiet + 1

    def _processes(self):
        """Their folders in /proc: all programs, those that others have started and Wine's own included."""
        mark = f"WINEPREFIX={self.prefix}\0".encode()
        found = [Path(f"/proc/{self._xvfb.pid}")] if self._xvfb else []
        for folder in Path("/proc").glob("[0-9]*"):
            with contextlib.suppress(OSError):
                if mark in (folder / "environ").read_bytes():
                    found.append(folder)
        return found

    @staticmethod
    def _windows_word(word):
        return "Z:" + str(word.resolve()).replace("/", "\\") if isinstance(word, Path) else word

    def windows_path(self, path):
        """The Windows path of a file below this prefix's drive C, or of any other file."""
        path = Path(path).resolve()
        if path.is_relative_to(self.drive_c):
            return "C:\\" + str(path.relative_to(self.drive_c)).replace("/", "\\")
        return "Z:" + str(path).replace("/", "\\")

    def screenshot(self, path):
        path = Path(path)
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(
            ["import", "-display", self.display, "-window", "root", str(path)],
            check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )
        return path

    # --- life ---

    def _use_monitors(self):
        self._held_display = set_monitors(self.display, self._monitors)
        self._run_checked("reg.exe", "delete", "HKCU\\Software\\Wine\\Explorer", "/v", "Desktop", "/f")
        # Wine asks RandR for outputs, of which a virtual display has one; Xinerama tells the monitors.
        self._run_checked("reg.exe", "add", "HKCU\\Software\\Wine\\X11 Driver", "/v", "UseXRandR", "/d", "N", "/f")
        self._end_server()

    def _use_dpi(self):
        for key in ("HKCU\\Control Panel\\Desktop", "HKCC\\Software\\Fonts"):
            self._run_checked("reg.exe", "add", key, "/v", "LogPixels", "/t", "REG_DWORD", "/d", str(self._dpi), "/f")
        self._run_checked("reg.exe", "add", "HKCU\\Software\\Wine\\Explorer\\Desktops", "/v", "Default", "/d",
                          "%dx%d" % self._size, "/f")
        self._end_server()

    def _start_display(self):
        width, height = display_size(self._monitors) if self._monitors else self._size
        reader, writer = os.pipe()
        with open(os.devnull, "w") as nothing:
            self._xvfb = subprocess.Popen(
                ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"],
                pass_fds=[writer], stdout=nothing, stderr=nothing, preexec_fn=_die_with_parent,
            )
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.display = ":" + number

    def _make_prefix(self):
        self._clear_leftovers()
        self.folder.mkdir(parents=True)
        template = self._template()
        # A copy of the template is a hundred times quicker than a new prefix.
        subprocess.run(["cp", "-a", str(template), str(self.prefix)], check=True)

    def _clear_leftovers(self):
        """Ends and removes what runs that were killed have left behind."""
        for folder in (OUT / "desktop").glob("*-*"):
            pid = folder.name.rpartition("-")[2]
            if folder == self.folder or (pid.isdigit() and not _alive(int(pid))):
                self._end_server(folder / "prefix")
                shutil.rmtree(folder, ignore_errors=True)

    def _template(self):
        """A prefix with the virtual desktop switched on, made once for this version of Wine and kept under out/."""
        version = subprocess.run([LOADER, "--version"], capture_output=True, text=True, check=True).stdout.strip()
        template = OUT / "wine" / f"template-3-{version}"
        template.parent.mkdir(parents=True, exist_ok=True)
        with open(template.parent / "lock", "w") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            if not template.exists():
                print("==> Preparing a Wine prefix (once)", flush=True)
                self._make_template(template)
        return template

    def _make_template(self, template):
        with tempfile.TemporaryDirectory(dir=template.parent, prefix="making-") as workshop:
            self.prefix = Path(workshop) / "prefix"
            try:
                self._run_checked("wineboot.exe", "--init")
                # Without this the programs' windows stand alone on the display, with no desktop, no taskbar and no
                # focus. The mode is chosen when the first program of a server starts, so the server is ended after it.
                explorer = "HKCU\\Software\\Wine\\Explorer"
                self._run_checked("reg.exe", "add", explorer, "/v", "Desktop", "/d", "Default", "/f")
                self._run_checked("reg.exe", "add", explorer + "\\Desktops", "/v", "Default", "/d",
                                  f"{SIZE[0]}x{SIZE[1]}", "/f")
                # A user who has chosen a language: the dialog of a first start would wait for somebody who does.
                self._run_checked("reg.exe", "add", "HKCU\\Software\\Tessarine", "/v", "Language", "/d", "en", "/f")
                self._end_server()
                # Debian's Wine does not find its own scalable fonts; the caption buttons need Marlett.
                for font in Path("/usr/share/wine/fonts").glob("*.ttf"):
                    shutil.copy(font, self.prefix / "drive_c" / "windows" / "Fonts")
                self._keep_out_of_the_home()
                os.rename(self.prefix, template)
            finally:
                self._end_server()
                self.prefix = self.folder / "prefix"

    def _keep_out_of_the_home(self):
        """Documents and its like are links into the user's own home: folders of the prefix take their place."""
        for folder in (self.prefix / "drive_c" / "users").glob("*/**/*"):
            if folder.is_symlink():
                folder.unlink()
                folder.mkdir()

    def _run_checked(self, *command):
        code = self.run(*command, timeout=180)
        if code != 0:
            raise RuntimeError(f"{command[0]} ended with {code}")

    def _end_server(self, prefix=None):
        prefix = prefix or self.prefix
        if prefix.exists():
            environment = {**self.environment(), "WINEPREFIX": str(prefix)}
            for command in ("-k", "-w"):
                subprocess.run([SERVER, command], env=environment, stderr=subprocess.DEVNULL, timeout=30)

    def close(self):
        if self.display is not None:
            self._end_server()
        for program in self._programs:
            try:
                program.wait(5)
            except subprocess.TimeoutExpired:
                program.kill()
                program.wait()
        self._programs.clear()
        if self._held_display is not None:
            self._held_display.close()
            self._held_display = None
        if self._xvfb is not None:
            self._xvfb.terminate()
            self._xvfb.wait()
            self._xvfb = None
        shutil.rmtree(self.folder, ignore_errors=True)


def wait_for(question, seconds=20, pause=0.05):
    """Asks until the answer is true or not None, and returns it; the last answer after `seconds`."""
    end = time.monotonic() + seconds
    while True:
        answer = question()
        if answer or time.monotonic() > end:
            return answer
        time.sleep(pause)
