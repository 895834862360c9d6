"""The Options and About pages, the dialog of a first start, and the update check against a server of its own."""

import contextlib
import http.server
import socket
import struct
import threading
import time

import pytest
from wine_desktop import OUT, wait_for

OWN_KEY = "Software\\Tessarine"
RUN_KEY = "Software\\Microsoft\\Windows\\CurrentVersion\\Run"
# Where the switches stand in settings.binary.
SWITCHES = {"options_page_Check_updates": 46, "options_page_play_sounds_for_keystrokes": 50,
            "options_page_Play_Menu_Sounds": 54, "options_page_Display_Executing_Status": 58}


def switch_in_file(person, folder, name):
    with contextlib.suppress(FileNotFoundError, struct.error):
        return struct.unpack_from("<i", (folder / "settings.binary").read_bytes(), SWITCHES[name])[0]
    return None


def ticked(person, name):
    return person.probe.ask("send", person.waits_for(name).handle, 0xF0, 0, 0) == 1  # BM_GETCHECK


def test_switches_are_written_at_once(stage, person):
    """By mouse and keyboard; the registry is asked whenever the page comes up."""
    person.start_program()
    person.opens_page("options_page_Command7")
    for name in SWITCHES:
        for state in (0, 1):
            person.clicks(name)
            assert wait_for(lambda: switch_in_file(person, person.folder, name) == state), (name, state)
            assert ticked(person, name) == bool(state)
    assert person.focus() in SWITCHES
    command = f'"{stage.wine.windows_path(stage.program.parent)}\\tessarine.exe" -startup'
    for expected in (command, None):
        person.presses("Alt_L", "s")
        assert wait_for(lambda: person.registry(RUN_KEY, "Tessarine") == expected, 10)
        assert ticked(person, "options_page_start_with_windows") == bool(expected)
    person.puts_into_registry(RUN_KEY, "Tessarine", command.upper())
    person.presses("Control_L", "Tab")
    person.opens_page("options_page_Command7")
    assert ticked(person, "options_page_start_with_windows"), "somebody else's entry of the same words"
    person.puts_into_registry(RUN_KEY, "Tessarine")
    assert not stage.box()


def test_a_language_is_in_force_at_once(stage, person):
    person.puts_job("a")
    person.puts_job("b")
    program = person.start_program()
    person.presses("Down")
    person.opens_page("options_page_Command7")
    try:
        person.presses("Alt_L", "l")
        assert wait_for(lambda: person.focus() == "options_page_language_combo")
        person.presses("Down")
        assert wait_for(lambda: person.sees("options_page_Command7").caption.replace("&", "") == "Ordner öffnen")
        assert person.registry(OWN_KEY, "Language") == "de"
        assert person.focus() == "options_page_language_combo"
        person.presses("Down")
        person.presses("Down")
        assert wait_for(lambda: person.sees("form1_Exit").caption.replace("&", "") == "Quitter")
        person.opens_page("job_page_lista_jobs")
        assert person.text_of("job_page_lista_jobs").startswith("b"), "the selected job stays selected"
        assert "'b'" in person.sees("job_page_frame").caption and "tâche" in person.sees("job_page_frame").caption
        assert person.registry(OWN_KEY, "Language") == "fr"
        assert program.poll() is None
    finally:
        person.speaks("en")


def test_the_data_folder_is_opened_and_moved(stage, person):
    """In the folder browser, by keyboard."""
    person.puts_job("a")
    person.start_program()
    person.opens_page("options_page_Command7")
    assert person.text_of("options_page_folder").endswith("\\Documents\\Tessarine")
    person.clicks("options_page_Command7")
    assert wait_for(lambda: person.probe.find("ExplorerWClass", visible=True)), "the explorer shows it"
    stage.probe.ask("post", person.probe.find("ExplorerWClass", visible=True).handle, 0x10, 0, 0)
    assert wait_for(lambda: not person.probe.find("ExplorerWClass", visible=True))
    stage.brings_to_front(stage.main_window().handle)
    documents = person.folder.parent
    try:
        person.clicks("options_page_Command2")
        browser = wait_for(lambda: person.probe.find("#32770", visible=True))
        assert browser
        time.sleep(1)
        stage.wine.screenshot(OUT / "test" / "forms" / "folder_browser.png")
        person.presses("Left")  # to the folder that this one is in
        person.presses("Return")
        question = person.box("Move Files?")
        assert "New location: C:\\users" in stage.box_text(question)
        person.presses("Alt_L", "y")
        assert wait_for(lambda: person.text_of("options_page_folder").endswith("\\Documents"))
        assert (documents / "a.tsj").exists() and not (person.folder / "a.tsj").exists()
        assert person.registry(OWN_KEY, "DataDir").endswith("\\Documents")
        person.clicks("options_page_Check_updates")
        assert wait_for(lambda: switch_in_file(person, documents, "options_page_Check_updates") == 0)
        assert not (person.folder / "settings.binary").exists()
    finally:
        stage.clear()
        person.puts_into_registry(OWN_KEY, "DataDir")
        for name in ("a.tsj", "settings.binary"):
            (documents / name).unlink(missing_ok=True)


