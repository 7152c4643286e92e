# wake_up_site.sh : a CUPS server whose wake-up service reaches a printer on another machine; read after
# common.sh. It reads cups.sh, bus.sh and printer_host.sh.
# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=sh
# shellcheck source=tests/system/lib/cups.sh
. "$HERE/lib/cups.sh"
# shellcheck source=tests/system/lib/bus.sh
. "$HERE/lib/bus.sh"
# shellcheck source=tests/system/lib/printer_host.sh
. "$HERE/lib/printer_host.sh"

# wake_up_site_start : the printer is awake
wake_up_site_start() {
  printer_host_start
  printer_agent_start
  bus_start
  bus_wake_service
  cups_setup
  cups_start
}
