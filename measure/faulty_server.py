"""A communication server with one controller, which fails in every way a server can."""

import collections
import socket
import struct
import threading
import time

FAULTS = ("refused", "reset", "reset-mid", "hang-up", "hang-up-mid", "silence", "garbage",
          "half-line", "error", "refused-line", "flood", "late")
LATE = (0.05, 0.4)  # seconds; the soak's time-outs are a quarter of a second
FLOODS = (1,) * 19 + (20,)  # megabytes
FLOOD = b"%-60s\r\n" % b"     !TSC1        !MO..FR       !07:00..16:30"
# Never mistaken for a catalogue's line: no digits, no end of a line or piece.
GARBAGE = bytes(set(range(1, 255)) - set(b"0123456789\n\r<.\x02\x03\x05\x17EI"))

# What goes wrong on one connection, and after how many answers. If the connection has a greeting,
# the greeting counts as the first answer (step 0).
Fault = collections.namedtuple("Fault", "name step")


class Hangup(Exception):
    """The connection is over."""


class Station:
    """One topic of the settings: its port, its controller and the commands it received."""

    def __init__(self, kind, dus, dice, floods=FLOODS, late=LATE):
        self.kind, self.dus, self.dice, self.floods, self.late = kind, dus, dice, floods, late
        self.catalogues = {kind: ([], "1") for kind in ("wdc", "sdc", "ovc")}
        self.port, self.listening = 0, False
        self.listener = self.bound()
        self.port = self.listener.getsockname()[1]
        self.received, self.refused, self.acted = [], False, False
        self.plan, self.met = [], []
        self.threads = []
        self.lock = threading.Lock()
        self.accepting = None

    def has_value(self, kind):
        return self.kind == 2 and kind != "sdc"

    def selector(self, kind):
        if kind == "sdc" or self.kind == 1:
            return "." + kind.upper()
        return {"wdc": "AHU1.WDC", "ovc": "AHU1.EXC"}[kind]

    def begin(self, plan):
        """`plan`: a fault or None for each connection in turn; the last one is repeated."""
        self.plan, self.met, self.threads = list(plan), [], []
        self.received, self.refused, self.acted = [], False, False
        if self.plan[0] is None or self.plan[0].name != "refused":
            self.listen()
        else:
            self.met.append(self.plan[0])

    def bound(self):
        """A socket that reserves the port without listening, so that connections are refused."""
        holder = socket.socket()
        holder.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        holder.bind(("127.0.0.1", self.port))
        return holder

    def listen(self):
        self.listening = True
        self.listener.listen(8)
        self.accepting = threading.Thread(target=self.accept, daemon=True)
        self.accepting.start()

    def refuse(self):
        """Stops listening but keeps the port reserved."""
        if not self.listening:
            return
        self.listening = False
        self.listener.shutdown(socket.SHUT_RDWR)  # ends the wait for the next connection
        self.listener.close()
        self.listener = self.bound()

    def accept(self):
        listener = self.listener
        while True:
            try:
                peer, _ = listener.accept()
            except OSError:
                return
            with self.lock:
                index = min(len(self.threads), len(self.plan) - 1)
                fault = self.plan[index]
                self.met.append(fault)
                coming = self.plan[min(index + 1, len(self.plan) - 1)]
                if coming is not None and coming.name == "refused":
                    self.refuse()
                self.received, self.refused = [], False
                thread = threading.Thread(target=self.serve, args=(peer, fault), daemon=True)
                self.threads.append(thread)
                thread.start()

    def end(self):
        """Ends the transfer: waits until everything sent was read."""
        self.refuse()
        if self.accepting is not None:
            self.accepting.join(20)
        for thread in self.threads:
            thread.join(20)
            assert not thread.is_alive(), "a connection was left open"
        self.accepting = None

    def always_faulty(self):
        """True if every attempt met a fault."""
        coming = self.plan[min(len(self.met), len(self.plan) - 1)]
        refused = coming is not None and coming.name == "refused"
        return (bool(self.met) or refused) and None not in self.met

    def account(self):
        return f"plan {self.plan}, met {self.met}, received {self.received}"

    def serve(self, peer, fault):
        with peer:
            peer.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            peer.settimeout(30)
            try:
                Conversation(self, peer, fault).run()
            except (Hangup, OSError):
                pass


