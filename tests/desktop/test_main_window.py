"""The main window: its pages in four languages, by keyboard alone, and what it does with jobs."""

import os
import re
import time

import pytest
from job_reader import read_job
from person import RIGHT
from wine_desktop import OUT, wait_for

LANGUAGES = ["en", "de", "fr", "sp"]
PANELS = [f"job_page_other_option{number}" for number in range(4)]


def letters_of(controls):
    """The letters that the captions mark, by caption."""
    return {control.caption: match[1].upper() for control in controls
            if (match := re.search("&([^&])", control.caption.replace("&&", "")))}


def check_letters(person, form, picture):
    controls = [control for control in person.visible_controls(form) if control.class_name in ("Button", "Static")]
    letters = letters_of(controls)
    assert len(set(letters.values())) == len(letters), (picture, letters)
    buttons = [control.caption for control in controls if control.class_name == "Button" and control.caption != "..."]
    frames = {control.caption for control in controls if control.rect[3] - control.rect[1] > 60}
    assert [caption for caption in buttons if caption not in letters and caption not in frames] == [], picture
    assert not [control.caption for control in controls if control.caption.startswith("<")], "all is translated"
    person.stage.wine.screenshot(OUT / "test" / "forms" / f"{picture}_{os.environ.get('DPI', 96)}dpi.png")


@pytest.mark.parametrize("language", LANGUAGES)
def test_forms(stage, person, language):
    """Every form comes up in this language, and each of its captions has a letter of its own."""
    person.speaks(language)
    try:
        person.puts_job("Morning report")
        person.puts_job("R&D", description="Sends the letter")
        program = person.start_program()
        main = stage.main_window()
        for panel in PANELS:
            person.clicks(panel)
            time.sleep(0.3)
            check_letters(person, main, f"{language}_{panel}")
        person.opens_page("schedule_page_Option11")
        left, top, *_ = person.sees("schedule_page_Lista_Schedule").rect
        person.clicks_at(left + 20, top + 8)
        person.presses("Tab")
        for kind in ["daily", "weekly", "monthly", "once"]:
            person.presses("Down")
            check_letters(person, main, f"{language}_schedule_{kind}")
        person.clicks("schedule_page_Option4")
        check_letters(person, main, f"{language}_schedules")
        for page in ["options_page_Command7", "about_page_Command4"]:
            person.opens_page(page)
            time.sleep(0.3)
            check_letters(person, main, f"{language}_{page.rpartition('_')[0]}")
        person.opens_page("record_page_command3")
        person.clicks("record_page_Display_Start_Program_Dialog")
        person.clicks("record_page_display_countdown_check")
        check_letters(person, main, f"{language}_record_page")
        person.clicks("record_page_command3")
        check_letters(person, person.form_of("start_app_Check1"), f"{language}_start_app")
        person.clicks("start_app_Command2")
        check_letters(person, person.form_of("recording_Command1"), f"{language}_recording")
        time.sleep(0.5)
        person.presses("Pause")
        check_letters(person, person.form_of("Save_As_Form_name"), f"{language}_save_as")
        person.clicks("Save_As_Form_Command2")
        person.waits_for_end_of("Save_As_Form_name")
        assert program.poll() is None
    finally:
        person.speaks("en")


LIST, LIST_ITEM, TEXT, SELECTED = 33, 34, 42, 2


