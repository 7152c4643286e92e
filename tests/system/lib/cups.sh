# cups.sh : a private cupsd in $W/cups; read after common.sh. Nothing is installed on the machine: the
# ServerBin has links to the machine's filters, and the built kelmfilter.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh

CUPS=$W/cups
CUPS_SERVER=127.0.0.1:631
export CUPS_SERVER

# cups_setup : makes the directories and files; a test may change the configuration before cups_start
cups_setup() {
  [ -x /usr/sbin/cupsd ] || fail "no /usr/sbin/cupsd: install the package cups"
  # For the locks of kelmctl, because queues of other tests have the same names.
  mkdir -p /run/lock
  mount -t tmpfs -o mode=1777 none /run/lock
  install -d -m 755 "$CUPS" "$CUPS/etc" "$CUPS/etc/ppd" "$CUPS/cache" "$CUPS/state" "$CUPS/log" \
    "$CUPS/bin" "$CUPS/bin/filter" "$CUPS/bin/backend"
  install -d -m 710 -g lp "$CUPS/spool"
  install -d -m 1770 -g lp "$CUPS/spool/tmp"
  for directory in cgi-bin daemon driver monitor notifier; do
    ln -sfn "/usr/lib/cups/$directory" "$CUPS/bin/$directory"
  done
  ln -sfn /usr/lib/cups/filter/* "$CUPS/bin/filter/"
  ln -sfn /usr/lib/cups/backend/socket "$CUPS/bin/backend/socket"
  install -m 755 "$BUILD/kelmfilter" "$CUPS/bin/filter/kelmfilter"
  cups_write_files_conf >"$CUPS/etc/cups-files.conf"
  cups_write_conf >"$CUPS/etc/cupsd.conf"
}

cups_write_files_conf() {
  cat <<END
ServerRoot $CUPS/etc
ServerBin $CUPS/bin
RequestRoot $CUPS/spool
CacheDir $CUPS/cache
StateDir $CUPS/state
TempDir $CUPS/spool/tmp
AccessLog $CUPS/log/access_log
ErrorLog $CUPS/log/error_log
PageLog $CUPS/log/page_log
User lp
Group lp
SystemGroup root
FileDevice Yes
SyncOnClose No
END
}

cups_write_conf() {
  cat <<END
LogLevel debug
MaxLogSize 0
Listen 127.0.0.1:631
Listen $CUPS/state/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
PreserveJobHistory Yes
PreserveJobFiles No
MaxJobs 500
DirtyCleanInterval 1
<Location />
  Order allow,deny
  Allow from 127.0.0.1
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order deny,allow
    Allow from all
  </Limit>
</Policy>
END
}

cups_answers() { LC_ALL=C lpstat -r 2>/dev/null | grep -q 'is running'; }

# cups_start : runs cupsd and waits until it answers, at most CUPS_START_LIMIT seconds (default: 5)
cups_start() {
  /usr/sbin/cupsd -f -c "$CUPS/etc/cupsd.conf" -s "$CUPS/etc/cups-files.conf" \
    >"$CUPS/log/stdout_log" 2>&1 </dev/null &
  started cupsd $!
  wait_until "${CUPS_START_LIMIT:-5}" cups_answers || fail "cupsd did not start"
}

# cups_stop : the end of the test does this too
cups_stop() { stop cupsd; }

# cups_queue QUEUE DEVICE PPD : DEVICE is socket://127.0.0.1:PORT or file:PATH
cups_queue() {
  lpadmin -p "$1" -E -v "$2" -P "$3" 2>"$W/lpadmin_log" || fail "lpadmin refused queue $1"
}

# cups_queue_ppd QUEUE : the file in which cupsd keeps the queue's PPD
cups_queue_ppd() { echo "$CUPS/etc/ppd/$1.ppd"; }

cups_job_left() { ! lpstat -W not-completed -o | grep -q "^$1 "; }

# cups_job QUEUE LP-ARGUMENT... : submits a job, waits up to 20 s until it has left the queue, prints its id
cups_job() {
  queue=$1
  shift
  id=$(lp -d "$queue" "$@" | sed 's/.*-\([0-9]*\) .*/\1/') || return 1
  wait_until 20 cups_job_left "$queue-$id" || return 1
  echo "$id"
}

# printer_start PORT FILE : a printer that appends everything it gets to FILE
printer_start() {
  : >"$2"
  socat -u "TCP-LISTEN:$1,bind=127.0.0.1,reuseaddr,fork" "OPEN:$2,append" &
  started "printer$1" $!
  wait_until 5 printer_listens "$1" || fail "no listener on port $1"
}

printer_listens() { ss -ltn "sport = :$1" | grep -q LISTEN; }
