# SPDX-License-Identifier: MIT
# Builds for the processor that NYMBREL_PROCESSOR names (as in aarch64) with Debian's cross compiler, and runs what it
# builds under qemu-user.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES NYMBREL_PROCESSOR)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR "${NYMBREL_PROCESSOR}")

set(libraries "/usr/${NYMBREL_PROCESSOR}-linux-gnu")
set(CMAKE_C_COMPILER "${NYMBREL_PROCESSOR}-linux-gnu-gcc")
set(CMAKE_CXX_COMPILER "${NYMBREL_PROCESSOR}-linux-gnu-g++")
set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-${NYMBREL_PROCESSOR};-L;${libraries}")

set(CMAKE_FIND_ROOT_PATH "${libraries}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
