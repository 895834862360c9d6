"""The main window: its pages in four languages, by keyboard alone, and what it does with jobs."""

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
    frames = {control.caption for control in controls if control.rect[3] - control.rect[1] > 100}
    assert [caption for caption in buttons if caption not in letters and caption not in frames] == [], picture
    assert not [control.caption for control in controls if control.caption.startswith("<")], "all is translated"
    person.stage.wine.screenshot(OUT / "test" / "forms" / f"{picture}.png")


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
        person.presses("Control_L", "Tab")
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
    there = walk(person, 9, "Tab")
    assert there == ["job_page_run_job_button", "job_page_other_option0", "job_page_Slider1", "job_page_Options_speed",
                     "job_page_Check6", "job_page_Check7", "job_page_Command5", "form1_Exit", "form1_tabs"]
    assert walk(person, 8, "Shift_L", "Tab") == there[-2::-1]
    assert walk(person, 4, "Tab")[-1] == "job_page_Check6"
    person.presses("space")
    assert person.text_of("job_page_Options_speed") == "max"
    assert walk(person, 2, "Tab")[-1] == "job_page_Command5"
    person.presses("Return")  # the button with the focus is pressed
    assert person.text_of("job_page_Options_speed") == "100"
    person.presses("Alt_L", "a")  # not on this panel
    for keys in (["Alt_L", "r"], ["Alt_L", "o"]):
        person.presses(*keys)
    person.presses("Alt_L", "s")
    assert wait_for(lambda: read_job(person.folder / "b.tsj").repeat == 0), "repeated over and over again"
    person.presses("Control_L", "Tab")
    assert person.focus() == "record_page_command3"
    person.presses("Alt_L", "c")
    assert wait_for(lambda: (person.folder / "settings.binary").exists()), "an option is saved at once"
    person.presses("Control_L", "Prior")
    assert person.focus() == "job_page_lista_jobs"
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
