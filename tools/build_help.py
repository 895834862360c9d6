"""Compiles assets/help with chmcmd. The same pages give the same bytes: the times that chmcmd puts in become 0.

    tools/build_help.sh            which see
"""

import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HELP = ROOT / "assets" / "help"
COMPILED = "Tessarine Help.chm"

# The two places of a time: the last two words of the file's own header, the second of them the language, and the first
# entry (number 10) of #SYSTEM, which is stored as it is. (A binary index would hold a number that chmcmd takes from
# memory it has not set, which is one reason for help.hhp to ask for none; the other is that hh.exe needs none.)
HEADER_TIME = slice(16, 20)
SYSTEM_TIME = re.compile(rb"(?s)(\x03\0\0\0\x0a\0\x04\0)....(?=\x09\0..HHA Version)")


def without_time(chm):
    chm = bytearray(chm)
    if chm[:4] != b"ITSF":
        raise ValueError("chmcmd has made something else than a help file")
    chm[HEADER_TIME] = bytes(4)
    settled, places = SYSTEM_TIME.subn(rb"\1" + bytes(4), bytes(chm))
    if places != 1:
        raise ValueError(f"#SYSTEM was found in {places} places of the help file")
    return settled


def compile_pages():
    with tempfile.TemporaryDirectory() as folder:
        workshop = Path(folder) / "help"
        shutil.copytree(HELP, workshop)
        made = subprocess.run(["chmcmd", "help.hhp"], cwd=workshop, capture_output=True, text=True, errors="replace")
        compiled = workshop / COMPILED
        if made.returncode != 0 or not compiled.exists() or "Warning" in made.stdout:
            sys.exit(f"build_help.py: chmcmd failed\n{made.stdout}{made.stderr}")
        return compiled.read_bytes()


def main():
    target = Path(sys.argv[1])
    target.parent.mkdir(parents=True, exist_ok=True)
    new = target.with_suffix(".new")
    new.write_bytes(without_time(compile_pages()))
    new.replace(target)


main()
