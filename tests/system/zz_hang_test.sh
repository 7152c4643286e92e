#!/bin/sh
. "${0%/*}/lib/common.sh"
. "$HERE/lib/cups.sh"
. "$HERE/lib/snmp.sh"
cups_setup
cat >"$CUPS/bin/backend/hang" <<'END'
#!/bin/sh
cat >/dev/null
sleep 300
END
chmod 755 "$CUPS/bin/backend/hang"
cups_start
cups_queue kelm hang://127.0.0.1 "$HERE/lib/queue.ppd"
printer_mib "$HERE/printers/few_boxes.mib" | agent_start agent 127.0.0.1
date
"$BUILD/kelmctl" sync kelm --address 127.0.0.1 >"$W/out" 2>"$W/err" || echo "status $?"
date; cat "$W/out" "$W/err"
"$BUILD/kelmctl" settings kelm | head -5
