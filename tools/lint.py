"""The linters behind tools/lint.sh: clang-format, clang-tidy in batches, shellcheck, flake8 and yamllint.

    tools/lint.py WORD        only clang-tidy, and only over the sources with WORD in their path
    tools/lint.py --shallow   every check, but the analyzer follows fewer and shorter paths: a fifth of the time
    tools/lint.py --quick     all but clang-tidy

Most of what clang-tidy does is to read the same headers again, so sources are read together, as one translation unit,
as long as no two of them have a name of their own for different things. A batch without a finding is remembered under
out/lint by the contents of all files of the project that it reads, and costs nothing the next time.
"""

import hashlib
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MEMORY = ROOT / "out" / "lint"
FOLDERS = ("src", "tests", "bench", "fuzz")
INCLUDE = [MEMORY / "include", ROOT / "src", ROOT / "src" / "platform", ROOT / "src" / "program", ROOT / "tests", ROOT]
LIBRARIES = {"tsj_desktop": ROOT / "src" / "tsj" / "desktop"}  # those with another name than their folder
LARGEST_BATCH = 24
CLANG_TIDY = "clang-tidy-14"
SHALLOW = ["-Xclang", "-analyzer-config", "-Xclang", "mode=shallow"]
WARNINGS = ["-Wall", "-Wextra", "-Wreserved-identifier"]
MINGW = "x86_64-w64-mingw32"


def listed(ending, folders=(*FOLDERS, "tools")):
    """The files of the project with this ending, in order."""
    return sorted(path for folder in folders for path in (ROOT / folder).rglob("*" + ending))


# --- the quick ones ---


def complains(command):
    """Runs a linter; True when it has findings, which it prints itself."""
    return subprocess.run(command, cwd=ROOT).returncode != 0


def quick_linters():
    findings = [
        complains(["clang-format-14", "--dry-run", "--Werror", *listed(".cpp"), *listed(".h")]),
        complains(["shellcheck", *listed(".sh"), ROOT / ".ci" / "run"]),
        complains(["/usr/bin/python3", "-m", "flake8", *listed(".py")]),
        complains(["yamllint", "--strict", ROOT / ".github", ROOT / ".yamllint"]),
    ]
    return any(findings)


# --- clang-tidy ---


