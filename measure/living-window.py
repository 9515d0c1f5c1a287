#!/usr/bin/env python3
"""living-window.py PROGRAMS DATA [FAULT...]: does the window stay responsive?

On the screen that DISPLAY names, zekview fetches a calendar and sends one, driven by its keys,
while the server fails in every way it can. Meanwhile the window is asked again and again whether
it is alive, as a window manager does. For each fault the longest time to an answer is printed,
with and without the time that the program or the X server waited for a processor. If the time
without is more than 50 ms, it is measured four more times, and the median of the five counts.
"""

import os
import pathlib
import random
import re
import statistics
import subprocess
import sys
import tempfile
import time

from faulty_server import FAULTS, Fault, Station

LONGEST = 50.0  # ms
RUNS = 5
FLOOD = (20,)  # megabytes
LATE = (1.0, 1.0)  # seconds
SETTLE = 1.5  # seconds without a connection until a transfer counts as ended
# Faults outside the server: an unknown host name, an address that does not answer.
OTHER = {"unknown-host": "no.such.host.invalid:5100", "no-answer": "192.0.2.1:5100"}
INI = """[General]
Language=044
DisconnectTime=300
GetTSCTimeout=5
HideDialogOnTSC=no
AlwaysUseDSS=yes
SDCLastTwoDigitYear=93
SDCLastYear=2099
[TCPIP]
SendTimeOut=5
DelayAfterConnect=0
[GetDelay]
{reads}
[SaveDelay]
{writes}
[Topics]
PLANT=YES,1,{address},Plant
"""


class Failed(Exception):
    """The program did not reach the state to be measured."""


def wait_for(what, found, seconds=20.0):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = found()
        if value:
            return value
        time.sleep(0.1)
    raise Failed(f"waited in vain for {what}")


def xdotool(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, text=True, timeout=20,
                          check=False).stdout


def x_server():
    """The process id of the X server, if it runs on this machine."""
    number = re.match(r":(\d+)", os.environ.get("DISPLAY", ""))
    lock = pathlib.Path(f"/tmp/.X{number.group(1)}-lock") if number else None
    return [lock.read_text().strip()] if lock and lock.exists() else []


class Window:
    """zekview with its browser open, driven by its keys."""

    def __init__(self, programs, home, unknown_host):
        self.programs = programs
        preload = {"LD_PRELOAD": str(programs / "zekview-slow-lookup.so")} if unknown_host else {}
        own = {"HOME": str(home), "XDG_CONFIG_HOME": str(home / "config")}
        self.process = subprocess.Popen([programs / "zekview", "--dir", home, "/TOPIC:PLANT"],
                                        env={**os.environ, **own, **preload},
                                        stdin=subprocess.DEVNULL)
        self.main = wait_for("the main window", lambda: self.named("^ZEK View"))
        self.browser = wait_for("the browser", lambda: self.others({self.main}))
        time.sleep(1)  # until it is visible and shows its tree

    def named(self, name):
        found = xdotool("search", "--onlyvisible", "--pid", str(self.process.pid), "--name", name)
        return found.split()[0] if found else None

    def others(self, known):
        found = xdotool("search", "--onlyvisible", "--pid", str(self.process.pid), "--name", ".")
        return next((window for window in found.split() if window not in known), None)

    def press(self, window, *keys):
        xdotool("windowfocus", "--sync", window)
        for key in keys:
            xdotool("key", key)
            time.sleep(0.2)

    def ping(self):
        return subprocess.Popen([self.programs / "zekview-window-probe", "ping", self.main,
                                 str(self.process.pid), *x_server()], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                text=True)

    def end(self):
        self.process.kill()
        self.process.wait()


def prepare(home, data, address):
    for language in (data / "lang").iterdir():
        (home / language.name).write_bytes(language.read_bytes())
    ini = INI.format(address=address, reads="\n".join(f"Delay{key}=0" for key in "ABD"),
                     writes="\n".join(f"Delay{key}=0" for key in "ABCDEFGH"))
    (home / "ZEKView.INI").write_text(ini, newline="")


def await_end(station):
    """Waits until the transfer has had no connection for SETTLE seconds."""
    def open_connections():
        return any(thread.is_alive() for thread in station.threads)
    quiet = time.monotonic()
    end = quiet + 120
    while time.monotonic() < end and time.monotonic() - quiet < SETTLE:
        if open_connections():
            quiet = time.monotonic()
        time.sleep(0.05)


def open_calendar(window, station):
    """Fetches a calendar without faults, opens its editor and makes a change to send."""
    station.begin([None])
    window.press(window.browser, "F6")
    editor = wait_for("the editor", lambda: window.others({window.main, window.browser}))
    time.sleep(1)
    station.end()
    window.press(editor, "1", "space")  # the day under the cursor becomes a special day
    return editor


def measure(programs, data, name, sending):
    """The longest time to an answer (ms), the same without waits for a processor, the number."""
    station = Station(1, False, random.Random(1), FLOOD, LATE)
    station.catalogues["sdc"] = ([" 1000 !24-DEC-26              !SD1"], "1")
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder)
        prepare(home, data, OTHER.get(name, f"127.0.0.1:{station.port}"))
        window = Window(programs, home, name == "unknown-host")
        try:
            editor = open_calendar(window, station) if sending else None
            plan = [Fault(name, 3 if sending else 2), None]
            if name not in OTHER:
                station.begin(plan)
            probe = window.ping()
            if sending:
                window.press(editor, "ctrl+s")
                time.sleep(0.5)
                window.press(wait_for("the question", lambda: window.others(
                    {window.main, window.browser, editor})), "Return")
            else:
                window.press(window.browser, "F6")
            if name in OTHER or name == "refused":
                time.sleep(5)
            else:
                await_end(station)
                if not station.acted:
                    raise Failed("the server never came to its fault")
            told, _ = probe.communicate(timeout=70)
            if probe.returncode != 0 or window.process.poll() is not None:
                raise Failed("the window does not answer")
            worst, answers, own = told.split()
            return float(worst), float(own), int(answers)
        finally:
            window.end()


def median_of_runs(programs, data, name, sending):
    """The median of the longest times, and all measurements."""
    answers = [measure(programs, data, name, sending)]
    while answers[0][1] > LONGEST and len(answers) < RUNS:
        answers.append(measure(programs, data, name, sending))
    return statistics.median(own for _, own, _ in answers), answers


def main():
    programs, data = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    names = sys.argv[3:] or [*FAULTS, *OTHER]
    # Without a connection there is no catalogue to send, so these faults only concern fetching.
    cases = [(name, sending) for name in names for sending in (False, True)
             if not (sending and name in OTHER)]
    alive = 0
    for name, sending in cases:
        what = f"{'send' if sending else 'get'}, {name}"
        try:
            longest, answers = median_of_runs(programs, data, name, sending)
        except Failed as failure:
            print(f"{what}: {failure}", flush=True)
            continue
        alive += longest <= LONGEST
        runs = ", ".join(f"{worst:.1f}/{own:.1f}" for worst, own, _ in answers)
        print(f"{what}: {answers[0][2]} answers, the longest {longest:.1f} ms "
              f"(with and without waiting for a processor: {runs})", flush=True)
    print(f"figure: living window: {alive} of {len(cases)} faults within 50 ms")
    sys.exit(0 if alive == len(cases) else 1)


if __name__ == "__main__":
    main()
