"""The package: the same twice, installed and removed silently and by hand in four languages, over what is there and
what is at work; a double click on a job. Before an installation and after the removal the whole registry and the whole
disk are the same but for what is the user's.
"""

import contextlib
import os
import random
import re
import shutil
import subprocess
import time
import zipfile

import pytest
from wine_desktop import OUT, ROOT, wait_for

CLASSES = "Software\\Classes"
RUN_KEY = "Software\\Microsoft\\Windows\\CurrentVersion\\Run"
UNINSTALL_KEY = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"
OWN_KEY = "Software\\Tessarine"
IN_USE = 3
IDOK, IDRETRY = 1, 4
# What Wine keeps for itself, its note of the first console, and where it has the copy of an uninstaller for the next
# start, as Windows does for administrators.
RESTLESS = re.compile(r'"DriverDate|\\Software\\Wine\\|\\Console\]|"PendingFileRenameOperations"|\]   ')


def make_package(folder, **environment):
    subprocess.run(["/usr/bin/python3", ROOT / "tools" / "package.py", folder], check=True, cwd="/",
                   stdout=subprocess.DEVNULL, env={**os.environ, **environment})
    return folder


@pytest.fixture(scope="module")
def package(wine):
    """One for each process that runs these tests, as they may run at the same time."""
    return make_package(wine.folder / "package")


