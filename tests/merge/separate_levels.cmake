# SPDX-License-Identifier: MIT
# Fails unless each object compiled for a newer processor defines its table of kernels and nothing else that
# another unit could be linked to.
#
#   cmake -D NM=<nm> -D OBJECTS=<file>;... -P separate_levels.cmake
set(checked 0)
foreach(object IN LISTS OBJECTS)
    if(NOT object MATCHES "kernels_(avx[0-9]+)")
        continue()
    endif()
    execute_process(COMMAND ${NM} --demangle --defined-only --extern-only --format=just-symbols ${object}
                    OUTPUT_VARIABLE symbols OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT symbols STREQUAL "ks_merge::kernels_${CMAKE_MATCH_1}")
        message(SEND_ERROR "${object} defines: ${symbols}")
    endif()
    math(EXPR checked "${checked} + 1")
endforeach()
if(NOT checked EQUAL 2)
    message(SEND_ERROR "expected the objects of two levels, found ${checked}")
endif()
