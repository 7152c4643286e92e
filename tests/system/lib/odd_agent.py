#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""odd_agent.py ADDRESS BEHAVIOUR [NUMBER] : an SNMPv1 agent on UDP port 161 that misbehaves. Every value
that it gives is the INTEGER 1. Behaviours:
  late SECONDS     answers each request that much later
  after COUNT      does not answer the first COUNT requests
  never            does not answer
  fewer COUNT      leaves out the last COUNT variables
  doubled          answers twice
  elsewhere        answers from another port of its address
  garbled          answers with bytes that are not an SNMP message first, then properly
  error STATUS     reports the error, with no variables
It prints "ready" first, then for each request a line with its size and its bytes in hex.
"""
import socket
import sys
import time


def read_tlv(data, at):
    """The tag at `at`, its contents, and the position after them."""
    tag, length, at = data[at], data[at + 1], at + 2
    if length & 0x80:
        size = length & 0x7F
        length, at = int.from_bytes(data[at:at + size], "big"), at + size
    return tag, data[at:at + length], at + length


def tlv(tag, contents):
    size = len(contents)
    if size < 0x80:
        return bytes([tag, size]) + contents
    length = size.to_bytes((size.bit_length() + 7) // 8, "big")
    return bytes([tag, 0x80 | len(length)]) + length + contents


def children(contents):
    at, found = 0, []
    while at < len(contents):
        tag, inner, at = read_tlv(contents, at)
        found.append((tag, inner))
    return found


def response(request, change=lambda variables: variables, status=0):
    _, message, _ = read_tlv(request, 0)
    version, community, (_, pdu) = children(message)
    request_id, _, _, (_, bindings) = children(pdu)
    names = [children(binding)[0] for _, binding in children(bindings)]
    variables = change([tlv(0x30, tlv(*name) + tlv(2, b"\x01")) for name in names])
    parts = [tlv(*request_id), tlv(2, bytes([status])), tlv(2, b"\0"), tlv(0x30, b"".join(variables))]
    return tlv(0x30, tlv(*version) + tlv(*community) + tlv(0xA2, b"".join(parts)))


def main():
    address, behaviour = sys.argv[1:3]
    number = float(sys.argv[3]) if len(sys.argv) > 3 else 0
    agent = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    agent.bind((address, 161))
    other = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    other.bind((address, 0))
    print("ready", flush=True)
    heard = 0
    while True:
        request, client = agent.recvfrom(65536)
        heard += 1
        print(len(request), request.hex(), flush=True)
        answers = {
            "late": lambda: [response(request)],
            "after": lambda: [response(request)] if heard > number else [],
            "never": lambda: [],
            "fewer": lambda: [response(request, lambda variables: variables[:-int(number)])],
            "doubled": lambda: [response(request)] * 2,
            "elsewhere": lambda: [response(request)],
            "garbled": lambda: [b"\x30\x82", b"no message", request[:20], response(request)],
            "error": lambda: [response(request, lambda variables: [], int(number))],
        }[behaviour]()
        if behaviour == "late":
            time.sleep(number)
        for answer in answers:
            (other if behaviour == "elsewhere" else agent).sendto(answer, client)


if __name__ == "__main__":
    main()
