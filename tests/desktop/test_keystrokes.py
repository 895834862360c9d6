"""The keys of a row, edited in the job editor under a person's hands."""

import pytest
from editor import DETAIL
from person import RIGHT
from stage import MIDDLE
from wine_desktop import wait_for

TYPED = "hello {L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}"
KEYS, WHEEL, MANY_KEYS = range(3)


@pytest.fixture
def rows(stage, person, editor):
    """The editor, with a row of keystrokes, one of the wheel, and a long one."""
    job = stage.job()
    desktop = job.target(stage.probe.chain(stage.probe.find("Shell_TrayWnd").handle))
    job.text_row(TYPED, desktop, takes=500)
    for _ in range(2):
        job.wheel(*MIDDLE, 120, desktop)
    job.text_row("{F5}some text {ENTER}" * 25, desktop, takes=500)
    job.write(person.folder / "Letter.tsj")
    person.start_program()
    editor.opens()
    editor.selects(KEYS)
    return editor


def test_every_key_becomes_part_of_the_row(person, rows):
    rows.clicks_into_keystrokes(400)
    for keys in [["Tab"], ["F10"], ["Escape"], ["Menu"], ["Alt_L", "F4"], ["Alt_L", "s"], ["Control_L", "c"]]:
        person.presses(*keys)
    typed = TYPED + ("{TAB DOWN}{TAB UP}{F10 DOWN}{F10 UP}{ESC DOWN}{ESC UP}{MENUKEY DOWN}{MENUKEY UP}"
                     "{ALT DOWN}{F4 DOWN}{F4 UP}{ALT UP}{ALT DOWN}s{ALT UP}{L_CTRL DOWN}c{L_CTRL UP}")
    rows.keystrokes_are(typed)
    assert rows.cell(KEYS, DETAIL).startswith(TYPED + "{TAB}{F10}{ESC}{MENUKEY}{ALT DOWN}{F4}{ALT UP}")
    assert person.focus() == "edit_job_Text1", "and none of them did what it does elsewhere"
    text = person.probe.ask("accessible", person.sees("edit_job_Text1").handle)
    assert (text["name"], text["value"]) == ("Edit Keystrokes", typed)
    assert "Pause/Break" in text["description"]
    person.presses("Pause")
    assert wait_for(lambda: person.focus() != "edit_job_Text1", 5), "but one leads out"

    person.presses("Control_L", "z")
    rows.clicks_into_keystrokes(2)
    for key in ["Left", "Right", "Right", "Delete", "BackSpace", "x"]:  # the caret goes by tokens
        person.presses(key)
    rows.keystrokes_are("hxlo {L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}")
    for x, key, text in [(60, "1", "hxlo 1{L_SHIFT DOWN}w"), (120, "2", "hxlo 1{L_SHIFT DOWN}2w")]:
        rows.clicks_into_keystrokes(x)
        person.presses(key)
        rows.keystrokes_are(text + "{L_SHIFT UP}orld{ENTER}")


def test_the_board_under_the_mouse(person, rows):
    names = [name for name, _ in rows.onscreen_keys()]
    assert len(names) == 106 and {"a", "F5", "Shift", "{LEFT_ARROW}", "Ent"} <= set(names)
    rows.presses_onscreen_key("F5")
    rows.keystrokes_are(TYPED + "{F5 DOWN}{F5 UP}")
    assert person.focus() == "edit_job_Text1"
    rows.presses_onscreen_key("Shift", RIGHT)
    for key in ["Down", "Down", "Return"]:  # to hold it, and none of the three is for the row
        person.presses(key)
    rows.keystrokes_are(TYPED + "{F5 DOWN}{F5 UP}{L_SHIFT DOWN}")
    rows.presses_onscreen_key("a")
    rows.presses_onscreen_key("Shift")
    rows.keystrokes_are(TYPED + "{F5 DOWN}{F5 UP}{L_SHIFT DOWN}a{L_SHIFT UP}")
    rows.presses_onscreen_key("a", RIGHT)
    for key in ["Escape", "b"]:
        person.presses(key)
    rows.keystrokes_are(TYPED + "{F5 DOWN}{F5 UP}{L_SHIFT DOWN}a{L_SHIFT UP}b")


def test_a_wheel_row_takes_no_keys_and_plain_text_is_typed(person, rows):
    rows.selects(WHEEL)
    person.clicks("edit_job_command3")
    rows.keystrokes_are("{WHEEL UP}{WHEEL UP}{WHEEL DOWN}")
    rows.clicks_into_keystrokes(2)
    person.presses("a")
    person.presses("F5")
    rows.presses_onscreen_key("a")
    person.clicks("edit_job_Command5")
    rows.keystrokes_are("{WHEEL UP}{WHEEL UP}{WHEEL UP}{WHEEL DOWN}")

    rows.selects(KEYS)
    rows.clicks_into_keystrokes(400)
    for keys in [["F5"], ["Alt_L", "F4"], ["Alt_L", "s"], ["q"]]:
        person.presses(*keys)
    person.clicks("edit_job_Option2")
    plain = "edit_job_plain_text"
    typed = "hello World\n{F5 DOWN}{F5 UP}{F4 DOWN}{F4 UP}q"
    assert wait_for(lambda: person.text_of(plain) == typed, 10), person.text_of(plain)
    assert person.probe.ask("keys") == []
    assert person.sees("edit_job_save_button").enabled, "and none of it was for the form"
    person.types("x")
    rows.answers("Return", "Edit Keystrokes")  # the user's own key is told where to go
    rows.selects(MANY_KEYS)
    assert wait_for(lambda: person.text_of(plain) == "{F5}some text \n" * 25, 20), person.text_of(plain)
    assert person.focus() == "edit_job_grid"
