# One folder is one static library; what it may use is what it links.
# SPDX-License-Identifier: Apache-2.0

# kelm_library(NAME SOURCES file... [LINKS target...])
function(kelm_library NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${NAME} STATIC ${ARG_SOURCES})
  target_link_libraries(${NAME} PUBLIC kelm_settings ${ARG_LINKS} PRIVATE kelm_warnings)
endfunction()

# kelm_program(NAME SOURCES file... [LINKS target...]): left in the top of the build folder; its
# hardening is tested.
function(kelm_program NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} kelm_settings kelm_warnings)
  set_target_properties(${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
  set_property(GLOBAL APPEND PROPERTY KELM_PROGRAMS $<TARGET_FILE:${NAME}>)
endfunction()

# kelm_unit_tests(FOLDER SOURCES file... LINKS target...): the tests of one folder, one executable.
function(kelm_unit_tests FOLDER)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${FOLDER}_test ${ARG_SOURCES})
  target_link_libraries(${FOLDER}_test
    PRIVATE ${ARG_LINKS} GTest::gmock_main kelm_settings kelm_warnings)
  gtest_discover_tests(${FOLDER}_test TEST_PREFIX "${FOLDER}/" DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 120)
endfunction()
