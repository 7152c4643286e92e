# The warnings for every target of this project. The presets make them errors.
# SPDX-License-Identifier: Apache-2.0
add_library(kelm_warnings INTERFACE)
target_compile_options(kelm_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
  -Wold-style-cast -Wcast-align -Woverloaded-virtual -Wformat=2)