class Source:
    """A source file with the headers of the project that it reads, and the names that only it knows."""

    _read, _names = {}, {}

    def __init__(self, path):
        self.path = path
        self.text = path.read_text(encoding="utf-8")
        self.closure = sorted(self._closure(path, set()))
        self.enclosed = self._all_in_one_namespace()
        self.windows = any("windows.h" in self._includes(file)[1] for file in self.closure)
        self.own_names = self._own_names()
        self.declared = set().union(*(self._declared_in(file) for file in self.closure if file.suffix == ".h"))

    def clashes_with(self, other):
        """Whether a name means one thing here and another there."""
        return bool(self.own_names & other.own_names or self.hidden & other.declared or other.hidden & self.declared)

    @classmethod
    def _includes(cls, path):
        """The project's files that `path` includes itself, and the names of all others."""
        if path not in cls._read:
            ours, others = [], set()
            for name in re.findall(r'^#include ["<]([^">]+)[">]', path.read_text(encoding="utf-8"), re.MULTILINE):
                places = [folder / name for folder in (path.parent, *INCLUDE) if (folder / name).is_file()]
                ours += places[:1]
                if not places:
                    others.add(name.lower())
            cls._read[path] = (ours, others)
        return cls._read[path]

    def _closure(self, path, known):
        known.add(path)
        for header in self._includes(path)[0]:
            if header not in known:
                self._closure(header, known)
        return known

    def _all_in_one_namespace(self):
        """Whether all of it but includes and aliases stands in one namespace without a name, as tests mostly do."""
        if len(re.findall(r"^namespace", self.text, re.MULTILINE)) > 1:
            return False
        outside = re.sub(r"^namespace \{$.*^\}  // namespace$", "", self.text, count=1, flags=re.MULTILINE | re.DOTALL)
        more = re.sub(r"^(?:#include .*|//.*|using .*;)$", "", outside, flags=re.MULTILINE)
        return outside != self.text and not more.strip()

    def part_of(self, number):
        """The text for a unit of several; what stands in one namespace gets one of its own."""
        if not self.enclosed:
            return self.text
        begin, end = self.text.index("\nnamespace {\n") + 1, self.text.rindex("\n}  // namespace\n") + 1
        body = self.text[begin:end]
        return f"{self.text[:begin]}namespace part{number} {{ {body}}} {self.text[end:]}"

    @classmethod
    def _declared_in(cls, header):
        if header not in cls._names:
            text = header.read_text(encoding="utf-8")
            named = re.compile(r"^namespace [\w:]+ \{$.*?^\}  // namespace [\w:]+$", re.MULTILINE | re.DOTALL)
            cls._names[header] = cls._names_at_the_margin(named.sub("", text))
        return cls._names[header]

    @staticmethod
    def _names_at_the_margin(text):
        names = set(re.findall(r"^(?:class|struct|enum|enum class|union) (\w+)", text, re.MULTILINE))
        names.update(re.findall(r"^[\w:<][^\n;({=]*?\b(\w+) ?(?:\(|\[|=|\{|;)", text, re.MULTILINE))
        names.update(re.findall(r"^\} (\w+)(?: =.*)?;", text, re.MULTILINE))
        return names

    def _own_names(self):
        self.hidden = set()  # those in a namespace without a name
        if self.enclosed:
            return set(re.findall(r"^using (\w+) =", self.text, re.MULTILINE))
        names = set(re.findall(r"^TEST(?:_F|_P)?\((\w+)", self.text, re.MULTILINE))
        names.update(re.findall(r"^[\w:<][^\n;({=]*?(?<!:)\b(\w+)\(", self.text, re.MULTILINE))
        for block in re.findall(r"^namespace \{$(.*?)^\}  // namespace$", self.text, re.MULTILINE | re.DOTALL):
            self.hidden.update(self._names_at_the_margin(block))
        names.update(re.findall(r"^#define (\w+)", self.text, re.MULTILINE))
        names.update(re.findall(r"^static [^\n;({=]*?\b(\w+) ?(?:\(|\[|=|\{|;)", self.text, re.MULTILINE))
        return names | self.hidden


def batches(sources):
    """Sources of one system in each, without two that have a name of their own for different things."""
    found = []
    for source in sources:
        for batch in found:
            if (batch[0].windows == source.windows and len(batch) < LARGEST_BATCH
                    and not any(source.clashes_with(other) for other in batch)):
                batch.append(source)
                break
        else:
            found.append([source])
    return found


def mingw_flags():
    """The cross compiler's own headers, as it tells them, for clang."""
    told = subprocess.run([MINGW + "-g++-posix", "-E", "-v", "-x", "c++", os.devnull], capture_output=True, text=True,
                          check=True).stderr
    folders = re.search(r"#include <\.\.\.> search starts here:\n(.*?)End of search list", told, re.DOTALL).group(1)
    # Not the compiler's intrinsics: clang has its own.
    return [f"--target={MINGW}", "-nostdinc++", "-DWINVER=0x0A00", "-D_WIN32_WINNT=0x0A00", "-DWIN32_LEAN_AND_MEAN",
            "-DNOMINMAX", *(flag for folder in folders.split()
                            if "include" in folder and not re.search(r"posix/include(-fixed)?$", folder)
                            for flag in ("-isystem", folder))]


def folder_names():
    """The places in the tree and in the build that CMake tells tests, as definitions."""
    told = "".join(path.read_text(encoding="utf-8") for path in (ROOT / "tests").rglob("CMakeLists.txt"))
    return [f'-D{name}="{name}"' for name in re.findall(r'\b([A-Z_]+)="\$\{', told)]


