#!/usr/bin/env python3
"""Exports a plant of 300 objects over real sockets; every third controller is dead or broken.

Every working controller must be exported completely, every other one reported. Ten times as many
objects must need only the memory of their names, and no more than 24 file descriptors. Arguments: the folder of the
programs, the data folder."""

import os
import pathlib
import re
import resource
import shutil
import socket
import subprocess
import sys
import tempfile
import threading

OBJECTS = 300
MOST_MEMORY = 1536  # bytes for each object: its settings and the failures kept for the report
MOST_DESCRIPTORS = 24
KINDS = ("wdc", "sdc", "ovc")
LISTINGS = {
    "WDC": " 1000 !AHU1        !MO..FR       !07:00..16:30             !21        !17         \r\n",
    "SDC": " 1000 !24-DEC-26              !SD1\r\n",
    "OVC": "  101 !AHU1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16\r\n"}
RECORDS = {
    "WDC": ["Object {n};DUC;Air ;Start;" + "07:00;" * 5 + ";" * 9,
            ";;;Stopp;" + "16:30;" * 5 + ";" * 9, ";;;Startvärde;" + "21;" * 5 + ";" * 9,
            ";;;Stoppvärde;" + "17;" * 5 + ";" * 9],
    "SDC": ["Object {n};DUC;2026-12-24;SD1"],
    "OVC": ["Object {n};DUC;Air ;2026-12-24;08:00;21;2026-12-26;17:00;16"]}
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
    """Starts a controller that disconnects at the first command; returns its port."""
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


def write_plant(folder):
    for name, outstation in (("old", "Kind = 1\r\n"), ("dus", "Kind = 1\r\nDus = 7\r\n")):
        (folder / name).mkdir(parents=True)
        (folder / name / "OUTSTATION.TXT").write_text(outstation, newline="")
        for kind, line in LISTINGS.items():
            (folder / name / f"{kind}.TXT").write_text(line + "EXIT\r\n", newline="")


def peak_memory(process):
    """Waits for the end; returns the most anonymous memory in bytes, looked at every 10 ms.

    The resident size holds pages of program files too, whose number differs from run to run."""
    peak = 0
    status = pathlib.Path(f"/proc/{process.pid}/status")
    while process.poll() is None:
        if found := re.search(r"RssAnon:\s+(\d+) kB", status.read_text()):
            peak = max(peak, int(found.group(1)) << 10)
        try:
            process.wait(0.01)
        except subprocess.TimeoutExpired:
            pass
    return peak


def export(programs, data, home, objects, ports):
    """Exports; returns the status, standard output, standard error and peak_memory()."""
    living, breaking, dead = ports
    topics = ""
    for index in range(objects):
        # A broken one is tried three times, which takes most of this test's time, so use few.
        port = living if alive(index) else breaking if index // 3 % 8 == 0 else dead
        # With a DUS number the plant need not wait to see whether the client sends one.
        topics += f"T{index}=YES,1,127.0.0.1:{port}{':7' * (index % 10 != 0)},Object {index}\n"
    home.mkdir()
    shutil.copy(data / "lang" / "zek_lang.046", home)
    (home / "ZEKView.INI").write_text(INI + topics + "".join(
        f"[T{index}]\nAHU1=Object {index}/DUC/Air\n" for index in range(objects)), newline="")
    with open(home / "out", "w+b") as out, open(home / "err", "w+b") as err:
        process = subprocess.Popen(
            [programs / "zekview-cli", "--dir", home, "export", *KINDS], stdout=out, stderr=err,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (MOST_DESCRIPTORS,) * 2))
        memory = peak_memory(process)
    return process.returncode, (home / "out").read_text(), (home / "err").read_text(), memory


def check(home, status, out, err):
    assert status == 1, (status, err)
    failed = {line.split(":")[0] for line in err.splitlines() if line.startswith("T")}
    assert failed == {f"T{index}/AHU1 {kind.upper()}" for index in range(OBJECTS)
                      if not alive(index) for kind in KINDS}, err
    files = [pathlib.Path(file) for file in out.splitlines()]
    assert [file.name[:3] for file in files] == list(RECORDS), out
    assert sorted(os.listdir(home / "Batch")) == sorted(file.name for file in files)
    for file in files:
        lines = file.read_bytes().decode("cp1252").split("\r\n")
        assert lines[0].startswith("Batch påbörjad ") and lines[-1] == "", file
        assert lines[-2].startswith("Batch avslutad "), file
        assert lines[1:-2] == [record.format(n=index) for index in range(OBJECTS) if alive(index)
                               for record in RECORDS[file.name[:3]]], file


def main():
    programs, data = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        write_plant(folder / "plant")
        plant = subprocess.Popen([programs / "zekview-sim", "--port", "0", "--plant",
                                  folder / "plant"], stdout=subprocess.PIPE, text=True)
        try:
            ports = int(plant.stdout.readline()), breaking_server(), unused_port()
            few = export(programs, data, folder / "few", OBJECTS // 10, ports)[-1]
            *result, many = export(programs, data, folder / "many", OBJECTS, ports)
        finally:
            plant.kill()
            plant.wait()
        check(folder / "many", *result)
        print(f"memory: {few >> 10} KB, with ten times as many objects {many >> 10} KB")
        # A sanitizer keeps freed memory.
        more = OBJECTS - OBJECTS // 10
        assert many - few <= more * MOST_MEMORY or "ASAN_OPTIONS" in os.environ


if __name__ == "__main__":
    main()