class Conversation:
    """One connection."""

    def __init__(self, station, peer, fault):
        self.station, self.peer, self.fault = station, peer, fault
        self.step, self.sequence, self.silent, self.command = 0, 0, False, ""

    def run(self):
        if not self.station.dus:
            self.answer(b"<TRANSPARENT>")
        for command in self.commands():
            if self.station.dus and command.startswith("DUS:"):
                continue
            if not (len(command) == 1 and command < " "):
                self.station.received.append(command)
            self.command = command
            self.answer(self.reply(command))

    def commands(self):
        text = b""
        while True:
            more = self.peer.recv(65536)
            if not more:
                return
            text += more
            while text:
                if text[0] < 32 and text[:1] != b"\r":
                    yield chr(text[0])  # a control character is a command by itself
                    text = text[1:]
                    continue
                if b"\r" not in text:
                    break
                command, _, text = text.partition(b"\r")
                yield command.decode("cp1252")

    def reply(self, command):
        kinds = {"LIST SDC": "sdc"}
        if self.station.kind == 1:
            kinds.update({"LIST WDC": "wdc", "LIST OVC": "ovc"})
        else:
            kinds.update({"LIST AHU1": "wdc", "LIST AHU1.EXC": "ovc"})
        if command not in kinds:
            return self.framed(b"OK\r\n")
        kind = kinds[command]
        lines, value = self.station.catalogues[kind]
        listing = [f"CATALOGUE {kind}", *lines]
        if self.station.has_value(kind):
            listing.append(f".DFV = {value}")
        return self.framed("".join(line + "\r\n" for line in [*listing, "EXIT"]).encode("cp1252"))

    def framed(self, text):
        if self.station.dus:
            return text
        pieces = []
        for start in range(0, len(text), 250):
            pieces.append(b"%04d>" % self.sequence + text[start:start + 250] + b"\xff")
            self.sequence = (self.sequence + 1) % 10000
        return b"".join(pieces)

    def answer(self, text):
        at, self.step = self.step, self.step + 1
        if self.silent:
            return
        if self.fault is None or at != self.fault.step:
            self.peer.sendall(text)
            return
        self.station.acted = True
        getattr(self, self.fault.name.replace("-", "_"))(text)

    def half(self, text):
        return text[:self.station.dice.randint(0, max(len(text) - 2, 0))]

    def reset(self, _):
        self.peer.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        raise Hangup

    def reset_mid(self, text):
        self.peer.sendall(self.half(text))
        self.reset(text)

    def hang_up(self, _):
        raise Hangup

    def hang_up_mid(self, text):
        self.peer.sendall(self.half(text))
        raise Hangup

    def silence(self, _):
        self.silent = True

    def half_line(self, text):
        self.peer.sendall(self.half(text))
        self.silent = True

    def garbage(self, text):
        dice = self.station.dice
        line = bytes(dice.choice(GARBAGE) for _ in range(dice.randint(1, 400)))
        self.greeting_first(text, self.framed(line + b"\r\n"))

    def flood(self, text):
        size = self.station.dice.choice(self.station.floods) << 20
        lines = self.framed(FLOOD * 400)
        lines *= size // len(lines)
        self.greeting_first(text, lines)

    def greeting_first(self, text, more):
        """Sends a greeting before anything else, because a client expects it first."""
        self.peer.sendall(text + more if text.startswith(b"<") else more + text)

    def error(self, _, words=b"ERROR SAKNAS\r\n"):
        # A refused "EXIT" loses nothing.
        self.station.refused = self.station.refused or self.command != "EXIT"
        self.peer.sendall(self.framed(words))

    def refused_line(self, text):
        self.error(text, b"\x02ERROR RADEN GODTAS EJ\r\n")

    def late(self, text):
        time.sleep(self.station.dice.uniform(*self.station.late))
        self.peer.sendall(text)

    def refused(self, text):
        """Never called: such a connection is refused before."""
        raise Hangup
