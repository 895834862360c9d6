""""Why was my window not found?": the answer after a run, and in the editor before one."""

import time

from stage import NOTEPAD_PLACE
from wine_desktop import OUT, wait_for

ENGLISH, GERMAN = 1, 2
REASON = {ENGLISH: "Reason", GERMAN: "Grund"}


def fails(stage, path, language=ENGLISH):
    """Plays a job that does not find its window; the program, with its list still on the screen."""
    program = stage.tessarine("-run", path)
    assert wait_for(lambda: (lines := stage.status_lines()) and any(REASON[language] in line for line in lines))
    return program


def picture(stage, name):
    time.sleep(0.3)
    (OUT / "test" / "forms").mkdir(parents=True, exist_ok=True)
    stage.wine.screenshot(OUT / "test" / "forms" / f"{name}.png")


def test_after_a_run(stage, person):
    """A renamed window, told and copied; then one level too deep, in German."""
    notepad = stage.notepad()
    path = stage.write(stage.typing_job(notepad, wait_for_window=1))
    stage.probe.set_text(notepad.handle, "Report 12")
    program = fails(stage, path)
    person.clicks("executing_why")
    reason = ("The window is there, but its title is now 'Report 12', recorded was 'Untitled - Notepad'. "
              "Tick 'similar captions' or change the row.")
    person.waits_for("why_reason")
    assert person.text_of("why_reason") == reason
    cells = [line["cells"] for line in stage.probe.ask("grid", person.sees("why_table").handle)]
    assert ["Title", "Untitled - Notepad", "Report 12", "different"] in cells
    assert ["By its title", "", "Report 12", "another title"] in cells
    picture(stage, "why_1")
    person.clicks("why_copy")
    time.sleep(0.5)
    person.presses("Escape")
    person.waits_for_end_of("why_reason")
    person.clicks_into_notepad()
    time.sleep(0.5)
    person.presses("Control_L", "v")
    wait_for(lambda: "another title" in notepad.text, 5)
    assert reason in notepad.text and notepad.text.count("another title") == 1
    stage.end(program)

    stage.probe.set_text(notepad.handle, "Untitled - Notepad")
    job = stage.job()
    job.wait_for_window = 1
    job.click(360, 450, job.target(notepad.chain()[:1]))
    person.speaks("de")
    try:
        fails(stage, stage.write(job, "deep"), GERMAN)
        person.clicks("executing_why")
        person.waits_for("why_reason")
        assert person.text_of("why_reason").startswith("'(Edit)' ist da, liegt aber tiefer in anderen Fenstern")
        picture(stage, "why_2")
        person.clicks("why_close")
        person.waits_for_end_of("why_reason")
    finally:
        person.speaks("en")


def test_in_the_editor(stage, person, editor):
    """Nothing is moved by the question; a window that is gone is told, too."""
    notepad = stage.notepad()
    stage.typing_job(notepad).write(person.folder / "Letter.tsj")
    person.start_program()
    person.opens_page("job_page_lista_jobs")
    editor.opens()
    moved = tuple(edge + 50 for edge in NOTEPAD_PLACE)
    stage.probe.place(notepad.handle, 1, moved)
    editor.selects(0)
    for words in ("not in its place", "is not there, nor any other of its kind"):
        person.presses("Alt_L", "j")
        person.presses("w")
        person.waits_for("why_reason")
        assert words in person.text_of("why_reason")
        picture(stage, "why_" + words.split()[0])
        person.presses("Escape")
        person.waits_for_end_of("why_reason")
        if words.startswith("not"):
            assert tuple(stage.probe.window(notepad.handle).placement["normal"]) == moved
            stage.end(notepad.process)