def test_screen_readers_are_told_of_every_control(stage, person):
    """Each control that the keyboard reaches has a name and a role; the painted list is a list with its rows."""
    person.puts_job("a", description="first")
    person.puts_job("b")
    person.start_program()

    def told(name):
        return stage.probe.ask("accessible", person.waits_for(name).handle)

    jobs = told("job_page_lista_jobs")
    assert (jobs["name"], jobs["role"]) == ("Saved Jobs", LIST)
    assert [(row["name"], row["role"], row["action"]) for row in jobs["parts"]] == [
        ("a", LIST_ITEM, "Edit"), ("b", LIST_ITEM, "Edit")]
    assert "first" in jobs["parts"][0]["description"]
    assert jobs["parts"][0]["state"] & SELECTED and not jobs["parts"][1]["state"] & SELECTED
    left, top, width, height = jobs["parts"][1]["place"]
    list_left, list_top, *_ = person.sees("job_page_lista_jobs").rect
    assert list_left <= left < list_left + 5 and top > list_top + height - 5 and width > 100
    assert stage.probe.ask("select", person.sees("job_page_lista_jobs").handle, 2) == 0
    assert wait_for(lambda: person.text_of("job_page_lista_jobs").startswith("b"))
    assert told("job_page_Slider1")["name"] == "Select replay speed"
    speed = told("job_page_Options_speed")
    assert (speed["name"], speed["role"], speed["value"]) == ("Replay speed in percent", TEXT, "100")
    others = ["options_page_Command7", "about_page_Command4", "record_page_command3"]
    for panel in [*PANELS, "schedule_page_Option11", "schedule_page_Option4", *others]:
        if panel not in PANELS:
            person.opens_page(panel)
        if panel not in others:
            person.clicks(panel)
        time.sleep(0.3)
        assert not person.nameless(stage.main_window(), "#32770", "SysTabControl32"), panel


def test_the_window_can_be_resized(stage, person):
    for number in range(12):
        person.puts_job(f"job {number:02}")
    person.start_program()
    main, jobs = stage.main_window(), person.waits_for("job_page_lista_jobs")
    left, top, right, bottom = main.rect
    stage.probe.place(main.handle, 1, (left, top, right + 120, bottom + 160))
    assert wait_for(lambda: person.sees("job_page_lista_jobs").rect[3] > jobs.rect[3] + 60), "the list takes the room"
    grown = person.sees("job_page_lista_jobs")
    assert grown.rect[2] == jobs.rect[2] + 120
    row = stage.probe.ask("accessible", grown.handle)["parts"][0]["place"][3]
    assert (grown.rect[3] - grown.rect[1]) % row < 8, "whole rows, and the frame"
    assert person.sees("job_page_run_job_button").rect[0] > grown.rect[2]
    time.sleep(1)
    stage.wine.screenshot(OUT / "test" / "forms" / "resized.png")
    stage.probe.place(main.handle, 1, (left, top, left + 50, top + 50))
    assert wait_for(lambda: stage.main_window().rect == main.rect), "never smaller than what it holds"
    stage.probe.place(main.handle, 1, (left, top, right + 40, bottom + 80))
    stage.probe.ask("post", main.handle, 0x10, 0, 0)  # WM_CLOSE
    assert wait_for(lambda: not stage.main_window().visible)
    double_click(person)
    assert wait_for(lambda: stage.main_window().visible)
    assert stage.main_window().rect == (left, top, right + 40, bottom + 80), "the size is kept"


def walk(person, count, *keys):
    places = []
    for _ in range(count):
        person.presses(*keys)
        places.append(person.focus())
    return places


def test_by_keyboard_alone(stage, person):
    person.puts_job("a")
    person.puts_job("b")
    person.start_program()
    assert person.focus() == "job_page_lista_jobs"
    person.presses("Down")
    assert person.text_of("job_page_lista_jobs").startswith("b")
    there = walk(person, 14, "Tab")
    assert there == ["job_page_run_job_button", "job_page_edit_job_button", "job_page_schedule_job_button",
                     "job_page_make_exe_button", "job_page_other_option0", "job_page_Slider1",
                     "job_page_Options_speed", "job_page_Check6", "job_page_Check7", "job_page_Command5",
                     "job_page_panel_help", "help_link", "form1_Exit", "form1_tabs"]
    assert walk(person, 13, "Shift_L", "Tab") == there[-2::-1]
    walk(person, 6, "Tab")
    person.presses("Up")  # in the speed box
    assert person.text_of("job_page_Options_speed") == "101"
    person.presses("Down")
    assert walk(person, 1, "Tab")[-1] == "job_page_Check6"
    person.presses("space")
    assert person.text_of("job_page_Options_speed") == "max"
    assert person.text_of("job_page_percent") == ""
    assert walk(person, 2, "Tab")[-1] == "job_page_Command5"
    person.presses("Return")  # the button with the focus is pressed
    assert person.text_of("job_page_Options_speed") == "100"
    person.presses("Alt_L", "a")  # not on this panel
    for keys in (["Alt_L", "r"], ["Alt_L", "o"]):
        person.presses(*keys)
    person.presses("Alt_L", "s")
    assert wait_for(lambda: read_job(person.folder / "b.tsj").repeat == 0), "repeated over and over again"
    person.presses("Control_L", "Prior")
    assert wait_for(lambda: person.focus() == "record_page_command3")
    person.presses("Alt_L", "c")
    assert wait_for(lambda: (person.folder / "settings.binary").exists()), "an option is saved at once"
    person.presses("Control_L", "Tab")
    assert wait_for(lambda: person.focus() == "job_page_lista_jobs")
    person.presses("Delete")
    box = person.box("Delete job?")
    person.presses("Alt_L", "y")
    assert wait_for(lambda: not stage.box()), stage.box_text(box)
    assert wait_for(lambda: not (person.folder / "b.tsj").exists())
    assert person.text_of("job_page_lista_jobs").startswith("a")


