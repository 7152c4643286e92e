# How every target of this project is compiled and linked: language, hardening, sanitizers.
# SPDX-License-Identifier: Apache-2.0
include(CheckCXXCompilerFlag)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g")
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g")

set(KELM_SANITIZE "" CACHE STRING "sanitizers, as -fsanitize= takes them")
option(KELM_COVERAGE "measure coverage with gcov" OFF)
option(KELM_FUZZ "build the fuzz targets with libFuzzer" OFF)

# Without these, ccache leaves out every file that uses a precompiled header.
if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache$")
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros ${CMAKE_CXX_COMPILER_LAUNCHER})
endif()

add_library(kelm_settings INTERFACE)
target_include_directories(kelm_settings INTERFACE ${PROJECT_SOURCE_DIR})

# The filter reads bytes that are not trusted: every binary is hardened
# (tests/unit/build/hardening_test.cpp). These options follow the packager's CXXFLAGS and win.
target_compile_options(kelm_settings INTERFACE
  -fPIE -fstack-protector-strong -fstack-clash-protection -ftrivial-auto-var-init=zero)
target_compile_definitions(kelm_settings INTERFACE _GLIBCXX_ASSERTIONS)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(kelm_settings INTERFACE
    -enable-trivial-auto-var-init-zero-knowing-it-will-be-removed-from-clang
    -Wno-unused-command-line-argument)
endif()
# Control-flow protection exists for x86 only; the compiler refuses it for other processors.
check_cxx_compiler_flag(-fcf-protection=full KELM_HAS_CF_PROTECTION)
if(KELM_HAS_CF_PROTECTION)
  target_compile_options(kelm_settings INTERFACE -fcf-protection=full)
endif()
target_link_options(kelm_settings INTERFACE -pie -Wl,-z,relro,-z,now,-z,noexecstack,--as-needed)

if(KELM_SANITIZE)
  # The sanitizers' own code makes g++ warn of variables in its library that are initialised.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(kelm_settings INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_options(kelm_settings INTERFACE
    -fsanitize=${KELM_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelm_settings INTERFACE -fsanitize=${KELM_SANITIZE})
elseif(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  # First without: a packager's CPPFLAGS may define another level.
  target_compile_options(kelm_settings INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
endif()
if(KELM_FUZZ)
  # The profile gives the coverage by line (scripts/fuzz).
  target_compile_options(kelm_settings INTERFACE
    -fsanitize=fuzzer-no-link -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(kelm_settings INTERFACE -fprofile-instr-generate)
endif()
if(KELM_COVERAGE)
  target_compile_options(kelm_settings INTERFACE --coverage)
  target_link_options(kelm_settings INTERFACE --coverage)
endif()

# The tests' own code compiles quickly; the code that is tested is optimised.
add_library(kelm_test_settings INTERFACE)
target_compile_options(kelm_test_settings INTERFACE "SHELL:-O0 -g1 -U_FORTIFY_SOURCE")
# Avahi's users have this macro: with it everywhere, one precompiled header fits all tests.
target_compile_definitions(kelm_test_settings INTERFACE _REENTRANT)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kelm_test_settings INTERFACE -fpch-preprocess)  # ccache needs it
endif()
