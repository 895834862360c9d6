"""Packs out/package/windows-check.zip, for tools/windows_check.sh."""

import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
OUT = ROOT / "out"
BUILD = OUT / "build" / "windows"
PROGRAM = OUT / "windows"
# Everything beside each other, and nothing else is needed there.
FILES = [ROOT / "tools" / "windows_check.cmd", ROOT / "assets" / "samples" / "hello.tsj",
         BUILD / "tests" / "platform" / "platform_contract.exe", BUILD / "bench" / "desktop_bench.exe",
         *sorted(path for path in PROGRAM.iterdir() if path.suffix in (".exe", ".bin"))]


def content_of(path):
    """Batch files are read by line ends of Windows alone."""
    data = path.read_bytes()
    return data.replace(b"\n", b"\r\n") if path.suffix == ".cmd" else data


def main():
    package = OUT / "package" / "windows-check.zip"
    package.parent.mkdir(parents=True, exist_ok=True)
    with zipfile.ZipFile(package, "w", zipfile.ZIP_DEFLATED) as archive:
        for path in FILES:
            archive.writestr(zipfile.ZipInfo(path.name, (1980, 1, 1, 0, 0, 0)), content_of(path),
                             zipfile.ZIP_DEFLATED)
    print(f"==> {package.relative_to(ROOT)} ({package.stat().st_size} bytes)")


main()