def bytes_in(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def test_two_packages_of_a_commit_are_the_same(wine, package):
    programs = OUT / "windows" / "tessarine.exe"
    os.utime(programs)  # as if it were built again
    again = make_package(wine.folder / "package again", TZ="Asia/Tokyo", LC_ALL="C", TMPDIR=str(wine.folder))
    assert bytes_in(again) == bytes_in(package)
    subprocess.run(["sha256sum", "--check", "--quiet", "--strict", "SHA256SUMS"], cwd=package, check=True)
    with zipfile.ZipFile(next(package.glob("*.zip"))) as portable:
        entry = next(entry for entry in portable.infolist() if entry.filename.endswith("/tessarine.exe"))
        assert portable.read(entry) == programs.read_bytes()
        assert len({entry.date_time for entry in portable.infolist()}) == 1


# --- before and after ---

class Installed:
    """What the installer makes of the desktop."""

    def __init__(self, person, package):
        self.stage, self.wine = person.stage, person.stage.wine
        self.setup = next(package.glob("*-setup.exe"))
        local = self.wine.drive_c / "users" / person.folder.parents[1].name / "AppData" / "Local"
        self.folder = local / "Programs" / "Tessarine"
        self.program = self.wine.windows_path(self.folder.parent) + "\\Tessarine\\tessarine.exe"
        with zipfile.ZipFile(next(package.glob("*.zip"))) as portable:
            self.files = {entry.filename.partition("/")[2]: portable.read(entry) for entry in portable.infolist()}

    def install(self):
        return self.wine.run(self.setup, "/S", timeout=60)

    def uninstaller(self, *words):
        return self.stage.start(self.wine.windows_path(self.folder) + "\\Uninstall.exe", *words)

    def start(self, *words):
        return self.stage.start(self.program, *words)

    def is_whole(self):
        found = {path.name: path.is_file() and path.read_bytes() for path in self.folder.glob("*")}
        return found.pop("Uninstall.exe", None) and found == self.files

    def program_files(self):
        return [name for name in self.files if (self.folder / name).exists()]

    def is_gone(self):
        return not self.folder.exists() and not list(self.wine.drive_c.glob("users/*/Temp/~nsu*"))


@pytest.fixture
def installed(person, package):
    """Removed with all that is the user's after the test, whatever has become of it."""
    installed = Installed(person, package)
    for key in (CLASSES, UNINSTALL_KEY):  # every Windows has them
        installed.wine.run("reg", "add", f"HKCU\\{key}", "/f")
    yield installed
    person.stage.clear()
    for window in person.probe.windows():  # a copy of the uninstaller that still waits for an answer
        if window.class_name == "#32770" and window.visible and not window.parent:
            installed.wine.run("taskkill", "/f", "/pid", str(window.process))
    if installed.folder.exists():
        installed.uninstaller("/S").wait(30)
        wait_for(installed.is_gone)
        shutil.rmtree(installed.folder, ignore_errors=True)
    person.speaks("en")


def registry(wine):
    """Every line of the registry, with its key in front."""
    wine.run("regedit.exe", "/E", "C:\\registry.txt", timeout=60)
    path = wine.drive_c / "registry.txt"
    lines, key = set(), ""
    for line in path.read_text("utf-16").splitlines():
        key = line if line.startswith("[") else key
        if not RESTLESS.search(f"{key} {line}"):
            lines.add(f"{key} {line}")
    path.unlink()
    return lines


def disk(wine):
    found = set()
    for folder, folders, files in os.walk(wine.drive_c):
        found.update(os.path.join(folder, name) for name in folders)
        for name in files:
            path = os.path.join(folder, name)
            status = os.lstat(path)
            found.add((path, status.st_size, status.st_mtime_ns // 100))  # as finely as Windows knows it
    return found


def everything(wine):
    return registry(wine) | disk(wine)


# --- silently ---

def test_silently_installed_repaired_and_removed(stage, person, installed):
    """What the user has stays, and nothing else does."""
    job = person.puts_job("mine")
    (person.folder / "notes.log").write_text("the user's own")
    person.puts_into_registry(OWN_KEY, "DataDir", stage.wine.windows_path(person.folder))
    person.puts_into_registry(CLASSES + "\\.tsj", "", "Somebody.Else")
    before = everything(stage.wine)

    assert installed.install() == 0
    assert installed.is_whole()
    (installed.folder / "tessarine.exe").write_bytes(b"damaged")
    (installed.folder / "sounds.bin").unlink()
    (installed.folder / "of the user.txt").write_text("stays")
    assert installed.install() == 0
    (installed.folder / "of the user.txt").unlink()
    assert installed.is_whole(), "repaired"

    person.puts_into_registry(RUN_KEY, "Tessarine", f'"{installed.program}" -startup')
    puts_shortcut_on_desktop(stage, person, installed, job)
    installed.uninstaller("/S").wait(30)
    assert wait_for(installed.is_gone, 30)
    assert everything(stage.wine) ^ before == set()
    person.forgets_key(CLASSES + "\\.tsj")


def puts_shortcut_on_desktop(stage, person, installed, job):
    """To a job, by the program's own menu."""
    installed.start()
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
    person.opens_page("job_page_lista_jobs")
    person.presses("Shift_L", "F10")
    person.presses("h")
    assert wait_for((person.desktop / f"{job.stem}.lnk").exists)
    stage.clear()


def test_nothing_changes_while_the_program_is_at_work(stage, person, installed):
    """A recording goes on; when it is over the program ends for the installer, and runs again after it."""
    assert installed.install() == 0
    program = installed.start()
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
    time.sleep(0.5)
    person.records_by_shortcut()
    (installed.folder / "sounds.bin").write_bytes(b"old")
    before = disk(stage.wine)
    assert installed.install() == IN_USE
    assert disk(stage.wine) == before
    installed.uninstaller("/S").wait(30)
    assert wait_for(lambda: not list(stage.wine.drive_c.glob("users/*/Temp/~nsu*")), 15)
    assert disk(stage.wine) == before
    assert person.sees("recording_Command1") and program.poll() is None
    person.clicks("recording_Command1")
    person.saves_job_as("work")
    first = stage.main_window().process
    assert installed.install() == 0
    assert installed.is_whole() and program.wait(10) == 0
    assert (person.folder / "settings.binary").exists(), "ended as by its own Exit"
    assert wait_for(lambda: stage.main_window() and stage.main_window().process != first), "it ran, so it runs again"
    ends(stage)


def ends(stage):
    """Whatever has started the program, as the installer's request would."""
    stage.probe.ask("post", stage.main_window().handle, 0x16, 1, 1)  # WM_ENDSESSION
    assert wait_for(lambda: not stage.main_window())


def test_all_files_are_replaced_or_none(stage, installed):
    """One of them cannot be: those before it come back. Then installations that are killed at any moment."""
    assert installed.install() == 0
    old = {name: b"old " + name.encode() for name in installed.files}
    for name, data in old.items():
        (installed.folder / name).write_bytes(data)
    (installed.folder / "sounds.bin").unlink()
    (installed.folder / "sounds.bin").mkdir()
    before = disk(stage.wine)
    assert installed.install() == IN_USE
    assert disk(stage.wine) == before
    (installed.folder / "sounds.bin").rmdir()
    (installed.folder / "sounds.bin").write_bytes(old["sounds.bin"])

    for kill in range(int(os.environ.get("KILLS", "4"))):
        setup = stage.start(installed.setup, "/S")
        with contextlib.suppress(subprocess.TimeoutExpired):
            setup.wait(random.Random(kill).uniform(0.2, 1.4))
        stage.end(setup)
        for name, data in installed.files.items():
            assert (installed.folder / name).read_bytes() in (data, old[name]), (kill, name)
    assert installed.install() == 0
    assert installed.is_whole()


# --- a double click ---

NAMES = ["plain", "two words", "gr\u00fcn & wei\u00df", "one, two; three", "100 % %TEMP% %1", "(it's) ^ = + ~ [1]"]


@pytest.fixture
def types_of_the_user(installed):
    """HKEY_CLASSES_ROOT shows the user's own types of files on Windows, but not under this Wine: they are put there."""
    assert installed.install() == 0
    keys = (".tsj", "Tessarine.Job")
    for key in keys:
        assert installed.wine.run("reg", "copy", f"HKCU\\{CLASSES}\\{key}", f"HKLM\\{CLASSES}\\{key}", "/s", "/f") == 0
    yield
    for key in keys:
        installed.wine.run("reg", "delete", f"HKLM\\{CLASSES}\\{key}", "/f")


def test_a_double_click_plays_the_job(stage, installed, types_of_the_user):
    """What the Explorer does with one: it opens the file. Without the program, and in the one that runs."""
    notepad = stage.notepad()
    job = stage.typing_job(notepad, "x")
    names = [*NAMES, "long " + "n" * (200 - len(stage.wine.windows_path(stage.folder)) - 10)]
    paths = [stage.write(job, name) for name in names]
    assert len(paths[-1]) == 200

    def is_played(path):
        stage.start("start.exe", path)
        assert wait_for(lambda: notepad.text == "x", 15), (path, stage.box() and stage.box_text(stage.box()))
        notepad.set_text("")

    is_played(paths[2])
    assert wait_for(lambda: not stage.main_window()), "it was for that job alone"
    program = installed.start()
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
    for path in paths:
        is_played(path)
    assert program.poll() is None and stage.main_window().process
    ends(stage)


# --- by hand ---

LANGUAGES = {"en": [], "de": ["Up"], "fr": ["Down", "Down"], "sp": ["Down"]}  # by their names, from English on


def installer_page(person, language, name, shows):
    """The page with a visible control for which `shows` is true, once it has the keyboard. Takes a picture of it."""
    def page():
        return next((window for window in person.probe.windows()
                     if window.class_name == "#32770" and window.handle == person.probe.ask("foreground")
                     and any(map(shows, person.visible_controls(window)))), None)

    assert (shown := wait_for(page, 30)), name
    time.sleep(0.5)
    person.stage.wine.screenshot(OUT / "test" / "installer" / f"{language}_{name}.png")
    return shown


def says(text, class_name="Static"):
    return lambda control: control.class_name == class_name and text in control.caption


def is_button(number):
    return lambda control: control.class_name == "Button" and control.control_id == number and control.enabled


def puts_what_a_user_gathers(person):
    person.folder.mkdir(exist_ok=True)
    person.puts_job("mine")
    for name in ("settings.binary", "settings (kept 2).binary", "~000abc0.tmp"):
        (person.folder / name).write_bytes(b"")
    (person.folder / "every day.log").write_text("Date: 2026-11-22\n")


@pytest.mark.parametrize("language", LANGUAGES)
def test_installed_and_removed_by_hand(stage, person, installed, language):
    """By keyboard, by somebody who has never had the program. The pictures of all pages lie in out/test/installer. In
    one of the languages the program is started from the last page, and asks something while it is to be removed."""
    person.forgets_key(OWN_KEY)
    shutil.rmtree(person.folder)
    thorough = language == "de"
    look = everything if thorough else disk  # the registry takes its time
    before = look(stage.wine)
    setup = stage.start(installed.setup)
    installer_page(person, language, "1_language", lambda control: control.class_name == "ComboBox")
    for key in LANGUAGES[language]:
        person.presses(key)
    person.presses("Return")
    installer_page(person, language, "2_welcome", says("AppData\\Local\\Programs\\Tessarine"))
    person.presses("Return")
    assert wait_for(installed.is_whole)
    installer_page(person, language, "3_finish", says("Tessarine", "Button"))
    if thorough:
        question = starts_and_asks(stage, person)
    else:
        person.presses("space")
        person.presses("Return")
    assert setup.wait(30) == 0
    assert person.registry(OWN_KEY, "Language") == language

    puts_what_a_user_gathers(person)
    installed.uninstaller()
    installer_page(person, language, "4_remove", says("(1)"))  # one job
    person.presses("Down")
    person.presses("Return")
    if thorough:
        busy = installer_page(person, language, "5_busy", is_button(IDRETRY))
        assert installed.is_whole()
        clicks_button(person, question, IDOK)
        assert wait_for(lambda: stage.main_window().enabled)
        clicks_button(person, busy, IDRETRY)
    assert wait_for(lambda: not installed.program_files())
    installer_page(person, language, "6_removed", is_button(IDOK))
    person.presses("Return")
    assert wait_for(installed.is_gone, 30)
    assert look(stage.wine) ^ before == set()


def clicks_button(person, box, number):
    person.clicks_window(next(filter(is_button(number), person.visible_controls(box))))


def starts_and_asks(stage, person):
    """In the language that was chosen; returns the box. Neither it nor its form stands where the installer does."""
    person.presses("Return")
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
    assert wait_for(lambda: person.probe.ask("foreground") == stage.main_window().handle)  # no question for a language
    person.opens_page("about_page_Command4")
    person.clicks("about_page_Command4")
    box = person.box()
    for window, place in ((stage.main_window(), (0, 760)), (box, (0, 0))):
        left, top, right, bottom = window.rect
        stage.probe.place(window.handle, 1, (*place, place[0] + right - left, place[1] + bottom - top))
    return box
