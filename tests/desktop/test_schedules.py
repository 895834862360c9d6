"""Schedules for real: made on the page, counted down, run, cancelled, asked about at exit, and at computer start."""

import datetime
import re
import time

from person import RIGHT
from wine_desktop import wait_for

SCREEN_WIDTH = 1280


def clock(seconds_ahead=0):
    return datetime.datetime.now() + datetime.timedelta(seconds=seconds_ahead)


def sleep_until(moment):
    time.sleep(max(0, (moment - clock()).total_seconds()))


class Schedules:
    """The schedule page, by keyboard alone."""

    def __init__(self, person):
        self.person = person
        self.waits = False  # the box as it was left

    def opens_page(self):
        self.person.clicks("job_page_lista_jobs")
        self.person.presses("Control_L", "Tab")
        self.person.waits_for("schedule_page_Lista_Schedule")

    def makes_daily(self, job_row, moment, name):
        self.begins(job_row, name)
        self.goes_to("schedule_page_start_time")
        self.person.types(moment.strftime("%H%M%S"))
        assert self.person.text_of("schedule_page_start_time") == moment.strftime("%H:%M:%S")
        self.saves()

    def makes_start_up(self, job_row, name, waits):
        self.begins(job_row, name)
        self.goes_to("schedule_page_at_time", "schedule_page_whencomp")  # as it was the last time
        if self.person.focus() == "schedule_page_at_time":
            self.person.presses("Down")
        if waits != self.waits:
            self.goes_to("schedule_page_items_loaded")
            self.person.presses("space")
            self.waits = waits
        self.saves()

    def begins(self, job_row, name):
        """A daily schedule of this name, for a job of the list."""
        person = self.person
        person.presses("Alt_L", "d")
        self.goes_to("schedule_page_Lista_Schedule")
        person.presses("Home")  # the row on which the keyboard stood
        person.presses("Home")
        for _ in range(job_row):
            person.presses("Down")
        self.goes_to("schedule_page_Combo1")
        person.presses("d")
        self.goes_to("schedule_page_schedule_save_as")
        person.types(name)

    def goes_to(self, *names):
        for _ in range(30):
            if self.person.focus() in names:
                return
            self.person.presses("Tab")
        assert self.person.focus() in names

    def saves(self):
        person = self.person
        person.presses("Alt_L", "s")
        assert "created successfully" in person.stage.box_text(person.box())
        person.presses("Return")
        person.waits_for("schedule_page_schedule_lista")

    def rows(self):
        """What is told of each row, as it is selected."""
        person = self.person
        lista = person.waits_for("schedule_page_schedule_lista")
        person.clicks_at(lista.rect[0] + 30, lista.rect[1] + 10)
        person.presses("Home")
        told = []
        while True:
            text = person.text_of("schedule_page_schedule_lista")
            if told and told[-1][0] == text:
                return told
            told.append((text, person.text_of("schedule_page_next_run"), person.text_of("schedule_page_last_run"),
                         person.sees("schedule_page_view_log") and person.text_of("schedule_page_view_log")))
            person.presses("Down")
            time.sleep(0.3)


def count_of(text):
    return int(re.fullmatch(r"will start in (\d+) seconds(?:\.\.\.)?", text)[1])  # the first has no dots


