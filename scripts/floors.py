#!/usr/bin/env python3
"""The folders of src/ from the ground up, and a check that no include leads up.

A file may include files of its own folder and of the folders above its row in this table.
"""
import pathlib
import re
import sys

FLOORS = """
text             fields, numbers, lines, windows-1252
system           disk, process, clock, event loop, message boxes: the seams to the outside
lang             language texts and the messages made of them
settings         command line, ZEKView.INI, settings
formats          the three tables, their line formats and their export records
forecast         what applies to a time control at a moment, and why
findings         what in the catalogues is probably not meant
import           dates from calendar files and holidays, and what they change in a calendar
picture          what applies, as a picture: a description, its words and colours, SVG
comm             topics, links, connection, commands and replies
catalogue        reading, sending and comparing catalogues; local copies; the object tree
editors          the rules of the three editors and the pick-lists, without windows
paste            copying and pasting: blocks of cells, rows, days, whole catalogues
report           a report of time controls for reading and printing
app              the session, what every program does when it starts, and lists of findings
export           the batch export
plan             one change of many controllers: change lists, plans, applying them
wxbase           event loop and sockets of the toolkit's base library
ui               boxes, fonts, pictures and keys: the thin layer over the toolkit's windows
forms            what the forms share
forms/weekday    the weekday editor's window ZV_WDC
forms/calendar   the calendar editor's window ZV_SDC
forms/exception  the exception editor's window ZV_OVC
forms/several    the window ZV_Several: one change of many time controls
forms/browser    the browser ZV_TSC and the report's window
forms/main       the main window ZV_Main, about box and language choice
desktop          the program zekview
commands         the commands of zekview-cli
cli              the program zekview-cli
plant            a simulated plant's answers
sim              the program zekview-sim
"""
# These know neither the session nor one another's windows, whatever their row.
ONLY = {
    "plant": {"text", "system", "settings", "formats", "comm"},
    "sim": {"text", "system", "settings", "formats", "comm", "plant"},
    "commands": {"text", "system", "lang", "settings", "formats", "forecast", "findings", "import",
                 "picture", "comm", "catalogue", "export", "editors", "report", "app", "plan"},
}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
SRC = pathlib.Path(__file__).resolve().parent.parent / "src"


def main():
    folders = [row.split()[0] for row in FLOORS.strip().split("\n")]
    findings = []
    for path in sorted([*SRC.rglob("*.cpp"), *SRC.rglob("*.h")]):
        folder = path.parent.relative_to(SRC).as_posix()
        if folder not in folders:
            findings.append(f"src/{folder} is on no floor (scripts/floors.py)")
            continue
        allowed = ONLY.get(folder, set(folders[:folders.index(folder)])) | {folder}
        for name in INCLUDE.findall(path.read_text()):
            if pathlib.PurePosixPath(name).parent.as_posix() not in allowed:
                findings.append(f"{path.relative_to(SRC.parent)}: {folder} may not include {name}")
    print("\n".join([*sorted(set(findings)), f"floors: {len(folders)} folders, "
                                              f"{len(findings)} includes lead up"]))
    return 1 if findings else 0


sys.exit(main())
