#!/bin/sh
# The time limits of a job's wait for a sleeping printer (docs/wake-up-bus.md), each with its server stopped.
# Cancelling the job ends each wait.
# Time limit: 240 s
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/system/lib/common.sh
. "${0%/*}/lib/common.sh"
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/avahi.sh
. "$HERE/lib/avahi.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"

# A stopped server must be continued before it can end.
trap 'for pid in "$W"/pids/*; do kill -CONT "$(cat "$pid")" || :; done 2>/dev/null; clean_up' EXIT

milliseconds() { echo $(($(date +%s%N) / 1000000)); }
freeze() { kill -STOP "$(cat "$W/pids/$1")"; }
thaw() { kill -CONT "$(cat "$W/pids/$1")"; }

# job_start [NAME=VALUE...] : starts the filter as cupsd does, for the queue $queue
queue=kelm
job_start() {
  started_at=$(milliseconds)
  env PPD="$W/wol.ppd" PATH="$W/programs:$PATH" "$@" \
    "$queue" 1 user title 1 '' "$W/page.ps" >"$W/out" 2>"$W/filter_log" &
  started job $!
  job=$!
}

# job_ends WHAT FROM TO : the job ends FROM to TO milliseconds after its start, and is whole
job_ends() {
  wait_until 60 gone "$job" || fail "$1: the job does not end"
  took=$(($(milliseconds) - started_at))
  if [ $took -lt "$2" ] || [ $took -gt "$3" ]; then fail "$1: the job took $took ms, not $2 to $3"; fi
  sed -n '/^%!PS-Adobe/,$p' "$W/out" | cmp "$W/page.ps" - >&2 || fail "$1: the job is not complete"
  echo "$1: $took ms"
}

# job_is_cancelled WHAT [NAME=VALUE...] : SIGTERM after half a second ends the same wait immediately
job_is_cancelled() {
  what=$1
  shift
  job_start "$@"
  sleep 0.5
  alive "$job" || fail "$what: the job did not wait"
  kill -TERM "$job"
  job_ends "$what, cancelled" 500 1700
}

printf '%%!PS-Adobe-3.0\nshowpage\n%%%%EOF\n' >"$W/page.ps"
sed '/^\*cupsFilter/a *PrinterMacAddress: "MDA6ODA6OTI6MTI6MzQ6NTY="' "$HERE/lib/queue.ppd" >"$W/wol.ppd"
mkdir "$W/programs"
ln -s "$BUILD/kelmfilter" "$W/programs/kelm"
ln -s "$BUILD/kelmfilter" "$W/programs/unknown"
printer_host_start
bus_start
mount -t tmpfs none /run
avahi_start mdns lo
cups_setup
echo "SetEnv DBUS_SYSTEM_BUS_ADDRESS $DBUS_SYSTEM_BUS_ADDRESS" >>"$CUPS/etc/cups-files.conf"
cups_start
cups_queue kelm socket://10.77.0.2 "$W/wol.ppd"

# The list of queues: 10 seconds. The rest needs no time, because there is no service on the bus.
freeze cupsd
job_start
job_ends "cupsd stopped" 9900 11500
job_is_cancelled "cupsd stopped"
thaw cupsd

# The mDNS daemon: the list of queues, and 3.3 seconds for each of two places where the name may end.
freeze mdns
job_start "DEVICE_URI=dnssd://Nobody._ipp._tcp.local._pdl-datastream._tcp.local/"
job_ends "mDNS daemon stopped" 16000 18600
job_is_cancelled "mDNS daemon stopped"
thaw mdns

# The name server: 30 seconds, although the resolver would wait longer.
printf 'nameserver 10.77.0.2\noptions timeout:30 attempts:3\n' >"$W/resolv.conf"
mount --bind "$W/resolv.conf" /etc/resolv.conf
at_printer_start name_server socat -u UDP4-RECV:53 "OPEN:$W/names,creat"
name_server_listens() { at_printer ss -lunH 'sport = :53' | grep -q ':53'; }
wait_until 5 name_server_listens || fail "no name server"
freeze name_server
queue=unknown
job_start DEVICE_URI=ipp://printer.example/ipp/print
job_ends "name server stopped" 29900 32500
job_is_cancelled "name server stopped" DEVICE_URI=ipp://printer.example/ipp/print
queue=kelm
thaw name_server
stop name_server

# The bus: the list of queues again, because libcups asks for services on the bus, and 5 seconds.
freeze bus
job_start
job_ends "bus stopped" 14900 17000
job_is_cancelled "bus stopped"
thaw bus

