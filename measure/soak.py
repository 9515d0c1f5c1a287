#!/usr/bin/env python3
"""soak.py PROGRAMS DATA [TRANSFERS [SEED]]: transfers with random faults in one process.

Fetches and writes catalogues of all kinds, of both generations and in both framings. Runs
zekview-soak over real sockets against a server that disconnects, stops answering, sends garbage and
so on. Compares every result with what the server received and sent. Compares the resources of the
process after the last transfer with those after the tenth.
"""

import collections
import os
import pathlib
import random
import shutil
import re
import subprocess
import sys
import tempfile

from faulty_server import FAULTS, Fault, Station

KINDS = ("wdc", "sdc", "ovc")
FIRST_LOOK = 10  # transfers
MOST_MEMORY = 1 << 20  # bytes
FAULTLESS = 0.3  # share of the connections
INI = """[General]
Language=044
DisconnectTime=60
DisconnectDelay=5
GetTSCTimeout=10
AlwaysUseDSS=yes
[TCPIP]
SendTimeOut=10
DelayAfterConnect=0
[GetDelay]
{reads}
[SaveDelay]
{writes}
[Topics]
{topics}
{objects}
"""


class Program:
    """Sends commands to zekview-soak and reads the answers."""

    def __init__(self, programs, home):
        self.process = subprocess.Popen([programs / "zekview-soak", home], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE)

    def ask(self, *words):
        self.process.stdin.write("\t".join(words).encode() + b"\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        assert answer, f"zekview-soak ended with {self.process.wait()}"
        return [int(number) for number in answer.split()]

    def run(self, *words):
        status, printed, told = self.ask(*words)
        return (status, self.process.stdout.read(printed).decode(),
                self.process.stdout.read(told).decode())

    def resources(self):
        timers, heap = self.ask("resources")
        folder = pathlib.Path(f"/proc/{self.process.pid}")
        # Anonymous memory only: pages of program files are loaded when their code first runs.
        anonymous = re.search(r"RssAnon:\s+(\d+) kB", (folder / "status").read_text())
        return {"descriptors": len(os.listdir(folder / "fd")),
                "threads": len(os.listdir(folder / "task")), "timers": timers,
                "resident": int(anonymous.group(1)) * 1024, "heap": heap}


def random_catalogue(dice):
    count = dice.choice((0, 1, 2, 3, 5, 40))
    lines = [f" {1000 + number} !AHU1        !{dice.choice('ABC') * dice.randint(1, 40)}"
             for number in range(count)]
    return lines, str(dice.randint(1, 99))


class Soak:
    def __init__(self, programs, home, dice):
        self.home, self.dice = home, dice
        self.faults = collections.Counter()
        self.stations = {f"T{kind}{'D' if dus else 'P'}": Station(kind, dus, dice)
                         for kind in (1, 2) for dus in (False, True)}
        write_settings(home, self.stations)
        self.program = Program(programs, home)

    def end(self):
        self.program.process.stdin.close()
        assert self.program.process.wait() == 0, "zekview-soak ended with an error"

    def copy(self, name, kind):
        """The local copy of a node's catalogue; None if it does not exist."""
        station = self.stations[name]
        dus = "_3" if station.dus else ""
        base = f"f127_0_0_1_{station.port}{dus} Object {name}"
        ends = {"sdc": "SDC", "wdc": "WDC", "ovc": "OVC"} if station.kind == 1 else {
            "sdc": "SDC", "wdc": "AHU1", "ovc": "AHU1 EXC"}
        path = self.home / f"{base} {ends[kind]}.TXT"
        return path.read_bytes() if path.exists() else None

    def plan(self, station, steps):
        """Plans a fault or None for each of the three attempts."""
        faults = []
        for _ in range(3):
            if self.dice.random() < FAULTLESS:
                faults.append(None)
                break
            faults.append(Fault(self.dice.choice(FAULTS), self.dice.randint(0, steps)))
        self.faults.update(fault.name for fault in faults if fault)
        station.begin(faults)

    def read(self, name, kind):
        station = self.stations[name]
        station.catalogues[kind] = random_catalogue(self.dice)
        lines, value = station.catalogues[kind]
        before = self.copy(name, kind)
        self.plan(station, 2)
        status, printed, told = self.program.run("get", kind, f"{name}/AHU1")
        station.end()
        with_value = [f".DFV = {value}"] if station.has_value(kind) else []
        whole = with_value + lines
        if status == 0:
            right = printed.splitlines() == whole and \
                self.copy(name, kind) == "".join(line + "\r\n" for line in whole).encode()
        else:
            right = station.always_faulty() and told and self.copy(name, kind) == before
        return right, f"get {kind} {name}: status {status}\n{told}{printed}{whole}"

    def write(self, name, kind):
        station = self.stations[name]
        # The stations keep nothing that they receive, so no write may be read back: neither of a
        # catalogue that controls share, nor one that is compared with an earlier listing.
        if station.kind == 1:
            kind = "sdc"
        shutil.rmtree(self.home / "Known", ignore_errors=True)
        lines, value = random_catalogue(self.dice)
        with_value = station.has_value(kind)
        text = "".join(f"{line}\r\n" for line in ([f".DFV = {value}"] if with_value else []) + lines)
        file = self.home / "sent"
        file.write_text(text, newline="")
        commands = ["EXIT", "EXIT", station.selector(kind), *lines]
        commands += [f"AHU1.DFV={value}"] if with_value else []
        commands += ["EXIT"]
        self.plan(station, len(commands))
        status, _, told = self.program.run("put", kind, f"{name}/AHU1", str(file))
        station.end()
        if status == 0:
            right = station.received == commands and not station.refused
        else:
            right = station.always_faulty() and bool(told)
        # The local copy is stored before sending, and is kept if sending fails.
        stored = lines if kind == "ovc" or not with_value else [f".DFV = {value}", *lines]
        right = right and self.copy(name, kind) == "".join(f"{x}\r\n" for x in stored).encode()
        return right, f"put {kind} {name}: status {status}\n{told}{commands}"

    def transfer(self):
        name, kind = self.dice.choice(sorted(self.stations)), self.dice.choice(KINDS)
        right, what = self.dice.choice((self.read, self.write))(name, kind)
        if not right:
            print(f"Wrong result: {what}\nThe server: {self.stations[name].account()}")
        return right


def write_settings(home, stations):
    topics = "".join(f"{name}=YES,{station.kind},127.0.0.1:{station.port}{':3' * station.dus},"
                     f"Object {name}\n" for name, station in stations.items())
    ini = INI.format(reads="\n".join(f"Delay{key}=0" for key in "ABD"),
                     writes="\n".join(f"Delay{key}=0" for key in "ABCDEFGH"), topics=topics,
                     objects="".join(f"[{name}]\nAHU1=Object/DUC/Air\n" for name in stations))
    (home / "ZEKView.INI").write_text(ini, newline="")


def report(first, last):
    """Prints the resources then and now; returns true if none has grown."""
    print("soak resources after the tenth transfer / at the end: " + ", ".join(
        f"{what} {first[what]} / {last[what]}" for what in first))
    kept = [first[what] == last[what] for what in ("descriptors", "threads", "timers")]
    if "ASAN_OPTIONS" not in os.environ:  # a sanitizer's own memory is not the program's
        kept.append(all(last[what] - first[what] <= MOST_MEMORY for what in ("resident", "heap")))
    print(f"figure: soak resources unchanged: {sum(kept)} of {len(kept)}")
    return all(kept)


def main():
    programs, data = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    transfers = int(sys.argv[3]) if len(sys.argv) > 3 else 1000
    seed = int(sys.argv[4]) if len(sys.argv) > 4 else 1
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        for language in (data / "lang").iterdir():
            (home / language.name).write_bytes(language.read_bytes())
        soak = Soak(programs, home, random.Random(seed))
        right = 0
        for number in range(1, transfers + 1):
            right += soak.transfer()
            if number == min(FIRST_LOOK, transfers):
                first = soak.program.resources()
        last = soak.program.resources()
        soak.end()
    print("soak faults: " + ", ".join(
        f"{name} {count}" for name, count in sorted(soak.faults.items())))
    print(f"figure: soak transfers told right: {right} of {transfers}")
    kept = report(first, last)
    sys.exit(0 if kept and right == transfers else 1)


if __name__ == "__main__":
    main()