def test_a_new_user_chooses_a_language_first(stage, person):
    person.puts_into_registry(OWN_KEY, "Language")
    try:
        stage.tessarine("-startup")
        assert wait_for(stage.main_window), "nobody is asked when the computer starts"
        stage.clear()
        stage.tessarine()
        dialog = wait_for(lambda: person.probe.find("#32770", "Select Language", visible=True))
        assert dialog and not stage.main_window()
        time.sleep(0.5)
        stage.wine.screenshot(OUT / "test" / "forms" / "language_selection.png")
        person.presses("Down")
        person.presses("Down")
        person.presses("Return")
        assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
        assert person.registry(OWN_KEY, "Language") == "sp"
        assert wait_for(lambda: person.sees("form1_Exit").caption.replace("&", "") == "Salir")
    finally:
        person.speaks("en")


# --- the update check ---

class Answers(http.server.BaseHTTPRequestHandler):
    """Of the update server, by the folder that is asked."""

    TEXTS = {"newer": "3.0.7", "same": "3.0.6", "older": "2.9.9", "junk": "<html>", "long": "3.0.10", "empty": "",
             "redirected": "3.0.7"}
    asked = []
    over = threading.Event()  # until then, who takes his time takes it

    def do_GET(self):
        folder = self.path.split("/")[1]
        self.asked.append((self.path, self.headers.get("Cookie")))
        with contextlib.suppress(OSError):
            self.answer(folder)

    def answer(self, folder):
        if folder == "redirect":
            self.begin(302, Location="/redirected/ver.txt")
        elif folder == "gone":
            self.begin(404, "3.0.7")
        elif folder == "slow":
            self.over.wait()
            self.begin(200, "3.0.7")
        elif folder == "drip":
            self.begin(200)
            while not self.over.wait(0.5):
                self.wfile.write(b"3")
        elif folder == "endless":
            self.begin(200)
            while True:
                self.wfile.write(b"3.0.7" * 1000)
        elif folder == "reset":
            self.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            self.connection.close()
        else:
            self.begin(200, self.TEXTS[folder])

    def begin(self, status, text=None, **headers):
        self.send_response(status)
        headers["Set-Cookie"] = "seen=1"
        for name, value in headers.items():
            self.send_header(name.replace("_", "-"), value)
        if text is not None:
            self.send_header("Content-Length", str(len(text)))
        self.end_headers()
        self.wfile.write((text or "").encode())

    def log_message(self, *_):
        pass


@pytest.fixture
def server():
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Answers)
    server.daemon_threads = True
    Answers.asked.clear()
    Answers.over.clear()
    threading.Thread(target=server.serve_forever, daemon=True).start()
    yield f"http://127.0.0.1:{server.server_port}/"
    Answers.over.set()
    server.shutdown()
    server.server_close()


@pytest.fixture
def update_server(person):
    """Sets its address."""
    yield lambda address: person.puts_into_registry(OWN_KEY, "UpdateServer", address)
    person.puts_into_registry(OWN_KEY, "UpdateServer")


NO_ANSWER = "No connection"
UP_TO_DATE = "No update needed"
NEWER = "Version 3.0.7 is available"


def test_check_for_updates_tells_what_the_server_says(stage, person, server, update_server):
    program = person.start_program()
    person.opens_page("about_page_Command4")
    assert not person.sees("about_page_homepage").enabled
    person.clicks("about_page_Command4")
    assert "No update server" in stage.box_text(person.box("Check for updates"))
    person.presses("Return")
    outcomes = {"newer": NEWER, "same": UP_TO_DATE, "older": UP_TO_DATE, "junk": NO_ANSWER, "long": NO_ANSWER,
                "empty": NO_ANSWER, "gone": NO_ANSWER, "redirect": NEWER, "reset": NO_ANSWER, "endless": NO_ANSWER,
                "slow": NO_ANSWER, "drip": NO_ANSWER, "none": NO_ANSWER}
    for folder, title in outcomes.items():
        update_server(server + folder if folder != "none" else "http://127.0.0.1:9")
        person.clicks("about_page_Command4")
        assert person.box().caption == title, folder
        if folder == "slow":
            assert "wait" in person.sees("about_page_Command4").caption
            assert not person.sees("about_page_Command4").enabled
        person.presses("Escape")
        assert wait_for(lambda: not stage.box())
        assert wait_for(lambda: person.sees("about_page_Command4").enabled)
    assert program.poll() is None
    assert person.focus() == "about_page_Command4"
    assert ("/redirected/ver.txt", None) in Answers.asked
    assert all(cookie is None for _, cookie in Answers.asked), "no cookies"
    assert sum(path.startswith("/newer") for path, _ in Answers.asked) == 1
    update_server(server + "newer")
    person.clicks("about_page_Command4")
    person.box(NEWER)
    person.presses("Escape")
    assert wait_for(lambda: sum(path.startswith("/newer") for path, _ in Answers.asked) == 2), "no cache"


def test_the_start_asks_quietly(stage, person, server, update_server):
    """The settings ask for it; a server that does not answer holds nothing up."""
    person.start_program()
    person.opens_page("options_page_Command7")
    person.clicks("options_page_Play_Menu_Sounds")
    assert wait_for(lambda: (person.folder / "settings.binary").exists())
    stage.clear()
    update_server(server + "slow")
    stage.tessarine()
    assert wait_for(lambda: Answers.asked)
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
    assert not stage.box()
    stage.clear()
    update_server(server + "newer")
    stage.tessarine()
    box = wait_for(lambda: stage.box(NEWER))
    assert box and not stage.main_window(), "the news comes before the window"
    assert "Customer Care" in stage.box_text(box)
    person.presses("Escape")
    assert wait_for(lambda: stage.main_window() and stage.main_window().visible)
