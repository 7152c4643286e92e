# zig does not know the language of CMake's option "-x c++-header"; CMake's file is C++ by its name.
# SPDX-License-Identifier: Apache-2.0
list(REMOVE_ITEM CMAKE_CXX_COMPILE_OPTIONS_CREATE_PCH -x c++-header)
