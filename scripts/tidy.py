#!/usr/bin/env python3
"""tidy.py BUILD: runs clang-tidy on every file that the build in BUILD compiles.

A clean file is not checked again until it, a project header that it includes, its compiler command
or .clang-tidy changes. For each clean file an empty file, named by the hash of all these, is kept
in ${ZEKVIEW_CACHE:-~/.cache/zekview}/tidy, outside the work tree, for other clones and later runs.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CACHE = pathlib.Path(os.environ.get("ZEKVIEW_CACHE") or pathlib.Path.home() / ".cache/zekview") / "tidy"
INCLUDE_FOLDERS = [ROOT / name for name in ("src", "tests", "bench", "fuzz", "trials")]
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
# The commands are for GCC. Clang must not fail on unknown options, nor treat its own warnings as
# errors.
EXTRA = ["--extra-arg=-Wno-unknown-warning-option", "--extra-arg=-Wno-ignored-optimization-argument",
         "--extra-arg=-Wno-error"]


def headers_of(file):
    for name in INCLUDE.findall(file.read_bytes()):
        for folder in [file.parent, *INCLUDE_FOLDERS]:
            candidate = (folder / name.decode()).resolve()
            if candidate.is_file():
                yield candidate
                break


def with_headers(file):
    """The file and its headers. A table (.def) counts only for a file that includes it itself:
    elsewhere it is a list of constants, whose names the compiler checks."""
    found, left = {file}, [file]
    while left:
        includer = left.pop()
        for header in headers_of(includer):
            if header not in found and (includer == file or header.suffix != ".def"):
                found.add(header)
                left.append(header)
    return sorted(found)


def key_of(entry, settings):
    """The hash of everything that the result depends on; it is the same in every clone."""
    digest = hashlib.sha256(settings)
    digest.update(entry["command"].replace(str(ROOT), ".").encode())
    for path in with_headers(pathlib.Path(entry["file"])):
        digest.update(f"{path.relative_to(ROOT)}\n".encode())
        digest.update(hashlib.sha256(path.read_bytes()).digest())
    return digest.hexdigest()


def check(build, entry, key):
    result = subprocess.run(["clang-tidy", "--quiet", "-p", build, *EXTRA, entry["file"]], cwd=ROOT,
                            stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    if result.returncode == 0:
        (CACHE / key).touch()
        return ""
    return result.stdout + result.stderr


def main():
    build = sys.argv[1]
    entries = json.loads((ROOT / build / "compile_commands.json").read_text())
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    settings = version + (ROOT / ".clang-tidy").read_bytes() + " ".join(EXTRA).encode()
    CACHE.mkdir(parents=True, exist_ok=True)
    keys = [(entry, key_of(entry, settings)) for entry in entries]
    changed = [(entry, key) for entry, key in keys if not (CACHE / key).exists()]
    findings = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for output in pool.map(lambda pair: check(build, *pair), changed):
            if output:
                findings += 1
                print(output, flush=True)
    print(f"clang-tidy: {len(changed)} of {len(keys)} files checked, {findings} with findings")
    return 1 if findings else 0


sys.exit(main())
