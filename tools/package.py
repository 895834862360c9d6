"""Puts what tools/package.sh has built into out/package: the installer, the portable zip, and their sums.

What goes in is listed in packaging/contents.txt. Everything in a package is of the time of the commit, and in the order
of that list, so that two packages of one commit are the same, byte by byte.

    tools/package.py [FOLDER]        another folder for the results
"""

import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PACKAGING = ROOT / "packaging"


def product_version():
    header = (ROOT / "src" / "base" / "product.h").read_text()
    return re.search(r'ProductVersion = "([\d.]+)"', header)[1]


def time_of_commit():
    """In seconds since 1970. A tree without a history is told it by SOURCE_DATE_EPOCH."""
    told = os.environ.get("SOURCE_DATE_EPOCH")
    if told:
        return int(told)
    return int(subprocess.check_output(["git", "-C", ROOT, "log", "-1", "--format=%ct"], text=True))


def contents():
    """Pairs of a file and its name beside the program."""
    lines = (PACKAGING / "contents.txt").read_text().splitlines()
    pairs = [re.split(r"\s{2,}", line.strip()) for line in lines if line.strip() and not line.startswith("#")]
    missing = [source for source, _ in pairs if not (ROOT / source).is_file()]
    if missing:
        sys.exit(f"package.py: packaging/contents.txt lists what is not there: {', '.join(missing)}")
    return [(ROOT / source, name) for source, name in pairs]


def stage(folder, when):
    """Copies the contents into `folder` and returns their names."""
    for source, name in contents():
        if name.endswith(".txt"):  # for Notepad, on a Windows of any age
            (folder / name).write_text(source.read_text(), newline="\r\n")
        else:
            shutil.copyfile(source, folder / name)
        os.utime(folder / name, (when, when))
    return [name for _, name in contents()]


def write_zip(path, folder, names, top, when):
    stamp = time.gmtime(max(when, 315532800))[:6]  # a zip knows no time before 1980
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in names:
            entry = zipfile.ZipInfo(f"{top}/{name}", stamp)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 0  # no rights of a Unix
            archive.writestr(entry, (folder / name).read_bytes())


def write_installer(path, folder, names, version, when):
    listed = folder.parent / "files.nsh"
    lines = "\n".join(f'    !insertmacro ${{DO}} "{name}"' for name in names)
    listed.write_text(f"!macro EachFile DO\n{lines}\n!macroend\n")
    defines = {"VERSION": version, "OUT_FILE": path, "STAGE": folder, "FILES": listed, "ASSETS": ROOT / "assets"}
    command = ["makensis", "-V2", "-WX", "-INPUTCHARSET", "UTF8",
               *(f"-D{key}={value}" for key, value in defines.items()), "tessarine.nsi"]
    made = subprocess.run(command, cwd=PACKAGING, env={**os.environ, "SOURCE_DATE_EPOCH": str(when)},
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if made.returncode != 0:
        sys.exit(f"package.py: makensis failed:\n{made.stdout}")


def main(folder):
    version, when = product_version(), time_of_commit()
    folder.mkdir(parents=True, exist_ok=True)
    for old in (*folder.glob("Tessarine-*"), folder / "SHA256SUMS"):  # what else is made there stays
        old.unlink(missing_ok=True)
    results = [folder / f"Tessarine-{version}-setup.exe", folder / f"Tessarine-{version}-portable.zip"]
    with tempfile.TemporaryDirectory() as workshop:
        staged = Path(workshop) / "files"
        staged.mkdir()
        names = stage(staged, when)
        write_installer(results[0], staged, names, version, when)
        write_zip(results[1], staged, names, f"Tessarine {version}", when)
    sums = [f"{hashlib.sha256(path.read_bytes()).hexdigest()} *{path.name}\n" for path in results]
    (folder / "SHA256SUMS").write_text("".join(sums))
    for path in results:
        print(f"==> {path.relative_to(ROOT) if path.is_relative_to(ROOT) else path} ({path.stat().st_size} bytes)")


main(Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "out" / "package")
