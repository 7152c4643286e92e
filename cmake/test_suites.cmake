# Read by ctest when it starts: a test for each test suite of PROGRAM, named DIRECTORY/SUITE. A process for each
# single test would take a minute of processor time more. The tests that the filter NAMESPACES names are one test,
# with a label; each of the filter's patterns must name a test, because GoogleTest counts no test as success.
# SPDX-License-Identifier: Apache-2.0
if(NOT EXISTS "${PROGRAM}")
  add_test("${DIRECTORY}/NOT_BUILT" "${PROGRAM}")
  return()
endif()

function(kelm_add_suite SUITE FILTER)
  add_test("${DIRECTORY}/${SUITE}" "${PROGRAM}" "--gtest_filter=${FILTER}")
  set_tests_properties("${DIRECTORY}/${SUITE}" PROPERTIES TIMEOUT 300 ENVIRONMENT GTEST_BRIEF=1 ${ARGN})
endfunction()

# The names of the suites and tests that the filter names.
function(kelm_list_tests FILTER LISTED)
  execute_process(COMMAND "${PROGRAM}" --gtest_list_tests "--gtest_filter=${FILTER}"
    OUTPUT_VARIABLE OUTPUT COMMAND_ERROR_IS_FATAL ANY)
  set(${LISTED} "${OUTPUT}" PARENT_SCOPE)
endfunction()

if(NAMESPACES)
  string(REPLACE ":" ";" PATTERNS "${NAMESPACES}")
  foreach(PATTERN IN LISTS PATTERNS)
    kelm_list_tests("${PATTERN}" LISTED)
    # A line that is indented names a test.
    if(NOT LISTED MATCHES "\n  [^ ]")
      message(FATAL_ERROR "${DIRECTORY}: no test has a name like ${PATTERN}")
    endif()
  endforeach()
  kelm_add_suite(namespaces "${NAMESPACES}" LABELS namespaces)
  set(WITHOUT "-${NAMESPACES}")
else()
  set(WITHOUT "")
endif()
kelm_list_tests("*${WITHOUT}" LISTED)
# A line that is not indented names a suite, with a dot at its end.
string(REGEX MATCHALL "\n[^ \n]+\\." SUITES "\n${LISTED}")
foreach(SUITE IN LISTS SUITES)
  string(REGEX REPLACE "^\n(.*)\\.$" "\\1" SUITE "${SUITE}")
  kelm_add_suite("${SUITE}" "${SUITE}.*${WITHOUT}")
endforeach()
