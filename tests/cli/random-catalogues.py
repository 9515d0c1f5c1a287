#!/usr/bin/env python3
"""The program's reading and rebuilding of catalogues against a second reading of the same rules.

Usage: random-catalogues.py BIN_DIRECTORY DATA_DIRECTORY [COUNT] [SEED] [KIND...]

Makes COUNT random catalogues of the KINDs (wdc, sdc, ovc; all by default) and compares what
`zekview-cli check --rebuild` prints, and its exit status, with the rules in catalogue_rules.py.
Then it gives the program bytes that no controller sends: it must survive them and say why it
refuses them.
"""

import difflib
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
from typing import NamedTuple

sys.dont_write_bytecode = True  # the sources' directory stays as it is
import catalogue_rules as rules
import random_lines

KINDS = ["wdc", "sdc", "ovc"]
ORDINARY_NAMES = ["AHU1", "KYLA GÅRDEN", "LONGERTHANTWELVE"]
PLT_NAMES = ["PLT1", "PLT7", "PLT12X", "PLT", "PLT10", "PLT99"]
TOO_LARGE_NAMES = ["PLT100", "PLT400"]  # their line numbers do not fit everywhere
DEFAULT_ROWS = {"SaveOptionsZEK1": rules.RowNumbers(1, 100),
                "SaveOptionsZEK2": rules.RowNumbers(1, 0)}


class Mismatch(Exception):
    pass


class Settings(NamedTuple):
    """What of ZEKView.INI the catalogues depend on."""

    years: tuple = (93, 2099)  # the last two-digit and the last four-digit year
    rows: dict = {}  # by section: the RowNumbers of exceptions
    plt_names: list = PLT_NAMES

    def text(self):
        lines = ["[General]", "Language=046", "DisconnectTime=300", "GetTSCTimeout=5"]
        if self.years != (20, 2030):
            lines += [f"SDCLastTwoDigitYear={self.years[0]}", f"SDCLastYear={self.years[1]}"]
        lines += ["[Topics]", "OLD=YES,ZEK1,127.0.0.1:1,Old plant",
                  "NEW=YES,ZEK2,127.0.0.1:1:3,New plant"]
        for topic in ("OLD", "NEW"):
            lines += [f"[{topic}]", *(f"{name}=Plant/Unit/{name};1" for name in
                                      ORDINARY_NAMES + self.plt_names)]
        for section, numbers in self.rows.items():
            lines += [f"[{section}]", f"OVCStartRow={numbers.start}",
                      f"OVCMultiplyPLT={numbers.multiply}"]
        return "\n".join(lines) + "\n"


class Program:
    """zekview-cli with a directory of its own."""

    def __init__(self, binaries, data, home):
        self.cli = pathlib.Path(binaries, "zekview-cli")
        self.home = pathlib.Path(home, "program")
        self.file = pathlib.Path(home, "catalogue.txt")
        self.home.mkdir()
        shutil.copy(pathlib.Path(data, "lang", "zek_lang.046"), self.home)

    def rebuild(self, case, content):
        (self.home / "ZEKView.INI").write_bytes(case.settings.text().encode("cp1252"))
        self.file.write_bytes(content)
        return subprocess.run([self.cli, "--dir", self.home, "check", case.kind, case.node,
                               self.file, "--rebuild"], capture_output=True, timeout=20, check=False)


class Case(NamedTuple):
    kind: str
    new: bool
    name: str
    settings: Settings = Settings()
    lines: list = []

    @property
    def node(self):
        return ("NEW/" if self.new else "OLD/") + self.name

    def expected(self):
        control = rules.Control(self.name, self.new, self.settings.plt_names)
        if self.kind == "wdc":
            return rules.weekday(self.lines, control)
        if self.kind == "sdc":
            year_rule = rules.YearRule(self.new, self.settings.years[self.new])
            return rules.calendar(self.lines, self.name, year_rule)
        section = "SaveOptionsZEK2" if self.new else "SaveOptionsZEK1"
        numbers = self.settings.rows.get(section, DEFAULT_ROWS[section])
        return rules.exceptions(self.lines, control, numbers)


