#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""fleet_agent.py FILE : the SNMPv1 agents of many printers in one process, each on UDP port 161 of its
address. FILE has a line "ADDRESS KIND" for each; the kinds are
  printer   30 shared boxes (1 and 17 in use), 2 forms, 1 barcode area, 30 colour profiles not in use
  silent    never answers
  nologin   a printer that does not answer queries for the administrator's log-in mode
It prints "ready" when all agents listen.
"""
import functools
import selectors
import socket
import sys

from odd_agent import children, read_tlv, tlv

ARC = "1.3.6.1.4.1.47193.1.2."
LISTS = ARC + "2.2."
LOGIN = LISTS + "5.6.0"
MAC = ARC + "2.4.1.2.0"
USED = {"6": (1, 17), "9": (1,), "10": (1, 2), "11": ()}
LAST = {"6": 30, "9": 100, "10": 100, "11": 30}
NO_SUCH_NAME = 2


def dotted(encoded):
    numbers, value = [encoded[0] // 40, encoded[0] % 40], 0
    for byte in encoded[1:]:
        value = value << 7 | byte & 0x7F
        if not byte & 0x80:
            numbers.append(value)
            value = 0
    return ".".join(map(str, numbers))


def number(value):
    return tlv(2, bytes([value]))


def value_of(oid):
    """The encoded value of an object that is the same for all printers; None if they do not have it."""
    if oid in (LOGIN, ARC + "1.1.6.0"):
        return number(0)
    if not oid.startswith(LISTS):
        return None
    family, _, column, index = oid[len(LISTS):].split(".")
    if family not in USED or int(index) > LAST[family]:
        return None
    if column == "2":
        return number(int(index) in USED[family])
    return tlv(4, f"Entry {index}".encode())


@functools.lru_cache(maxsize=None)
def shared_answer(bindings):
    """The error status and the encoded variables of an answer, as far as all printers give the same."""
    names = [children(binding)[0] for _, binding in children(bindings)]
    values = [value_of(dotted(name)) for _, name in names]
    if None in values:
        return NO_SUCH_NAME, bindings
    return 0, b"".join(tlv(0x30, tlv(*name) + value) for name, value in zip(names, values))


def asks_for(bindings, oid):
    return any(dotted(children(binding)[0][1]) == oid for _, binding in children(bindings))


def answer(request, address, kind):
    _, message, _ = read_tlv(request, 0)
    version, community, (_, pdu) = children(message)
    request_id, _, _, (_, bindings) = children(pdu)
    if len(bindings) < 40 and asks_for(bindings, MAC):
        mac = "00:1b:" + ":".join(f"{int(part):02x}" for part in address.split("."))
        name = children(children(bindings)[0][1])[0]
        status, variables = 0, tlv(0x30, tlv(*name) + tlv(4, mac.encode()))
    elif kind == "nologin" and len(bindings) < 40 and asks_for(bindings, LOGIN):
        return None
    else:
        status, variables = shared_answer(bindings)
    parts = [tlv(*request_id), number(status), number(0), tlv(0x30, variables)]
    return tlv(0x30, tlv(*version) + tlv(*community) + tlv(0xA2, b"".join(parts)))


def main():
    selector = selectors.DefaultSelector()
    silent = []
    for line in open(sys.argv[1], encoding="ascii"):
        address, kind = line.split()
        agent = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        agent.bind((address, 161))
        if kind == "silent":
            silent.append(agent)
        else:
            selector.register(agent, selectors.EVENT_READ, (address, kind))
    print("ready", flush=True)
    while True:
        for key, _ in selector.select():
            request, client = key.fileobj.recvfrom(65536)
            reply = answer(request, *key.data)
            if reply:
                key.fileobj.sendto(reply, client)


main()
