# printer_mib.awk : turns a printer's data file (tests/system/printers/) into lines for snmpd.conf.
# A line is  OBJECT INDEX TYPE VALUE; later lines replace earlier ones:
#   INDEX   a number, or FROM-TO; 0 for objects that are not in a list
#   TYPE    integer NUMBER
#           text TEXT    up to the end of the line; every # in it becomes the index
#           bytes HEX    two digits per byte, no spaces
#           long COUNT   COUNT times "n", at most 4094 times in snmpd's configuration
#           settable     a text that agent_set (snmp.sh) sets
#           absent       the printer does not have the object
# Empty lines and lines that begin with "//" are ignored.
# SPDX-License-Identifier: Apache-2.0
BEGIN {
  lists = ".1.3.6.1.4.1.47193.1.2.2.2."
  oid["boxState"] = lists "6.1.2"
  oid["boxName"] = lists "6.1.3"
  oid["areaState"] = lists "9.1.2"
  oid["areaName"] = lists "9.1.4"
  oid["formState"] = lists "10.1.2"
  oid["formName"] = lists "10.1.4"
  oid["profileState"] = lists "11.1.2"
  oid["profileName"] = lists "11.1.4"
  oid["adminLogin"] = lists "5.6"
  oid["sleepMode"] = ".1.3.6.1.4.1.47193.1.2.1.1.6"
  oid["macAddress"] = ".1.3.6.1.4.1.47193.1.2.2.4.1.2"
}

function repeated(text, count,   result) {
  result = ""
  while (count-- > 0) result = result text
  return result
}

function value_of(type, text, index_) {
  if (type == "integer") return "integer " text
  if (type == "bytes") return "octet_str 0x" text
  if (type == "settable") return "octet_str \"\""
  if (type == "long") return "octet_str \"" repeated("n", text) "\""
  gsub(/#/, index_, text)
  gsub(/["\\]/, "\\\\&", text)
  return "octet_str \"" text "\""
}

/^$/ || /^\/\// { next }

{
  if (!($1 in oid)) { print "printer_mib.awk: unknown object " $1 >"/dev/stderr"; exit 1 }
  text = $0
  sub(/^[^ ]+ +[^ ]+ +[^ ]+ ?/, "", text)
  last = split($2, range, "-")
  for (i = range[1]; i <= range[last] + 0; i++) {
    name = oid[$1] "." i
    if (!(name in line)) order[++count] = name
    rights = $3 == "settable" ? "-rw " : ""
    line[name] = $3 == "absent" ? "" : "override " rights name " " value_of($3, text, i)
  }
}

END {
  for (i = 1; i <= count; i++) if (line[order[i]] != "") print line[order[i]]
}
