# How every target of this project is compiled and linked: language, hardening, sanitizers.
# SPDX-License-Identifier: Apache-2.0
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()
# -g1 has functions and lines for backtraces. The preset "debug" has the variables, too.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1")
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g")

set(KELM_SANITIZE "" CACHE STRING "sanitizers, as -fsanitize= takes them")
option(KELM_COVERAGE "measure coverage with gcov" OFF)
option(KELM_FUZZ "build the fuzz targets with libFuzzer" OFF)

# Without these settings, ccache does not cache files that use a precompiled header.
if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache$")
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros ${CMAKE_CXX_COMPILER_LAUNCHER})
  set(KELM_CCACHE ON)
endif()

add_library(kelm_settings INTERFACE)
target_include_directories(kelm_settings INTERFACE ${PROJECT_SOURCE_DIR})
if(KELM_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kelm_settings INTERFACE -fpch-preprocess)
endif()

# kelm_compile_option(FLAG...), kelm_link_option(FLAG...): add the flags to every target, if this compiler or
# linker knows them.
function(kelm_compile_option)
  string(MAKE_C_IDENTIFIER "KELM_COMPILES${ARGN}" KNOWN)
  list(JOIN ARGN " " FLAGS)
  check_cxx_compiler_flag("${FLAGS}" ${KNOWN})
  if(${KNOWN})
    target_compile_options(kelm_settings INTERFACE ${ARGN})
  endif()
endfunction()
function(kelm_link_option)
  string(MAKE_C_IDENTIFIER "KELM_LINKS${ARGN}" KNOWN)
  check_linker_flag(CXX "${ARGN}" ${KNOWN})
  if(${KNOWN})
    target_link_options(kelm_settings INTERFACE ${ARGN})
  endif()
endfunction()

# The filter reads bytes that are not trusted, so every program is hardened
# (tests/unit/build/hardening_test.cpp). These options follow the packager's CXXFLAGS, so they win.
kelm_compile_option(-fPIE)
kelm_compile_option(-fstack-protector-strong)
kelm_compile_option(-fstack-clash-protection)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 16)
  kelm_compile_option(-ftrivial-auto-var-init=zero
    -enable-trivial-auto-var-init-zero-knowing-it-will-be-removed-from-clang)
else()
  kelm_compile_option(-ftrivial-auto-var-init=zero)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  kelm_compile_option(-Wno-unused-command-line-argument)
endif()
# Only compilers for x86 have this one.
kelm_compile_option(-fcf-protection=full)
target_compile_definitions(kelm_settings INTERFACE _GLIBCXX_ASSERTIONS)
kelm_link_option(-pie)
kelm_link_option(-Wl,-z,relro,-z,now,-z,noexecstack,--as-needed)

if(KELM_SANITIZE)
  # With sanitizers, g++ wrongly warns of uninitialised variables in its own library.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(kelm_settings INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_options(kelm_settings INTERFACE
    -fsanitize=${KELM_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelm_settings INTERFACE -fsanitize=${KELM_SANITIZE})
elseif(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  # Undefined first, because a packager's CPPFLAGS may define another level.
  target_compile_options(kelm_settings INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
endif()
if(KELM_FUZZ)
  # The profile is for the line coverage (scripts/fuzz).
  target_compile_options(kelm_settings INTERFACE
    -fsanitize=fuzzer-no-link -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(kelm_settings INTERFACE -fprofile-instr-generate)
endif()
if(KELM_COVERAGE)
  target_compile_options(kelm_settings INTERFACE --coverage)
  target_link_options(kelm_settings INTERFACE --coverage)
endif()

# The tests' own code is not optimised and has no debug information, so that it compiles quickly. The tested code
# has both. Debug information is for the debugger and for the reports of the sanitizers.
add_library(kelm_test_settings INTERFACE)
target_compile_options(kelm_test_settings INTERFACE "SHELL:-O0 -U_FORTIFY_SOURCE")
if(CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo" AND NOT KELM_SANITIZE)
  target_compile_options(kelm_test_settings INTERFACE -g0)
endif()
# Files that use Avahi need this macro. All tests define it, so that they can share a precompiled header.
target_compile_definitions(kelm_test_settings INTERFACE _REENTRANT)
