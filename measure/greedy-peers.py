#!/usr/bin/env python3
"""greedy-peers.py PROGRAMS DATA [MEGABYTES]: servers that send text without ever ending a line.

Each server greets zekview-cli and then sends it so many megabytes (default 20): without a line end,
without character 255, or only characters 23. The program may use at most 8 MB more memory than with
a well-behaved server. With 512 megabytes or more, the processor time for half of them is measured
too: the time must grow linearly.
"""

import os
import pathlib
import socket
import subprocess
import sys
import tempfile
import threading

# A sanitizer would keep freed memory for a while.
ENVIRONMENT = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")
               + ":quarantine_size_mb=0:thread_local_quarantine_size_kb=0"}
MOST_MEMORY = 8 << 20
MOST_RATIO = 2.2  # of the time for all to the time for half
MEASURED_FROM = 512  # megabytes; less ends too soon to be measured
FEWEST_RUNS = 3  # the fastest counts, the one least disturbed by other programs
MOST_RUNS = 12
INI = """[General]
Language=044
DisconnectTime=60
GetTSCTimeout=5
[TCPIP]
SendTimeOut=5
DelayAfterConnect=0
[Topics]
PIECES=YES,1,127.0.0.1:{port},Pieces
PLAIN=YES,1,127.0.0.1:{port}:3,Plain
"""
PIECE = b"0000>" + b"x" * 250
# The topic (its framing) and the text that is sent.
PEERS = {
    "no line end, plain text": ("PLAIN", b"x" * 65536),
    "no line end, in pieces": ("PIECES", (PIECE + b"\xff") * 256),
    "no character 255": ("PIECES", (b"1000 !AHU1 !07:00..16:30\r\n" * 10) * 256),
    "characters 23, plain text": ("PLAIN", b"\x17" * 65536),
    "characters 23, in pieces": ("PIECES", (b"0000>" + b"\x17" * 250 + b"\xff") * 256),
}
FIGURES = {"no line end": 2, "no character 255": 1, "characters 23": 2}


class Server:
    """Greets; at the first command sends `size` bytes of a text and then one line."""

    def __init__(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]

    def begin(self, greeting, text, size):
        self.error = None
        self.thread = threading.Thread(target=self.serve, args=(greeting, text, size), daemon=True)
        self.thread.start()

    def serve(self, greeting, text, size):
        peer, _ = self.listener.accept()
        with peer:
            peer.settimeout(60)
            try:
                peer.sendall(greeting)
                command = b""
                while b"HELLO\r" not in command:
                    command += peer.recv(100)
                block = text * max(1, (1 << 20) // len(text))
                for _ in range(size // len(block)):
                    peer.sendall(block)
                peer.sendall(b"\r\nEND\r\n" if not greeting else b"\xff0001>\r\nEND\r\n\xff")
                while peer.recv(100):
                    pass
            except OSError as error:
                self.error = error


class Trial:
    def __init__(self, programs, data, home):
        self.programs, self.home, self.server = programs, home, Server()
        for language in (data / "lang").iterdir():
            (home / language.name).write_bytes(language.read_bytes())
        (home / "ZEKView.INI").write_text(INI.format(port=self.server.port), newline="")

    def run(self, topic, text, size):
        """The processor time (seconds) and peak memory (bytes) of a command that receives `size`
        bytes."""
        greeting = b"<TRANSPARENT>" if topic == "PIECES" else b""
        self.server.begin(greeting, text, size)
        process = subprocess.Popen([self.programs / "zekview-cli", "--dir", self.home, "send",
                                    topic, "HELLO"], stdout=subprocess.PIPE,
                                   env=ENVIRONMENT)
        told = process.stdout.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.server.thread.join(60)
        assert process.returncode == 0 and b"END" in told, (topic, process.returncode, told[:300])
        assert self.server.error is None, self.server.error
        return usage.ru_utime + usage.ru_stime, usage.ru_maxrss << 10

    def fastest(self, topic, text, size):
        """The processor time for `size` bytes, and its ratio to the time for half of them. Each is
        the fastest of several runs; a ratio that is too high causes further runs."""
        whole = half = float("inf")
        for run in range(1, MOST_RUNS + 1):
            half = min(half, self.run(topic, text, size // 2)[0])
            whole = min(whole, self.run(topic, text, size)[0])
            if run >= FEWEST_RUNS and whole / half <= MOST_RATIO:
                break
        return whole, whole / half


def main():
    programs, data = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    megabytes = int(sys.argv[3]) if len(sys.argv) > 3 else 20
    good = {}
    with tempfile.TemporaryDirectory() as name:
        trial = Trial(programs, data, pathlib.Path(name))
        normal = {topic: trial.run(topic, b"x", 0)[1] for topic in ("PLAIN", "PIECES")}
        for name, (topic, text) in PEERS.items():
            _, memory = trial.run(topic, text, megabytes << 20)
            more = memory - normal[topic]
            fits = more <= MOST_MEMORY
            linear = ""
            if megabytes >= MEASURED_FROM:
                whole, ratio = trial.fastest(topic, text, megabytes << 20)
                linear = f", {whole:.2f} s of processor time, {ratio:.2f} times that of half of it"
                fits = fits and ratio <= MOST_RATIO
            print(f"{name}: {megabytes} MB cost {more / (1 << 20):.1f} MB of memory{linear}")
            good[name] = fits
    kinds = [all(fits for name, fits in good.items() if name.startswith(kind)) for kind in FIGURES]
    print(f"figure: greedy peers: {sum(kinds)} of {len(kinds)}")
    sys.exit(0 if all(kinds) else 1)


if __name__ == "__main__":
    main()
