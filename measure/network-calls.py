#!/usr/bin/env python3
"""network-calls.py PROGRAMS DATA [short]: checks the network calls of the programs.

Runs zekview-cli and zekview (on the screen that DISPLAY names) against a simulated plant under
strace: connections, catalogues of all kinds, an export. Every connection must lead to an address in
the settings or to a local socket that the toolkit needs for a window. The programs must not listen,
nor send anything without a connection. With "short", zekview only exports, without the tour of its
windows. Where strace may not trace, the status is 77.
"""

import collections
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

# Local sockets that the toolkit opens: the screen, a bus of the session, and the name service that
# the system's libraries ask for users and hosts.
LOCAL = {"the screen": re.compile(r"/tmp/\.X11-unix/X\d+$"),
         "a bus of the session": re.compile(r"/(dbus-\w+|bus|at-spi/bus\S*|session_bus_socket)$"),
         "the system's name service": re.compile(r"/run/(nscd/socket|nscd|systemd/userdb/\S*)$")}
# A sanitizer can't detect leaks in a traced process; other tests do.
ENVIRONMENT = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"}
LISTENING = ("bind", "listen", "accept", "accept4")
CALL = re.compile(r"^\d+ +(\w+)\((.*)$")
INET = re.compile(r"sin6?_port=htons\((\d+)\).*?(?:inet_addr\(\"([^\"]+)\"|inet_pton\(AF_INET6, \"([^\"]+)\")")
UNIX = re.compile(r"sa_family=AF_UNIX, sun_path=(@?)\"([^\"]+)\"")
CLI = (["topics"], ["send", "SKOLA", "LIST SDC"], ["send", "KONTOR", "LIST SDC"],
       *(["get", kind, node] for kind in ("wdc", "sdc", "ovc")
         for node in ("SKOLA/AHU1", "KONTOR/AHU1")), ["export"])


def prepare(home, data, programs):
    shutil.copytree(data / "demo", home, dirs_exist_ok=True)
    for language in (data / "lang").iterdir():
        shutil.copy(language, home)
    plant = subprocess.Popen([programs / "zekview-sim", "--port", "0", "--plant", home / "plant"],
                             stdout=subprocess.PIPE, text=True)
    port = plant.stdout.readline().strip()
    settings = home / "ZEKView.INI"
    text = re.sub(rb"127\.0\.0\.1:\d+", b"127.0.0.1:" + port.encode(), settings.read_bytes())
    settings.write_bytes(text)
    return plant, ("127.0.0.1", port)


def traced(home, command):
    """Returns the network calls of a command, as lines of strace."""
    trace = home / "trace"
    result = subprocess.run(["strace", "-f", "-qq", "-s", "256", "-e", "trace=network", "-o", trace,
                             *command], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                            timeout=240, check=False, env=ENVIRONMENT)
    # The demonstration lacks two catalogues, so its export returns 1.
    export = "export" in command or "/BATCH" in command
    assert result.returncode in ((0, 1) if export else (0,)), (command, result.returncode, result.stderr)
    return trace.read_text(errors="replace").splitlines()


def purpose(arguments, allowed):
    """The purpose of a connection or datagram; None if it is not allowed."""
    inet = INET.search(arguments)
    if inet:
        address = (inet.group(2) or inet.group(3), inet.group(1))
        return "the plant of the settings" if address == allowed else None
    local = UNIX.search(arguments)
    if not local:
        return None
    return next((what for what, path in LOCAL.items() if path.search(local.group(2))), None)


def judge(lines, allowed, seen):
    """Counts the calls that connect, send or listen; prints those that are not allowed."""
    good = bad = 0
    for line in lines:
        call = CALL.match(line)
        if not call:
            continue
        name, arguments = call.groups()
        addressed = name == "connect" or (name in ("sendto", "sendmsg", "sendmmsg")
                                          and re.search("sin6?_port", arguments))
        if name == "bind" and "AF_NETLINK" in arguments:
            continue  # the system's libraries ask the kernel; not reachable from outside
        if not addressed and name not in LISTENING:
            continue
        what = purpose(arguments, allowed) if addressed else None
        if what is None:
            print(f"not allowed: {line}")
            bad += 1
        else:
            seen[what] += 1
            good += 1
    return good, good + bad


def main():
    programs, data = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    if subprocess.run(["strace", "-o", "/dev/null", "true"], check=False).returncode != 0:
        print("strace may not trace here.")
        sys.exit(77)
    good = total = 0
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        plant, allowed = prepare(home, data, programs)
        commands = {"zekview-cli " + " ".join(words):
                    [programs / "zekview-cli", "--dir", home, *words] for words in CLI}
        if os.environ.get("DISPLAY") and (programs / "zekview").exists():
            pictures = home / "pictures"
            pictures.mkdir()
            # A tour connects, sends, fetches, opens the editors and exports, as a user would.
            shown = ["/BATCH"] if "short" in sys.argv else ["--tour", pictures]
            commands["zekview"] = [programs / "zekview", "--dir", home, *shown]
        try:
            for what, command in commands.items():
                seen = collections.Counter()
                fine, calls = judge(traced(home, command), allowed, seen)
                good, total = good + fine, total + calls
                print(f"{what}: " + (", ".join(f"{count} to {whom}" for whom, count in seen.items())
                                     or "no connection"))
        finally:
            plant.kill()
            plant.wait()
    print(f"figure: network calls as set: {good} of {total}")
    sys.exit(0 if good == total and total > 0 else 1)


if __name__ == "__main__":
    main()
