# Where this system's CUPS has its programs and its configuration, and where it looks for PPDs.
# SPDX-License-Identifier: Apache-2.0

# cups_directory(VARIABLE QUESTION FALLBACK WHAT): sets VARIABLE to the answer of cups-config (of the package
# libcups2-dev), or to FALLBACK.
function(cups_directory VARIABLE QUESTION FALLBACK WHAT)
  set(ANSWER)
  if(KELM_CUPS_CONFIG)
    execute_process(COMMAND ${KELM_CUPS_CONFIG} ${QUESTION}
      OUTPUT_VARIABLE ANSWER OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
  if(NOT ANSWER)
    set(ANSWER ${FALLBACK})
  endif()
  set(${VARIABLE} ${ANSWER} CACHE PATH ${WHAT})
endfunction()

find_program(KELM_CUPS_CONFIG cups-config)
mark_as_advanced(KELM_CUPS_CONFIG)
cups_directory(KELM_CUPS_SERVERBIN --serverbin /usr/lib/cups "the directory of CUPS' filters")
cups_directory(KELM_CUPS_SERVERROOT --serverroot /etc/cups "the directory of CUPS' configuration")

# Debian's CUPS searches /usr/share/ppd. The CUPS of other systems may search only its own model directory.
set(KELM_PPD_DIR /usr/share/ppd/kelm CACHE PATH "the directory of the PPDs")