def random_settings(rng, name):
    years = (20, 2030) if rng.random() < 0.2 else (93, 2099)
    rows = {section: rules.RowNumbers(rng.choice([1, 5, 1000]), rng.choice([0, 10, 100]))
            for section in DEFAULT_ROWS} if rng.random() < 0.3 else {}
    plt_names = rng.sample(PLT_NAMES, rng.choice([0, 1, 2, len(PLT_NAMES)]))
    return Settings(years, rows, sorted({*plt_names, *([name] if rules.is_plt(name) else [])}))


def random_case(rng, kind):
    new = rng.random() < 0.5
    name = rng.choice(TOO_LARGE_NAMES if rng.random() < 0.05 else
                      ORDINARY_NAMES if rng.random() < 0.5 else PLT_NAMES)
    settings = random_settings(rng, name)
    if kind == "wdc":
        lines = random_lines.weekday_catalogue(rng, name, new, settings.plt_names)
    elif kind == "sdc":
        last_year = settings.years[1] if new else 2000 + settings.years[0]
        lines = random_lines.calendar_catalogue(rng, name, new, last_year)
    else:
        lines = random_lines.exception_catalogue(rng, name, new)
    return Case(kind, new, name, settings, lines)


def check_case(program, case, file_lines):
    content = "".join(line + "\r\n" for line in file_lines).encode("cp1252")
    result, expected = program.rebuild(case, content), case.expected()
    got = result.stdout.decode().splitlines()
    silent = expected.status == 1 and not result.stderr.strip()
    if got == (expected.lines or []) and result.returncode == expected.status and not silent:
        return
    difference = difflib.unified_diff(expected.lines or [], got, "by the rules", "by the program",
                                      lineterm="")
    raise Mismatch("\n".join(
        [f"{case.kind} {case.node}, {case.settings}",
         *file_lines, "", *difference,
         f"exit status {result.returncode}, by the rules {expected.status}",
         result.stderr.decode(errors="replace")]))


def check_random(program, count, seed, kinds):
    for number in range(count):
        rng = random.Random(f"{seed}/{number}")
        case = random_case(rng, kinds[number % len(kinds)])
        file_lines = list(case.lines)
        if rng.random() < 0.2:  # anywhere in a file, this is not a line of the catalogue
            file_lines.insert(rng.randint(0, len(file_lines)), ".DFV = 21")
        try:
            check_case(program, case, file_lines)
        except Mismatch as mismatch:
            raise Mismatch(f"catalogue {number} of seed {seed}: {mismatch}") from None


def check_hostile(program, seed, kinds):
    """Random bytes, a line of every length with every byte, numbers of any size, too many lines."""
    rng = random.Random(seed)
    line = b" 1000 !AHU1        !MO           !24-DEC-26..1E999             !%s        !-1E-999\n"
    texts = [rng.randbytes(20000), b"\n".join(rng.randbytes(200) for _ in range(150)),
             b"".join(bytes(range(size)) + b"\n" for size in range(257)),
             line % (b"9" * 10000), line * 5000, b"!" * 10000, b" " * 10000]
    for case in (Case(kind, new, name) for kind in kinds for new in (False, True)
                 for name in ("AHU1", "PLT1")):
        for text in texts:
            result = program.rebuild(case, text)
            told = result.stderr.decode(errors="replace")
            if (result.returncode not in (0, 1) or "Sanitizer" in told or "runtime error" in told
                    or (result.returncode == 1 and not told.strip())):
                raise Mismatch(f"{case.kind} {case.node}: {text[:200]} ended with "
                               f"{result.returncode}\n{told}")


def main(binaries, data, count="600", seed="1", *kinds):
    with tempfile.TemporaryDirectory() as home:
        program = Program(binaries, data, home)
        try:
            check_random(program, int(count), int(seed), kinds or KINDS)
            check_hostile(program, int(seed), kinds or KINDS)
        except (Mismatch, subprocess.TimeoutExpired) as fault:
            print(fault)
            return 1
    return 0


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
