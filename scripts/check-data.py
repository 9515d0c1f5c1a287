#!/usr/bin/env python3
"""Checks the data files: windows-1252 with CR LF ends, whole language files, unambiguous settings."""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
NUMBER = re.compile(r"constexpr std::int32_t \w+ = (\d+);")
# Captions that are shown side by side, so that a mnemonic may stand for one of them only.
MENUS = [(10, 13), (11, 12), (201, 202, 203, 204)]
DAY_TYPES = 230
DAY_TYPES_LENGTH = 45  # none, seven weekdays, SD1 to SD7, three characters each


def read_lines(path, findings):
    """The lines of the file; what is wrong with its bytes goes to the findings."""
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
            pass  # as it should be
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


def check_settings(path, lines, findings):
    """Of equal names only the first would count."""
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
    wanted = set().union(*languages.values())
    wanted |= {int(number) for number in NUMBER.findall((ROOT / "src/lang/TextNumbers.h").read_text())}
    for path, texts in languages.items():
        check_texts(path, texts, wanted, findings)
    print("\n".join(findings + [f"data: {len(paths)} files, {len(findings)} findings"]))
    return 1 if findings else 0


sys.exit(main())