# A bus that greets a program after 4 seconds and then never answers: after the request, which it gets, the job
# waits 5 seconds for its answer. libcups waits for this bus, too.
cat >"$W/slow_bus.py" <<'END'
"""slow_bus.py SOCKET REQUESTS : greets each program after 4 s; appends what it sends then to REQUESTS"""
import socket, struct, sys, threading, time

def padded(text, to):
    return text + b"\0" * (-len(text) % to)

def string(text):
    return struct.pack("<I", len(text)) + text + b"\0"

def welcome(serial):
    fields = b"\5\1u\0" + struct.pack("<I", serial)
    for code, value in ((6, b":1.7"), (7, b"org.freedesktop.DBus")):
        fields = padded(fields, 8) + bytes([code]) + b"\1s\0" + string(value)
    fields = padded(fields, 8) + b"\x08\1g\0\1s\0"
    body = string(b":1.7")
    header = struct.pack("<4sIII", b"l\2\1\1", len(body), 1, len(fields)) + fields
    return padded(header, 8) + body

def serve(peer):
    said = b""
    while b"BEGIN\r\n" not in said:
        data = peer.recv(4096)
        if not data:
            return
        for line in data.replace(b"\0", b"").split(b"\r\n"):
            if line == b"AUTH EXTERNAL":
                peer.send(b"DATA\r\n")
            elif line.startswith((b"AUTH EXTERNAL ", b"DATA")):
                peer.send(b"OK 0123456789abcdef0123456789abcdef\r\n")
            elif line.startswith(b"NEGOTIATE"):
                peer.send(b"AGREE_UNIX_FD\r\n")
        said += data
    hello = said.partition(b"BEGIN\r\n")[2]
    while len(hello) < 16:
        hello += peer.recv(4096)
    time.sleep(4)
    peer.send(welcome(struct.unpack_from("<I", hello, 8)[0]))
    while data := peer.recv(4096):
        with open(sys.argv[2], "ab") as requests:
            requests.write(data)

server = socket.socket(socket.AF_UNIX)
server.bind(sys.argv[1])
server.listen(20)
while True:
    threading.Thread(target=serve, args=(server.accept()[0],), daemon=True).start()
END
: >"$W/requests"
python3 "$W/slow_bus.py" "$W/slow_bus" "$W/requests" &
started slow_bus $!
wait_until 5 test -S "$W/slow_bus" || fail "no slow bus"
job_start "DBUS_SYSTEM_BUS_ADDRESS=unix:path=$W/slow_bus"
job_ends "slow bus" 18900 21000
grep -qa XpcSnmpWakeUpOnLan "$W/requests" || fail "the slow bus got no request"
stop slow_bus

# A job that is cancelled before the wait (here: while its file is being opened) does not wait at all.
freeze cupsd
mkfifo "$W/fifo"
env PPD="$W/wol.ppd" PATH="$W/programs:$PATH" kelm 1 user title 1 '' "$W/fifo" >"$W/out" 2>"$W/filter_log" &
started job $!
job=$!
# Before the filter, the process is this shell, which also catches the signal.
catches_term() {
  [ "$(cat "/proc/$job/comm")" = kelm ] && grep -q '^SigCgt:.*[4-7c-f]...$' "/proc/$job/status"
}
wait_until 10 catches_term || fail "the job does not catch SIGTERM"
kill -TERM "$job"
started_at=$(milliseconds)
timeout 10 cp "$W/page.ps" "$W/fifo" || fail "the job does not read its file"
job_ends "cancelled before the wait" 0 3000
thaw cupsd

# The wait for the call-back: the job is cancelled while the service asks a silent printer.
bus_wake_service
waking() { grep -q 'waking 10.77.0.2' "$W/service_log" 2>/dev/null; }
lp -d kelm "$W/page.ps" >"$W/lp_out"
wait_until 10 waking || fail "the service was not asked"
sleep 0.5
cancelled_at=$(milliseconds)
cancel "$(sed 's/.* \(kelm-[0-9]*\) .*/\1/' "$W/lp_out")"
queue_is_idle() { lpstat -p kelm | grep -q idle; }
wait_until 10 queue_is_idle || fail "the queue stays busy with a cancelled job"
took=$(($(milliseconds) - cancelled_at))
[ $took -le 3000 ] || fail "the queue was busy for $took ms after the cancel"
echo "call-back, cancelled: $took ms"
