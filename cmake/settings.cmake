# How every target of this project is compiled and linked: language, hardening, sanitizers.
# SPDX-License-Identifier: Apache-2.0
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

add_library(kelm_settings INTERFACE)
target_include_directories(kelm_settings INTERFACE ${PROJECT_SOURCE_DIR})

# The filter runs on bytes that strangers send: every binary is hardened. The options are recorded
# in the objects (.GCC.command.line), where tests/unit/build/hardening_test.cpp looks for them.
target_compile_options(kelm_settings INTERFACE
  -fPIE -fstack-protector-strong -fstack-clash-protection -ftrivial-auto-var-init=zero
  -frecord-gcc-switches)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(kelm_settings INTERFACE
    -enable-trivial-auto-var-init-zero-knowing-it-will-be-removed-from-clang
    -Wno-unused-command-line-argument)
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
  target_compile_definitions(kelm_settings INTERFACE _FORTIFY_SOURCE=3)
endif()
if(KELM_FUZZ)
  target_compile_options(kelm_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(KELM_COVERAGE)
  target_compile_options(kelm_settings INTERFACE --coverage)
  target_link_options(kelm_settings INTERFACE --coverage)
endif()
