"""Texts that no controller sends: the program survives them, says what it refuses and
leaves no trace.
"""

import random

LINES = 201
NODES = ["OLD/AHU1", "OLD/PLT1", "NEW/AHU1", "NEW/PLT1"]
WEEKDAY = b" 1000 !AHU1        !MO..FR       !06:00..18:00             !1        !0\n"
WEEKDAY_PLT = b" 101  MO..FR                   !06:00        !1     \n"
CALENDAR = b" 1000 !24-DEC-26..26-DEC-26                                !SD1\n"
EXCEPTION_OLD = b"    1 !AHU1        !11-DEC-26,17:00..11-DEC-26,23:00       !1        !0\n"
EXCEPTION_NEW = b"1     24-DEC-2026..26-DEC-2026 !00:00..24:00 !0     !.\n"
GOOD = WEEKDAY + WEEKDAY_PLT + CALENDAR + EXCEPTION_OLD + EXCEPTION_NEW

TEXTS = {
    "empty": b"",
    "empty lines": b"\r\n\n\n\r\n",
    "no line end": GOOD[:-1],
    "every kind of line": GOOD,
    "wrong columns": b"".join(b" " * shift + line + b"\n" for shift in range(1, 9)
                              for line in GOOD.splitlines()),
    "cut lines": b"".join(line[:at] + b"\n" for line in GOOD.splitlines()
                          for at in range(0, len(line), 8)),
    "only separators": b"!\n!!\n!!!!!!!!\n" + b"!" * 10000 + b"\n",
    "only dots": b"1 !AHU1!..!..!..!..\n 1000 ..!..!..\n1     ..............!..!..!..\n",
    "10,000 characters": b"".join(line[:at] + b"9" * 10000 + line[at:] + b"\n"
                                  for line in GOOD.splitlines() for at in (0, 6, 7, 21, 60)),
    "blanks": b" " * 10000 + b"\n",
    "control characters": bytes(range(1, 32)) + b"\n" + GOOD.replace(b"!", b"!\x01\x02\x1b\t\x7f"),
    "zero characters": b"\0\n" + GOOD.replace(b"1", b"\0"),
    "impossible dates": b"".join(
        b" 1000 !%s!SD1\n 1    !AHU1!%s,06:00!1!0\n1     %s !06:00..07:00 !1!0\n" % ((date,) * 3)
        for date in (b"99-DEC-9999", b"-9-JAN--999", b"00-JAN-0000", b"1E-FEB-1E99", b"31-FEB-26",
                     b"99-DEC-99..99-DEC-99", b"01-JAN-94..31-DEC-93",
                     b"01-JAN-1994..31-DEC-2099")),
    "huge numbers": b"".join(
        b"%s !AHU1        !MO           !%s             !%s        !%s\n" % ((number,) * 4)
        for number in (b"1E999", b"-1E999", b"9" * 400, b"-1E-999", b"nan", b"inf", b"1E308")),
    "stars": b"*\n" * 8 + b"".join(b" " * at + b"*" + GOOD[:60] + b"\n" for at in range(16)),
    "201 lines": WEEKDAY_PLT * LINES,
    "202 lines": CALENDAR * (LINES + 1),
    "5000 lines": EXCEPTION_OLD * 5000,
    "calendar over its limit": CALENDAR.replace(b"24-DEC-26..26", b"01-JAN-00..31") * LINES,
    "only .DFV": b".DFV\n.DFV=\n .DFV = 1!x\n",
    "binary": random.Random(7).randbytes(20000),
    "binary lines": b"\n".join(random.Random(8).randbytes(200) for _ in range(150)),
}

# What a message names: kind, node, line, the text in it.
NAMED = [
    ("wdc", "OLD/AHU1", " 1000 !AHU1        !XX           !06:00                    !1        !0",
     "!XX           !06:00"),
    ("wdc", "NEW/PLT1", " 101  XX                       !06:00        !1     ", " 101  XX"),
    ("sdc", "OLD/AHU1", " 1234 !31-APR-26 !SD1", "rad 1234"),
    ("sdc", "NEW/AHU1", " 1234 !24-DEC-1993 !SD1", "rad 1234"),
    ("sdc", "NEW/PLT1", " 1234 24-DEC-26                !SD1", "rad 1234"),
    ("sdc", "OLD/AHU1", " 1234 !24-DEC-26 !SD8", "!SD8"),
    ("ovc", "OLD/AHU1", "    1 !AHU1        !11-XYZ-26,17:00                        !1        !0",
     "XYZ"),
    ("ovc", "NEW/AHU1", "1     11-DEC-2026..12-XYZ-2026 !17:00..18:00 !1     !0", "XYZ"),
]


def contents(directory):
    return {path.name: path.read_bytes() for path in directory.iterdir()}


def assert_survived(result, what):
    errors = result.stderr.decode(errors="replace")
    assert result.returncode in (0, 1, 2), f"{what}: ended with {result.returncode}\n{errors}"
    assert "Sanitizer" not in errors and "runtime error" not in errors, f"{what}:\n{errors}"
    assert result.returncode == 0 or errors.strip(), f"{what}: failed without a word"


def stored_lines(text):
    """The lines of a file as a local copy holds them: each ended by CR LF, none with ".DFV"."""
    lines = text.split(b"\n")
    ended = [line.removesuffix(b"\r") for line in lines[:-1]] + ([lines[-1]] if lines[-1] else [])
    return [line for line in ended if b".DFV" not in line]


def check_reading(program, kind, node, name):
    before = contents(program.home)
    for options in ([], ["--rebuild"]):
        what = f"check {kind} {node} {options}: {name}"
        assert_survived(program.run("check", kind, node, TEXTS[name], *options), what)
        assert contents(program.home) == before, f"{what}: the directory changed"


def check_storing(program, kind, node, name):
    before = contents(program.home)
    what = f"put {kind} {node}: {name}"
    result = program.run("put", kind, node, TEXTS[name], "--no-send")
    assert_survived(result, what)
    after = contents(program.home)
    new = [file for file in after if file not in before]
    lines = stored_lines(TEXTS[name])
    if len(lines) > LINES:
        assert result.returncode == 1 and after == before, f"{what}: too many lines were stored"
        return
    assert result.returncode == 0 and len(new) == 1, f"{what}: {result.returncode}, files {new}"
    copy = after[new[0]]
    if kind == "wdc" and node.startswith("NEW"):
        assert copy.startswith(b".DFV = "), f"{what}: no default value"
        copy = copy[copy.index(b"\r\n") + 2 :]
    assert copy == b"".join(line + b"\r\n" for line in lines), f"{what}: other lines were stored"
    (program.home / new[0]).unlink()


def check_hostile(program, kinds):
    for kind in kinds:
        for node in NODES:
            for name in TEXTS:
                check_reading(program, kind, node, name)
                check_storing(program, kind, node, name)


def check_named(program, kinds):
    for kind, node, line, named in NAMED:
        if kind not in kinds:
            continue
        result = program.run("check", kind, node, line.encode() + b"\r\n", "--rebuild")
        errors = result.stderr.decode()
        assert result.returncode == 1, f"{kind} {node}: {line}: ended with {result.returncode}"
        assert named in errors, f"{kind} {node}: {line}: the message does not name it\n{errors}"