def test_a_schedule_from_the_page_to_its_log(stage, person):
    """One runs, one is cancelled, and while both are near, leaving the program is asked about."""
    notepad = stage.notepad()
    stage.typing_job(notepad, "Good morning ").write(person.folder / "Letter.tsj")
    person.puts_job("Other")
    person.start_program()
    schedules = Schedules(person)
    schedules.opens_page()
    first, second = clock(100), clock(112)
    schedules.makes_daily(0, first, "First")
    schedules.makes_daily(1, second, "Second")

    person.clicks_tray_icon(RIGHT)
    person.clicks_menu_entry(0)
    asked = person.form_of("schedule_warning_job")
    assert asked.caption == "Scheduled jobs pending..."
    assert person.text_of("schedule_warning_job") == "Job 'Letter'"
    assert person.text_of("schedule_warning_Label6") == first.strftime("(at %H:%M:%S)")
    assert not stage.main_window().enabled
    person.presses("Return")  # NO is the default
    person.waits_for_end_of("schedule_warning_job")

    sleep_until(first - datetime.timedelta(seconds=61))
    person.waits_for("schedule_start_form_Label3", 10)
    assert person.text_of("schedule_start_form_name") == "First"
    before = count_of(person.text_of("schedule_start_form_Label3"))
    place = person.form_of("schedule_start_form_name").rect
    assert (place[1], place[2]) == (20, SCREEN_WIDTH - 20)
    time.sleep(3)
    assert before - 5 <= count_of(person.text_of("schedule_start_form_Label3")) <= before - 3
    sleep_until(first - datetime.timedelta(seconds=1))
    assert notepad.text == ""
    assert wait_for(lambda: notepad.text == "Good morning ", 10)

    assert wait_for(lambda: person.sees("schedule_start_form_name")
                    and person.text_of("schedule_start_form_name") == "Second", 10)
    person.clicks("schedule_start_form_Command1")
    person.waits_for_end_of("schedule_start_form_name")
    sleep_until(second + datetime.timedelta(seconds=2))

    stage.brings_to_front(stage.main_window().handle)
    day = f"{first.month}.{first.day}.{first.year}"
    letter, other = schedules.rows()
    assert letter == (f"First; Job: Letter\nDaily at: {first:%H:%M:%S}", f"Tomorrow at: {first:%H:%M:%S}",
                      f"{day}  {first:%H:%M:%S}", "<a>Success (click to view log file)</a>")
    assert other[2:] == (f"{day}  {second:%H:%M:%S}", "<a>Failed (click to view log file)</a>")
    assert "User canceled start of scheduled job: Second" in (person.folder / "Second.log").read_text("cp1252")
    link = person.sees("schedule_page_view_log")
    person.clicks_at(link.rect[0] + 20, link.rect[1] + 6)
    assert wait_for(lambda: stage.probe.find("Notepad", "Second.log - Notepad"), 20)


def test_a_job_is_scheduled_from_its_page_and_deleted_with_its_schedule(stage, person):
    person.puts_job("a")
    person.puts_job("b")
    person.start_program()
    person.presses("Down")
    person.presses("Alt_L", "c")
    assert wait_for(lambda: person.focus() == "schedule_page_Combo1")
    person.presses("m")
    Schedules(person).saves()
    assert Schedules(person).rows()[0][0].startswith("b - Monthly; Job: b\nMonthly ; on day 1. of every month at:")
    person.presses("Return")  # the selected one is edited
    assert wait_for(lambda: person.sees("schedule_page_monthly_day"))
    assert person.text_of("schedule_page_schedule_save_as") == "b - Monthly"
    person.opens_page("job_page_lista_jobs")
    person.presses("Delete")
    assert "delete all schedules" in stage.box_text(person.box("Delete scheduled  job?"))
    person.presses("Alt_L", "y")
    assert "1 scheduled jobs" in stage.box_text(person.box("Scheduled items deleted"))
    person.presses("Return")
    assert not (person.folder / "b.tsj").exists()
    person.opens_page("schedule_page_Option4")
    person.clicks("schedule_page_Option4")
    assert person.text_of("schedule_page_schedule_lista") == ""


def test_start_up_runs(stage, person):
    """At the computer's start: one runs at once; two wait until it has settled, which a machine full of tests does not,
    and are cancelled one by one."""
    notepad = stage.notepad()
    for name in ["Early", "Late", "Never"]:
        stage.typing_job(notepad, name + " ").write(person.folder / f"{name}.tsj")
    program = person.start_program()
    schedules = Schedules(person)
    schedules.opens_page()
    schedules.makes_start_up(2, "Cancelled", waits=True)
    schedules.makes_start_up(1, "After", waits=True)
    schedules.makes_start_up(0, "At once", waits=False)
    assert [row[1] for row in schedules.rows()] == ["Tomorrow at: system startup"] * 3
    person.clicks_tray_icon(RIGHT)
    person.clicks_menu_entry(0)
    program.wait(20)
    stage.tessarine("-startup")
    assert wait_for(lambda: notepad.text == "Early ", 30)
    person.waits_for("schedule_start_form_Label3", 20)
    assert person.text_of("schedule_start_form_name") == "Cancelled"
    person.clicks("schedule_start_form_Command1")
    assert wait_for(lambda: person.text_of("schedule_start_form_name") == "After", 5)
    person.clicks("schedule_start_form_Command1")
    person.waits_for_end_of("schedule_start_form_name")
    assert notepad.text == "Early "
    assert not stage.main_window().visible, "it stays in the notification area"
