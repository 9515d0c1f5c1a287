#!/usr/bin/env python3
"""flood-server.py MEGABYTES: sends a client pieces of text as fast as it reads them.

Prints its port, waits for one client, greets it and sends the text. Prints the seconds until the
client has read all of it, that is, until both ends' queues are empty.
"""

import os
import socket
import sys
import time

SETTLE = 2.0  # seconds between greeting and flood, so that the client opens its window
LINES_OF_PIECE = 4


def megabyte():
    line = b"%-60s\r\n" % b"  1000 !TSC1        !MO..FR       !07:00..16:30"
    pieces = [b"%04d>%s\xff" % (number, line * LINES_OF_PIECE) for number in range(3937)]
    return b"".join(pieces)  # 254 characters each


def waiting(client_port, server_port):
    """The bytes not yet sent, and those not yet read by the client (on this machine)."""
    total = 0
    with open("/proc/net/tcp", encoding="ascii") as table:
        for row in list(table)[1:]:
            fields = row.split()
            ports = [int(fields[i].split(":")[1], 16) for i in (1, 2)]
            sent, received = (int(queue, 16) for queue in fields[4].split(":"))
            if ports == [server_port, client_port]:
                total += sent
            elif ports == [client_port, server_port]:
                total += received
    return total


def main():
    text = megabyte()
    with socket.create_server(("127.0.0.1", 0)) as server:
        server.settimeout(30)
        port = server.getsockname()[1]
        print(port, flush=True)
        client, (_, client_port) = server.accept()
    with client:
        client.settimeout(120)
        time.sleep(0.3)  # the client must know that it is connected before it can read the greeting
        client.sendall(b"<TRANSPARENT>")
        time.sleep(SETTLE)
        start = time.monotonic()
        for _ in range(int(sys.argv[1])):
            client.sendall(text)
        while waiting(client_port, port) > 0:
            time.sleep(0.001)
        print(f"{time.monotonic() - start:.3f}", flush=True)
        os.close(sys.stdout.fileno())
        client.recv(1)  # keep the connection: a client may end when it closes


if __name__ == "__main__":
    main()
