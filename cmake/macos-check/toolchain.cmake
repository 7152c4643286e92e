# Compiling for macOS on another system with zig, for scripts/macos-check. The script sets KELM_MACOS_TOOLS, a
# directory with zig's tools under their usual names, headers and stub libraries.
# SPDX-License-Identifier: Apache-2.0
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KELM_MACOS_TOOLS)
set(CMAKE_C_COMPILER ${KELM_MACOS_TOOLS}/cc)
set(CMAKE_CXX_COMPILER ${KELM_MACOS_TOOLS}/c++)
set(CMAKE_AR ${KELM_MACOS_TOOLS}/ar)
set(CMAKE_RANLIB ${KELM_MACOS_TOOLS}/ranlib)
# Nothing is installed, so this tool is never run.
set(CMAKE_INSTALL_NAME_TOOL /bin/true)
set(CMAKE_FIND_ROOT_PATH ${KELM_MACOS_TOOLS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_USER_MAKE_RULES_OVERRIDE_CXX ${CMAKE_CURRENT_LIST_DIR}/precompiled_header.cmake)
