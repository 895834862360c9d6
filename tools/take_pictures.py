#!/usr/bin/env python3
"""Takes the pictures of the real windows for the help and the README, assets/help/pictures/*.png, on a Wine desktop of
its own.

    tools/take_pictures.py [STORY...]        after tools/build.sh windows, with Debian's python3
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

NOTEPAD_PLACE = (480, 60, 1060, 420)  # beside the status windows
SCENE = (0, 0, 1080, 440)
NOWHERE = (1270, 900)  # for the pointer, where it makes nothing shine
STORIES = ["first_start", "options", "first_recording", "why", "speaks_german"]


class Photographer:
    def __init__(self, stage):
        self.stage = stage
        self.person = Person(stage)

    def takes(self, name, rect):
        left, top, right, bottom = rect
        whole = self.stage.wine.screenshot(OUT / "pictures" / f"{name}.png")
        part = f"{right - left}x{bottom - top}+{left}+{top}"
        subprocess.run(["convert", whole, "-crop", part, "+repage", "-strip", "+dither", "-colors", "128",
                        ROOT / "assets" / "help" / "pictures" / f"{name}.png"], check=True)

    def takes_main_window(self, name):
        main = self.stage.main_window()
        self.stage.probe.ask("front", main.handle)
        self.stage.hands.move(*NOWHERE)
        time.sleep(1)
        self.takes(name, main.rect)

    def takes_control(self, name, control, around=4):
        self.stage.hands.move(*NOWHERE)
        time.sleep(0.7)
        left, top, right, bottom = self.person.waits_for(control).rect
        self.takes(name, (left - around, top - around, right + around, bottom + around))

    def first_start(self):
        """A user who has not chosen a language."""
        self.person.speaks(None)
        self.stage.tessarine()
        form = wait_for(lambda: self.stage.probe.find("#32770", "Select Language", visible=True))
        time.sleep(1)
        self.takes("language", form.rect)

    def options(self):
        """With a folder of jobs that bears nobody's name."""
        own_key = "Software\\Tessarine"
        person = self.person
        (self.stage.wine.drive_c / "Jobs").mkdir()
        person.puts_into_registry(own_key, "DataDir", "C:\\Jobs")
        person.start_program()
        person.opens_page("options_page_Command7")
        self.takes_main_window("options")
        person.opens_page("about_page_Command4")
        self.takes_main_window("about")
        self.stage.clear()
        person.puts_into_registry(own_key, "DataDir")

    def first_recording(self):
        person = self.person
        self.puts_jobs()
        notepad = self.stage.notepad()
        self.stage.probe.place(notepad.handle, 1, NOTEPAD_PLACE)
        person.start_program()
        person.opens_page("record_page_command3")
        self.takes_main_window("record")
        person.clicks("record_page_display_countdown_check")
        person.clicks("record_page_Display_Start_Program_Dialog")
        person.clicks("record_page_command3")
        self.shows_start_program()
        person.waits_for("recording_Command1", 30)
        time.sleep(0.5)
        self.stage.hands.click(600, 300)
        person.types("Good morning.\nhere is the report of today.")
        time.sleep(1.2)
        self.takes("recording", SCENE)
        self.saves()
        self.takes_panels()
        self.gives_a_hotkey()
        notepad.set_text("")
        self.runs(notepad)
        self.takes_main_window("jobs")
        self.edits_the_job()
        self.schedules_a_job()
        self.opens_tray_menu()
        self.fails(notepad)

    def puts_jobs(self):
        self.person.puts_job("Backup", description="Copies the week to the other disk")
        self.person.puts_job("Monthly invoice", description="Prints and sends it")

    def shows_start_program(self):
        person = self.person
        form = person.form_of("start_app_Check1")
        time.sleep(0.5)
        person.clicks("start_app_Check1")
        person.types("notepad.exe")
        time.sleep(0.5)
        self.takes("start_program", form.rect)
        person.clicks("start_app_Check1")
        person.clicks("start_app_Command2")

    def takes_panels(self):
        for number, name in enumerate(["speed", "repeat", "safety"]):
            self.person.clicks(f"job_page_other_option{number}")
            self.takes_control(name, "job_page_frame")

    def runs(self, notepad):
        person = self.person
        person.clicks("job_page_run_job_button")
        assert wait_for(lambda: "report" in notepad.text)
        self.takes("running", SCENE)
        assert wait_for(lambda: self.stage.main_window().enabled and person.sees("job_page_lista_jobs"), 30)

    def fails(self, notepad):
        """The job whose window is gone."""
        person = self.person
        person.presses("Escape")
        person.presses("Escape")
        self.stage.end(notepad.process)
        self.stage.probe.ask("front", self.stage.main_window().handle)
        person.opens_page("job_page_lista_jobs")
        person.clicks("job_page_run_job_button")
        form = person.form_of("executing_List1")
        person.waits_for("executing_closebutton", 40)
        self.stage.hands.move(*NOWHERE)
        time.sleep(0.7)
        self.takes("failed", form.rect)

    def why(self):
        """A window whose title has changed since the recording."""
        stage, person = self.stage, self.person
        notepad = stage.notepad()
        path = stage.write(stage.typing_job(notepad, wait_for_window=1))
        stage.probe.set_text(notepad.handle, "Report 12 - Notepad")
        stage.tessarine("-run", path)
        person.clicks("executing_why")
        form = person.form_of("why_reason")
        stage.hands.move(*NOWHERE)
        time.sleep(0.7)
        self.takes("why", form.rect)

    def speaks_german(self):
        person = self.person
        person.speaks("de")
        person.puts_job("Monatsabrechnung", description="Druckt und versendet sie")
        person.puts_job("Sicherung", description="Kopiert die Woche auf die andere Platte")
        person.start_program()
        self.takes_main_window("jobs_de")
        person.opens_page("record_page_command3")
        self.takes_main_window("record_de")
        person.clicks("record_page_display_countdown_check")
        person.clicks("record_page_command3")
        person.waits_for("recording_Command1", 30)
        time.sleep(0.5)
        self.stage.hands.click(600, 900)
        person.presses("Pause")
        form = person.form_of("Save_As_Form_name")
        time.sleep(4)
        person.types("Morgenbericht")
        time.sleep(0.5)
        self.takes("save_as_de", form.rect)

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
        self.takes_control("hotkey", "job_page_frame")

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
        person.clicks("edit_job_save_as_button")
        name = person.form_of("save_name_name")
        person.types("Evening report")
        time.sleep(0.5)
        self.takes("save_name", name.rect)
        person.presses("Escape")
        person.waits_for_end_of("save_name_name")
        person.clicks("edit_job_exit_button")
        person.waits_for_end_of("edit_job_grid")

    def schedules_a_job(self):
        person = self.person
        person.opens_page("schedule_page_Option11")
        schedules = Schedules(person)
        schedules.begins(1, "Monthly invoice - Daily")
        self.takes_main_window("schedule")
        schedules.saves()
        schedules.makes_daily(2, clock(110), "Morning report - Daily")
        self.asks_to_exit()
        schedules.rows()
        self.takes_main_window("schedules")
        self.takes("schedule_start", self.form_soon("schedule_start_form_name", 120).rect)
        person.clicks("schedule_start_form_Command1")
        person.waits_for_end_of("schedule_start_form_name")

    def form_soon(self, control, seconds):
        return self.stage.probe.window(self.person.waits_for(control, seconds).parent)

    def asks_to_exit(self):
        self.person.clicks_tray_icon(RIGHT)
        self.person.clicks_menu_entry(0)
        form = self.person.form_of("schedule_warning_job")
        self.stage.hands.move(*NOWHERE)
        time.sleep(0.7)
        self.takes("schedule_warning", form.rect)
        self.person.presses("Return")
        self.person.waits_for_end_of("schedule_warning_job")

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
        for story in sys.argv[1:] or STORIES:
            photographer.person = Person(stage)
            getattr(photographer, story)()
            stage.clear()
            photographer.person.speaks("en")
        probe.close()


if __name__ == "__main__":
    main()
