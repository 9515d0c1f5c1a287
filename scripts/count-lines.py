#!/usr/bin/env python3
"""count-lines.py: prints the share of test code in all code, "tests: N of N lines, P %".

Counts the lines of all C++, Python and shell files in git, without blank lines, comments and
preprocessor lines (nearly all of these are includes). Test code is tests/, trials/ and fuzz/.
"""
import io
import pathlib
import re
import subprocess
import sys
import tokenize

ROOT = pathlib.Path(__file__).resolve().parent.parent
TESTS = ("tests/", "trials/", "fuzz/")
# String literals are matched first, so that "//" inside them does not start a comment.
CPP = re.compile(r'R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'|(//[^\n]*|/\*.*?\*/)',
                 re.DOTALL)


def cpp_lines(text):
    def without_comment(match):
        return re.sub(r"[^\n]", "", match[0]) if match[2] else match[0]
    lines = CPP.sub(without_comment, text).split("\n")
    return sum(1 for line in lines if line.strip() and not line.startswith("#"))


def python_lines(text):
    """Counts code lines; a docstring counts as a comment."""
    no_code = {tokenize.COMMENT, tokenize.NL, tokenize.NEWLINE, tokenize.INDENT, tokenize.DEDENT,
               tokenize.ENCODING, tokenize.ENDMARKER}
    rows, statement = set(), []
    for token in tokenize.generate_tokens(io.StringIO(text).readline):
        if token.type not in no_code:
            statement.append(token)
        elif token.type == tokenize.NEWLINE:
            if any(each.type != tokenize.STRING for each in statement):
                for each in statement:
                    rows.update(range(each.start[0], each.end[0] + 1))
            statement = []
    return len(rows)


def shell_lines(text):
    return sum(1 for line in text.split("\n") if line.strip() and not line.strip().startswith("#"))


def counter_of(path, text):
    if path.suffix in (".cpp", ".h"):
        return cpp_lines
    if path.suffix == ".py" or text.startswith("#!/usr/bin/env python"):
        return python_lines
    if path.suffix == ".sh" or text.startswith("#!/usr/bin/env bash"):
        return shell_lines
    return None


def main():
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, stdout=subprocess.PIPE,
                           check=True).stdout.decode().split("\0")
    everything = tests = 0
    for name in filter(None, names):
        path = ROOT / name
        if not path.is_file():
            continue
        text = path.read_bytes().decode("utf-8", "replace")
        counter = counter_of(path, text)
        lines = counter(text) if counter else 0
        everything += lines
        tests += lines if name.startswith(TESTS) else 0
    print(f"tests: {tests} of {everything} lines, {100 * tests / everything:.1f} %")
    return 0


sys.exit(main())
