"""The pages of the help: everything that they point to is there, and nothing is there that nobody points to."""

import html
import re
import subprocess
import sys
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HELP = ROOT / "assets" / "help"
FIRST = "welcome.htm"
NAMED = {"speed.htm", "assign_hotkeys.htm", "repeat.htm", "Recording_a_new_job.htm"}  # others may open these
VOID = {"img", "link", "meta", "br", "param"}


class Page(HTMLParser):
    def __init__(self, path):
        super().__init__(convert_charrefs=True)
        self.name, self.links, self.pictures, self.captions, self.texts = path.name, [], [], [], {}
        self.problems, self.open = [], []
        self.feed(path.read_text(encoding="utf-8"))
        self.close()
        self.problems += [f"<{tag}> is not closed" for tag in self.open]

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag == "script" or any(name.startswith("on") for name in attributes):
            self.problems.append("a script")
        if tag in ("a", "link"):
            self.links.append(attributes["href"])
        if tag == "img":
            self.pictures.append(attributes["src"])
            if not attributes.get("alt"):
                self.problems.append(f"{attributes['src']} has no text beside it")
        if tag not in VOID:
            self.open.append(tag)
            if tag in ("b", "h1", "title"):
                self.texts.setdefault(tag, []).append("")

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.problems.append(f"</{tag}> closes nothing")

    def handle_data(self, data):
        for tag in {"b", "h1", "title"}.intersection(self.open):
            self.texts[tag][-1] += data


PAGES = {path.name: Page(path) for path in sorted(HELP.glob("*.htm"))}


def sitemap(name):
    return re.findall(r'name="Local" value="([^"]*)"', (HELP / name).read_text(encoding="ascii"))


def words_of_the_program():
    """Every text between quotes in the dictionary and the forms, as it is shown: without marks for letters."""
    literal = r'"(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*'
    words = set()
    for folder in ("dictionary", "program"):
        for source in (ROOT / "src" / folder).rglob("*.cpp"):
            for text in re.findall(literal, source.read_text(encoding="utf-8")):
                text = re.sub(r'"\s*"', "", text)[1:-1]
                words.add(text.replace("&", "").rstrip(":.?! "))
    return words


def test_pages_are_whole():
    for page in PAGES.values():
        assert page.problems == [], page.name
        assert page.texts["h1"] == page.texts["title"], page.name


def test_every_link_and_picture_is_there_and_nothing_else():
    pointed = {target for page in PAGES.values() for target in page.links + page.pictures}
    files = {str(path.relative_to(HELP)) for path in HELP.rglob("*")
             if path.is_file() and path.suffix not in (".hhp", ".hhc", ".hhk")}
    readme = set(re.findall(r"assets/help/(pictures/\w+\.png)", (ROOT / "README.md").read_text(encoding="utf-8")))
    assert pointed - files == set(), "what pages point to and is not there"
    assert files - pointed == set(), "what is there and no page points to"
    assert readme - files == set()


def test_every_page_is_reached_and_stands_in_the_contents():
    reached, ahead = set(), [FIRST]
    while ahead:
        name = ahead.pop()
        if name in PAGES and name not in reached:
            reached.add(name)
            ahead += PAGES[name].links
    assert reached == set(PAGES)
    assert sorted(sitemap("contents.hhc")) == sorted(PAGES), "each once"
    assert set(sitemap("index.hhk")) <= set(PAGES)
    project = (HELP / "help.hhp").read_text(encoding="ascii")
    assert sorted(project.partition("[FILES]\n")[2].split()) == sorted(PAGES)


def test_topics_of_the_program_are_pages():
    header = ROOT / "src" / "program" / "toolkit" / "help_topics.h"
    topics = dict(re.findall(r'const char\* (\w+) = "([^"]+)"', header.read_text(encoding="utf-8")))
    assert NAMED <= set(topics.values()) <= set(PAGES)
    sources = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "src" / "program").rglob("*")
                      if path.suffix in (".h", ".cpp"))
    assert [name for name in topics if f"help_topic::{name}" not in sources] == [], "no form names them"


def test_captions_are_those_of_the_program():
    """What stands in <b> is what the reader sees on the screen, in the language of the page."""
    words = words_of_the_program()
    for page in PAGES.values():
        for caption in page.texts.get("b", []):
            seen = re.sub(r"\s+", " ", html.unescape(caption)).strip().rstrip(":.?! ")
            assert any(seen == word or word.startswith(seen + ":") for word in words), f"{page.name}: {caption!r}"


def test_the_same_pages_make_the_same_file(tmp_path):
    made = []
    for name in ("one.chm", "two.chm"):
        subprocess.run([sys.executable, ROOT / "tools" / "build_help.py", tmp_path / name], check=True)
        made.append((tmp_path / name).read_bytes())
    assert made[0] == made[1]
    missing = [name for page in PAGES.values() for name in [page.name, *page.pictures]
               if f"/{name}".encode() not in made[0]]
    assert missing == [], "not in the file"
