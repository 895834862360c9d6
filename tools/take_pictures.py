#!/usr/bin/env python3
"""Takes the pictures of the real windows for the README, docs/pictures/*.png, on a Wine desktop of its own.

    tools/take_pictures.py        after tools/build.sh windows, with Debian's python3
"""

import subprocess
import sys
import time

from wine_desktop import OUT, ROOT, WineDesktop, wait_for

sys.path.append(str(ROOT / "tests" / "desktop"))

from hands import Hands  # noqa: E402
from person import RIGHT, Person  # noqa: E402
from probe import Probe  # noqa: E402
from stage import Stage  # noqa: E402
from test_schedules import Schedules, clock  # noqa: E402

NOTEPAD_PLACE = (330, 60, 960, 420)
NOWHERE = (1270, 900)  # for the pointer, where it makes nothing shine


class Photographer:
    def __init__(self, stage):
        self.stage = stage
        self.person = Person(stage)

    def takes(self, name, rect):
        left, top, right, bottom = rect
        whole = self.stage.wine.screenshot(OUT / "pictures" / f"{name}.png")
        part = f"{right - left}x{bottom - top}+{left}+{top}"
        subprocess.run(["convert", whole, "-crop", part, "+repage", "-strip", "+dither", "-colors", "128",
                        ROOT / "docs" / "pictures" / f"{name}.png"], check=True)

    def takes_main_window(self, name):
        main = self.stage.main_window()
        self.stage.probe.ask("front", main.handle)
        self.stage.hands.move(*NOWHERE)
        time.sleep(1)
        self.takes(name, main.rect)

    def options(self):
        """With a folder of jobs that bears nobody's name."""
        own_key = "Software\\Tessarine"
        (self.stage.wine.drive_c / "Jobs").mkdir()
        self.person.puts_into_registry(own_key, "DataDir", "C:\\Jobs")
        self.person.start_program()
        self.person.opens_page("options_page_Command7")
        self.takes_main_window("options")
        self.stage.clear()
        self.person.puts_into_registry(own_key, "DataDir")

    def first_recording(self):
        person = self.person
        person.puts_job("Backup", description="Copies the week to the other disk")
        person.puts_job("Monthly invoice")
        notepad = self.stage.notepad()
        self.stage.probe.place(notepad.handle, 1, NOTEPAD_PLACE)
        person.start_program()
        person.opens_page("record_page_command3")
        self.takes_main_window("record")
        person.clicks("record_page_display_countdown_check")
        person.starts_recording()
        self.stage.hands.click(600, 300)
        person.types("Good morning.\nhere is the report of today.")
        time.sleep(1.2)
        self.takes("recording", (0, 0, 980, 440))
        self.saves()
        self.gives_a_hotkey()
        person.clicks("job_page_run_job_button")
        time.sleep(1)
        assert wait_for(lambda: self.stage.main_window().enabled and person.sees("job_page_lista_jobs"), 30)
        self.takes_main_window("jobs")
        self.edits_the_job()
        self.schedules_a_job()
        self.opens_tray_menu()

    def saves(self):
        person = self.person
        person.presses("Pause")
        form = person.form_of("Save_As_Form_name")
        time.sleep(4)
        person.types("Morning report")
        person.presses("Tab")
        person.types("Writes the greeting")
        time.sleep(0.5)
        self.takes("save_as", form.rect)
        person.presses("Alt_L", "s")
        person.waits_for_end_of("Save_As_Form_name")
        time.sleep(0.7)

    def gives_a_hotkey(self):
        for name in ("job_page_other_option3", "job_page_assign_hotkey", "job_page_hot_ctrl", "job_page_hot_alt",
                     "job_page_hot_slovo"):
            self.person.clicks(name)
        self.person.types("m\n")
        self.person.clicks("job_page_button_save_changes")
        time.sleep(0.5)

    def edits_the_job(self):
        """With the row of keys selected, by the keyboard alone."""
        person = self.person
        person.clicks("job_page_edit_job_button")
        form = person.form_of("edit_job_grid")
        time.sleep(1)
        person.presses("End")
        while not person.sees("edit_job_Text1").enabled:
            person.presses("Up")
        self.stage.hands.move(*NOWHERE)
        time.sleep(1)
        self.takes("editor", form.rect)
        person.clicks("edit_job_exit_button")
        person.waits_for_end_of("edit_job_grid")

    def schedules_a_job(self):
        person = self.person
        person.opens_page("schedule_page_Option11")
        schedules = Schedules(person)
        schedules.begins(1, "Monthly invoice - Daily")
        self.takes_main_window("schedule")
        schedules.saves()
        schedules.makes_daily(2, clock(62), "Morning report - Daily")
        schedules.rows()
        self.takes_main_window("schedules")
        self.takes("countdown", person.form_of("schedule_start_form_name").rect)
        person.clicks("schedule_start_form_Command1")
        person.waits_for_end_of("schedule_start_form_name")

    def opens_tray_menu(self):
        self.person.clicks_tray_icon(RIGHT)
        time.sleep(1)
        self.person.presses("Down")
        self.person.presses("Right")
        time.sleep(0.5)
        self.takes("tray", (960, 900, 1280, 1024))


def main():
    with WineDesktop("pictures") as wine:
        probe = Probe(wine, OUT / "build" / "windows" / "tests" / "desktop" / "probe.exe")
        stage = Stage(wine, probe, Hands(wine.display), OUT / "windows" / "tessarine.exe")
        photographer = Photographer(stage)
        photographer.options()
        photographer.first_recording()
        stage.clear()
        probe.close()


if __name__ == "__main__":
    main()