def test_properties_are_saved_or_dropped(person):
    person.puts_job("a")
    person.puts_job("b")
    person.start_program()
    person.clicks("job_page_Options_speed")
    person.presses("Control_L", "a")
    person.types("33")
    person.presses("Tab")
    assert person.text_of("job_page_speed_tip") == "3.03 times slower than original"
    person.clicks("job_page_lista_jobs", RIGHT)  # in the middle, on row b
    person.box("Save Changes")
    person.presses("Return")
    assert wait_for(lambda: read_job(person.folder / "a.tsj").speed == 33)
    assert wait_for(lambda: person.text_of("job_page_lista_jobs").startswith("b"))
    assert wait_for(lambda: person.probe.find("#32768", visible=True)), "the job's menu"
    person.presses("Escape")
    person.clicks("job_page_Check6")
    assert person.text_of("job_page_Options_speed") == "max"
    person.clicks("job_page_other_option3")
    person.clicks("job_page_assign_hotkey")
    person.clicks("job_page_button_save_changes")
    person.box()
    person.presses("Return")
    assert read_job(person.folder / "b.tsj").speed == 100, "a hotkey that is refused saves nothing"
    person.clicks("job_page_other_option0")
    assert person.text_of("job_page_Options_speed") == "max"


def test_the_tray(stage, person):
    program = person.start_program()
    main = stage.main_window()
    stage.probe.ask("post", main.handle, 0x10, 0, 0)  # WM_CLOSE
    assert wait_for(lambda: not stage.main_window().visible), "closing hides"
    double_click(person)
    assert wait_for(lambda: stage.main_window().visible)
    time.sleep(1)
    double_click(person)
    assert wait_for(lambda: not stage.main_window().visible)
    person.clicks_tray_icon(RIGHT)
    assert wait_for(lambda: person.probe.find("#32768", visible=True))
    stage.wine.screenshot(OUT / "test" / "forms" / "tray_menu.png")
    person.clicks_menu_entry(0)
    assert program.wait(15) == 0, "the last entry exits"
    assert (person.folder / "settings.binary").exists()


def double_click(person):
    for _ in range(2):
        person.clicks_tray_icon()


def test_a_job_that_will_fail_has_a_mark(stage, person):
    """A click on the mark tells why, and so does the menu of the row; a screen reader is told of the mark."""
    person.puts_job("fails", program="C:\\gone\\program.exe", style=1)
    person.puts_job("works")
    person.start_program()
    jobs = person.sees("job_page_lista_jobs").handle

    def rows():
        return stage.probe.ask("accessible", jobs)["parts"]

    assert wait_for(lambda: "Findings of the check: 1" in rows()[0]["description"]), rows()
    assert "Findings" not in rows()[1]["description"]
    stage.wine.screenshot(OUT / "test" / "forms" / "job_mark.png")
    left, top, width, height = rows()[0]["place"]
    person.clicks_at(left + width - 17, top + height // 2)
    box = person.box("Tessarine")
    stage.wine.screenshot(OUT / "test" / "forms" / "job_findings.png")
    assert "C:\\gone\\program.exe" in stage.box_text(box)
    stage.answer(box)
    person.presses("Menu")
    assert wait_for(lambda: stage.probe.find("#32768", visible=True))
    stage.wine.screenshot(OUT / "test" / "forms" / "job_menu.png")
    person.presses("f")
    stage.answer(person.box("Tessarine"))
