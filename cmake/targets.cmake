# Each directory is a static library that links exactly what it may use.
# SPDX-License-Identifier: Apache-2.0

# All libraries share one precompiled header, because a compiler spends most of its time on reading the same
# headers. The preset "clang" compiles without it, which finds missing includes. The files that use Avahi need
# the macro _REENTRANT, so all files get it.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/shared_headers.cpp CONTENT "// Only its headers count.\n")
add_library(kelm_shared_headers STATIC ${PROJECT_BINARY_DIR}/shared_headers.cpp)
target_link_libraries(kelm_shared_headers PRIVATE kelm_settings kelm_warnings)
target_compile_definitions(kelm_shared_headers PRIVATE _REENTRANT)
set(KELM_SHARED_HEADERS
  <algorithm> <array> <chrono> <functional> <map> <memory> <optional> <ostream> <set> <span> <string>
  <string_view> <utility> <variant> <vector> <cups/cups.h> <cups/ppd.h>)
target_precompile_headers(kelm_shared_headers PRIVATE ${KELM_SHARED_HEADERS})

# The files of a target are compiled as one, because each would read the same headers and instantiate the same
# templates; so names in unnamed namespaces must differ within a directory, except in kelmctl's subcommands
# (ctl/CMakeLists.txt). The preset "clang" and the Debian packages compile each file alone, and so does
# -DCMAKE_UNITY_BUILD=OFF, for a quicker build after small changes.
if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS AND NOT DEFINED CMAKE_UNITY_BUILD)
  set(CMAKE_UNITY_BUILD ON)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE 0)
  # g++ takes each of the files for a header.
  kelm_compile_option(-Wno-subobject-linkage)
endif()

# kelm_library(NAME SOURCES file... [LINKS target...])
function(kelm_library NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${NAME} STATIC ${ARG_SOURCES})
  target_link_libraries(${NAME} PUBLIC kelm_settings ${ARG_LINKS} PRIVATE kelm_warnings)
  target_compile_definitions(${NAME} PRIVATE _REENTRANT)
  target_precompile_headers(${NAME} REUSE_FROM kelm_shared_headers)
endfunction()

# kelm_program(NAME SOURCES file... [LINKS target...]): a program at the top of the build directory, whose
# hardening is tested.
function(kelm_program NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME} PRIVATE ${ARG_LINKS} kelm_settings kelm_warnings)
  target_compile_definitions(${NAME} PRIVATE _REENTRANT)
  target_precompile_headers(${NAME} REUSE_FROM kelm_shared_headers)
  set_target_properties(${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
  set_property(GLOBAL APPEND PROPERTY KELM_PROGRAMS $<TARGET_FILE:${NAME}>)
  set_property(GLOBAL APPEND PROPERTY KELM_PROGRAM_NAMES ${NAME})
endfunction()

# kelm_test_program(NAME SOURCES file... LINKS target...): a program of the tests. All share the precompiled
# header of the test support library.
function(kelm_test_program NAME)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${NAME} ${ARG_SOURCES})
  target_link_libraries(${NAME}
    PRIVATE ${ARG_LINKS} GTest::gmock kelm_settings kelm_test_settings kelm_warnings)
  target_precompile_headers(${NAME} REUSE_FROM kelm_test_support)
endfunction()

# kelm_add_suites(PROGRAM DIRECTORY [NAMESPACES filter]): a test of ctest for each test suite of the program
# (test_suites.cmake).
function(kelm_add_suites PROGRAM DIRECTORY)
  cmake_parse_arguments(ARG "" "NAMESPACES" "" ${ARGN})
  set(SUITES ${CMAKE_CURRENT_BINARY_DIR}/${PROGRAM}_suites.cmake)
  file(GENERATE OUTPUT ${SUITES} CONTENT "set(PROGRAM \"$<TARGET_FILE:${PROGRAM}>\")
set(DIRECTORY ${DIRECTORY})
set(NAMESPACES \"${ARG_NAMESPACES}\")
include(\"${PROJECT_SOURCE_DIR}/cmake/test_suites.cmake\")
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${SUITES})
endfunction()

# kelm_unit_tests(DIRECTORY SOURCES file... LINKS target... [NAMESPACES filter]): the tests of a directory, as
# one program. The filter names the tests that need namespaces or root (scripts/check).
function(kelm_unit_tests DIRECTORY)
  cmake_parse_arguments(ARG "" "NAMESPACES" "SOURCES;LINKS" ${ARGN})
  kelm_test_program(${DIRECTORY}_test SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS} GTest::gmock_main)
  kelm_add_suites(${DIRECTORY}_test ${DIRECTORY} NAMESPACES "${ARG_NAMESPACES}")
endfunction()