class Tidy:
    def __init__(self, shallow):
        version = subprocess.run([CLANG_TIDY, "--version"], capture_output=True, text=True, check=True).stdout
        self.flags = ["-std=c++20", *folder_names(), *WARNINGS, *(f"-I{folder}" for folder in INCLUDE)]
        self.mingw = mingw_flags()
        self.depth = SHALLOW if shallow else []
        rules = (ROOT / ".clang-tidy").read_text(encoding="utf-8") + Path(__file__).read_text(encoding="utf-8")
        self.common = hashlib.sha256((version + rules).encode())
        self.kept = set()

    def key(self, batch, depth=()):
        digest = self.common.copy()
        digest.update("".join(depth).encode())
        for file in sorted({file for source in batch for file in source.closure}):
            digest.update(f"{file.relative_to(ROOT)}\n".encode() + file.read_bytes())
        return digest.hexdigest()

    def findings(self, batch):
        """The text of what is found in a batch; empty when there is nothing."""
        deep = MEMORY / self.key(batch)
        memory = MEMORY / self.key(batch, self.depth)
        self.kept.update((deep.name, memory.name))
        if deep.exists() or memory.exists():
            return ""
        found = self._look(batch)
        if len(batch) > 1 and "[clang-diagnostic-error" in found:  # some that cannot be read together after all
            half = len(batch) // 2
            found = self.findings(batch[:half]) + self.findings(batch[half:])
        if not found:
            memory.touch()
        return found

    def _look(self, batch):
        # One text and not one list of includes: the analyzer follows the paths of the main file's functions alone.
        unit = MEMORY / f"{self.key(batch)}.cpp"
        unit.write_text("".join(source.part_of(number) for number, source in enumerate(batch)), encoding="utf-8")
        folders = sorted({f"-iquote{source.path.parent}" for source in batch})
        flags = self.flags + self.depth + folders + (self.mingw if batch[0].windows else [])
        try:
            ended = subprocess.run([CLANG_TIDY, "--quiet", str(unit), "--", *flags], cwd=ROOT, capture_output=True,
                                   text=True)
        finally:
            unit.unlink()
        if ended.returncode == 0:
            return ""
        return self._in_the_sources(ended.stdout or ended.stderr, unit, batch).replace(f"{ROOT}/", "")

    @staticmethod
    def _in_the_sources(found, unit, batch):
        """The findings with the places where the lines of the unit come from."""
        def place(match):
            line = int(match[1])
            for source in batch:
                lines = source.text.count("\n")
                if line <= lines:
                    return f"{source.path}:{line}:"
                line -= lines
            return match[0]

        return re.sub(re.escape(str(unit)) + r":(\d+):", place, found)

    def forget_others(self):
        for file in MEMORY.iterdir():
            if file.is_file() and file.name not in self.kept:
                file.unlink()


def tidy(word, shallow):
    (MEMORY / "include").mkdir(parents=True, exist_ok=True)
    for name, folder in LIBRARIES.items():
        view = MEMORY / "include" / name
        if not view.exists():
            view.symlink_to(folder)
    linter = Tidy(shallow)
    wanted = batches([Source(path) for path in listed(".cpp") if word in str(path.relative_to(ROOT))])
    good = True
    with ThreadPoolExecutor(os.cpu_count()) as workers:
        for found in workers.map(linter.findings, wanted):
            good = good and not found
            print(found, end="", flush=True)
    if good and not word:
        linter.forget_others()
    return not good


def main(words):
    if words == ["--quick"]:
        return 1 if quick_linters() else 0
    shallow = words == ["--shallow"]
    word = words[0] if words and not shallow else ""
    found = bool(not word and quick_linters())
    found = tidy(word, shallow) or found
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
