#!/usr/bin/env python3
"""Checks the data files: windows-1252 with CR LF line ends, settings without duplicates, and the
same text numbers in the program, in every language file and in docs/texts.md."""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TABLE = pathlib.PurePath("src/lang/Texts.def")
ROW = re.compile(r'^ZEK_(?:TEXT|BUILT_IN)\(k\w+, (\d+)', re.MULTILINE)
BUILT_IN = re.compile(r'^ZEK_BUILT_IN\(k\w+, (\d+),(?:  //.*)?\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\)',
                      re.MULTILINE)
BUILT_IN_LANGUAGE = "zek_lang.046"
DOCUMENT = pathlib.PurePath("docs/texts.md")
DOCUMENT_ROW = re.compile(r"^\| (\d[\d, to]*) \|", re.MULTILINE)
# Captions that are shown side by side, so that each needs a different mnemonic.
MENUS = [(10, 13), (11, 12), (201, 202, 203, 204)]
DAY_TYPES = 230
DAY_TYPES_LENGTH = 45  # none, seven weekdays, SD1 to SD7, three characters each
# A language uses one of two placeholders: the weekday or month as in the captions, or with a
# lower-case initial.
SAME_PLACES = {665: {"%5": "%1", "%6": "%3"}, 666: {"%2": "%1"}}


def read_lines(path, findings):
    """The lines of the file; adds errors in its bytes to the findings."""
    data = path.read_bytes()
    try:
        text = data.decode("windows-1252")
    except UnicodeDecodeError as error:
        findings.append(f"{path}: byte {error.start} is not windows-1252")
        text = data.decode("latin-1")
    if not data.isascii():
        try:
            data.decode("utf-8")
            findings.append(f"{path}: is UTF-8, not windows-1252")
        except UnicodeDecodeError:
            pass  # correct: it is not UTF-8
    lines = text.split("\r\n")
    if lines.pop() != "":
        findings.append(f"{path}: the last line does not end in CR LF")
    for number, line in enumerate(lines, 1):
        if "\r" in line or "\n" in line:
            findings.append(f"{path}:{number}: ends in CR or LF alone")
    return lines


def read_texts(path, lines, findings):
    """The numbered texts of a language file."""
    texts = {}
    for number, line in enumerate(lines, 1):
        if line == "" or line.startswith(";") and "=" not in line:
            continue
        match = re.fullmatch(r"(\d+)=([^=]+)", line)
        if not match:
            findings.append(f"{path}:{number}: is neither a comment without '=' nor number=text")
        elif int(match[1]) in texts:
            findings.append(f"{path}:{number}: text {match[1]} is there twice")
        else:
            texts[int(match[1])] = match[2]
    return texts


def check_texts(path, texts, wanted, findings):
    for number in sorted(wanted - texts.keys()):
        findings.append(f"{path}: lacks text {number}")
    for menu in MENUS:
        keys = [key.upper() for number in menu for key in re.findall("&(.)", texts.get(number, ""))]
        if len(keys) != len(set(keys)):
            findings.append(f"{path}: texts {menu} share a mnemonic")
    if len(texts.get(DAY_TYPES, "")) != DAY_TYPES_LENGTH:
        findings.append(f"{path}: text {DAY_TYPES} is not {DAY_TYPES_LENGTH} characters long")


def read_table(findings):
    """The numbers in the table of texts, and the built-in texts by number."""
    source = (ROOT / TABLE).read_text()
    numbers = [int(number) for number in ROW.findall(source)]
    findings += [f"{TABLE}: text {number} is there twice"
                 for number in sorted({n for n in numbers if numbers.count(n) > 1})]
    texts = {int(number): "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals))
             for number, literals in BUILT_IN.findall(source)}
    if len(texts) != source.count("\nZEK_BUILT_IN("):
        findings.append(f"{TABLE}: a row of a built-in text can't be read")
    return set(numbers), texts


def documented():
    numbers = set()
    for row in DOCUMENT_ROW.findall((ROOT / DOCUMENT).read_text()):
        for first, last in re.findall(r"(\d+)(?: to (\d+))?", row):
            numbers |= set(range(int(first), int(last or first) + 1))
    return numbers


def places(number, text):
    same = SAME_PLACES.get(number, {})
    return {same.get(place, place) for place in re.findall("%[1-9]", text)}


def check_all_texts(languages, findings):
    """Checks that every text is in all language files and documented."""
    table, built_in = read_table(findings)
    wanted = table.union(*languages.values())
    findings += [f"{DOCUMENT}: lacks text {number}" for number in sorted(wanted - documented())]
    findings += [f"{DOCUMENT}: no text has number {number}"
                 for number in sorted(documented() - wanted)]
    swedish = next(texts for path, texts in languages.items() if path.name == BUILT_IN_LANGUAGE)
    findings += [f"{TABLE}: text {number} is another in {BUILT_IN_LANGUAGE}"
                 for number, text in built_in.items() if swedish.get(number, text) != text]
    for path, texts in languages.items():
        check_texts(path, texts, wanted, findings)
        findings += [f"{path}: text {number} has other places than {BUILT_IN_LANGUAGE}"
                     for number, text in texts.items()
                     if places(number, text) != places(number, swedish.get(number, text))]


def check_settings(path, lines, findings):
    """Reports duplicate names, because only the first of them takes effect."""
    sections, keys = set(), set()
    for number, line in enumerate(lines, 1):
        name = None
        if line.startswith("["):
            name, seen, keys = line.partition("]")[0].upper(), sections, set()
        elif line and not line.startswith(";"):
            name, equals, _ = line.partition("=")
            name, seen = name.strip().upper(), keys
            if not equals:
                findings.append(f"{path}:{number}: has no '='")
        if name is None:
            continue
        if name in seen:
            findings.append(f"{path}:{number}: {name} is there twice")
        seen.add(name)


def main():
    names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard",
                            "--", "data"], cwd=ROOT, capture_output=True, check=True).stdout
    paths = [pathlib.Path(name) for name in sorted(names.decode().split("\0")) if name]
    paths = [path for path in paths if not path.name.startswith(".") and (ROOT / path).is_file()]
    findings, languages = [], {}
    for path in paths:
        lines = read_lines(ROOT / path, findings)
        if path.name.startswith("zek_lang."):
            languages[path] = read_texts(path, lines, findings)
        elif path.suffix == ".INI":
            check_settings(path, lines, findings)
    check_all_texts(languages, findings)
    print("\n".join(findings + [f"data: {len(paths)} files, {len(findings)} findings"]))
    return 1 if findings else 0


sys.exit(main())
