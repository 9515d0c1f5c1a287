#!/usr/bin/env python3
"""Exports a plant of 300 objects over real sockets, a dead or broken controller among every three.

What lives is exported whole, what does not is named, nothing of the program grows while it runs.
Arguments: the folder of the programs, the data folder."""

import os
import pathlib
import statistics
import socket
import subprocess
import sys
import tempfile
import threading
import time

OBJECTS = 300
KINDS = ("wdc", "sdc", "ovc")
WEEKDAY = (" 1000 !AHU1        !MO..FR       !07:00..16:30             !21        !17         \r\n"
           "EXIT\r\n")
CALENDAR = " 1000 !24-DEC-26              !SD1\r\nEXIT\r\n"
EXCEPTIONS = ("  101 !AHU1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16\r\n"
              "EXIT\r\n")
INI = """[General]
Language=046
DisconnectTime=300
GetTSCTimeout=5
AlwaysUseDSS=yes
SDCLastTwoDigitYear=93
[TCPIP]
SendTimeOut=1
DelayAfterConnect=0
[GetDelay]
DelayA=0
DelayB=0
DelayD=0
[Topics]
"""


def breaking_server():
    """A controller that hangs up in the middle of whatever it is asked."""
    listener = socket.create_server(("127.0.0.1", 0), backlog=64)

    def serve():
        while True:
            peer, _ = listener.accept()
            peer.sendall(b"<TRANSPARENT>")
            peer.recv(100)
            peer.close()

    threading.Thread(target=serve, daemon=True).start()
    return listener.getsockname()[1]


def unused_port():
    with socket.create_server(("127.0.0.1", 0)) as listener:
        return listener.getsockname()[1]


def alive(index):
    return index % 3 != 2


def write_plant(home, data, living, breaking, dead):
    for outstation in ("Kind = 1\r\n", "Kind = 1\r\nDus = 7\r\n"):
        folder = home / "plant" / str(len(outstation))
        folder.mkdir(parents=True)
        for name, text in (("OUTSTATION", outstation), ("WDC", WEEKDAY), ("SDC", CALENDAR),
                           ("OVC", EXCEPTIONS)):
            (folder / f"{name}.TXT").write_text(text, newline="")
    ini = INI
    for index in range(OBJECTS):
        # One that breaks off is tried three times, which takes most of the time of this test.
        fails = breaking if index // 3 % 8 == 0 else dead
        port = living if alive(index) else fails
        # With a DUS number the plant need not wait whether the controller is spoken to without.
        dus = ":7" if index % 10 else ""
        ini += f"T{index}=YES,1,127.0.0.1:{port}{dus},Object {index}\n"
    for index in range(OBJECTS):
        ini += f"[T{index}]\nAHU1=Object {index}/DUC/Air\n"
    (home / "ZEKView.INI").write_text(ini, newline="")
    for language in (data / "lang").iterdir():
        (home / language.name).write_bytes(language.read_bytes())


class Watch(threading.Thread):
    """Looks at the program's memory and descriptors as long as it runs."""

    def __init__(self, process):
        super().__init__(daemon=True)
        self.process, self.memory, self.files = process, [], []

    def run(self):
        folder = pathlib.Path(f"/proc/{self.process.pid}")
        while self.process.poll() is None:
            try:
                pages = int((folder / "statm").read_text().split()[1])
                self.files.append(len(os.listdir(folder / "fd")))
                self.memory.append(pages * os.sysconf("SC_PAGE_SIZE"))
            except (OSError, IndexError, ValueError):
                return  # it has just ended
            time.sleep(0.05)


def growth(samples, warm_up=1):
    """How far the rest rises above the highest of the quarter that ends the warm-up."""
    quarter = len(samples) // 4
    highest = max(samples[quarter * (warm_up - 1):quarter * warm_up])
    return max(samples[quarter * (warm_up + 1):]) - highest


def lasting_growth(samples):
    """The same of what is usual then: a file that is being stored is open for a moment."""
    return (statistics.median(samples[len(samples) // 2:])
            - statistics.median(samples[:len(samples) // 4]))


def main():
    programs, data = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        plant_folder = home / "plant"
        write_plant(home, data, 1, 1, 1)
        plant = subprocess.Popen([programs / "zekview-sim", "--port", "0", "--plant", plant_folder],
                                 stdout=subprocess.PIPE, text=True)
        try:
            living = int(plant.stdout.readline())
            for path in sorted(plant_folder.rglob("*"), reverse=True):
                path.rmdir() if path.is_dir() else path.unlink()
            plant_folder.rmdir()
            write_plant(home, data, living, breaking_server(), unused_port())
            # Built with a sanitizer it would keep what was freed for a while.
            sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=0"
            environment = {**os.environ, "ASAN_OPTIONS": sanitizer.lstrip(":")
                           + ":thread_local_quarantine_size_kb=0"}
            export = subprocess.Popen([programs / "zekview-cli", "--dir", home, "export", *KINDS],
                                      stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                      env=environment)
            watch = Watch(export)
            watch.start()
            out, err = (stream.decode() for stream in export.communicate())
        finally:
            plant.kill()
            plant.wait()
        check(home, export.returncode, out, err)
        assert len(watch.memory) > 8, "too few looks at the program"
        # What failed is kept for the report, less than half a kilobyte each. A sanitizer puts
        # several times that around every piece, and pages aside for every size of piece, so that it
        # takes half the run until all have been asked for.
        sanitized = "ASAN_OPTIONS" in os.environ
        grown = growth(watch.memory, 2 if sanitized else 1)
        assert grown <= (1024 if sanitized else 256) * 1024, f"memory grew by {grown} bytes"
        assert lasting_growth(watch.files) <= 0, f"descriptors grew: {watch.files}"


def check(home, status, out, err):
    assert status == 1, (status, err)
    living = [index for index in range(OBJECTS) if alive(index)]
    failed = {line.split(":")[0] for line in err.splitlines() if line.startswith("T")}
    assert failed == {f"T{index}/AHU1 {kind.upper()}" for index in range(OBJECTS)
                      if not alive(index) for kind in KINDS}, err
    files = out.splitlines()
    assert [pathlib.Path(file).name[:3] for file in files] == ["WDC", "SDC", "OVC"], out
    assert sorted(os.listdir(home / "Batch")) == sorted(pathlib.Path(f).name for f in files)
    expected = {
        "WDC": lambda n: [f"Object {n};DUC;Air ;Start;" + "07:00;" * 5 + ";" * 9,
                          ";;;Stopp;" + "16:30;" * 5 + ";" * 9,
                          ";;;Startvärde;" + "21;" * 5 + ";" * 9,
                          ";;;Stoppvärde;" + "17;" * 5 + ";" * 9],
        "SDC": lambda n: [f"Object {n};DUC;2026-12-24;SD1"],
        "OVC": lambda n: [f"Object {n};DUC;Air ;2026-12-24;08:00;21;2026-12-26;17:00;16"],
    }
    for file in files:
        path = pathlib.Path(file)
        lines = path.read_bytes().decode("cp1252").split("\r\n")
        assert lines[0].startswith("Batch påbörjad ") and lines[-1] == "", path
        assert lines[-2].startswith("Batch avslutad "), path
        records = [record for index in living for record in expected[path.name[:3]](index)]
        assert lines[1:-2] == records, path


if __name__ == "__main__":
    main()
