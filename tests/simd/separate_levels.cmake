# SPDX-License-Identifier: MIT
# Fails unless each object compiled for a newer processor defines its table of functions and nothing else that
# another unit could be linked to.
#
#   cmake -D NM=<nm> -D OBJECTS=<file>;... -P separate_levels.cmake
set(checked 0)
foreach(object IN LISTS OBJECTS)
    if(NOT object MATCHES "_(avx[0-9]+)\\.cpp")
        continue()
    endif()
    execute_process(COMMAND ${NM} --demangle --defined-only --extern-only --format=just-symbols ${object}
                    OUTPUT_VARIABLE symbols OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT symbols MATCHES "^ks_[a-z]+::[a-z]+_${CMAKE_MATCH_1}$")
        message(SEND_ERROR "${object} defines: ${symbols}")
    endif()
    math(EXPR checked "${checked} + 1")
endforeach()
if(NOT checked EQUAL 4)
    message(SEND_ERROR "expected the objects of two levels of two engines, found ${checked}")
endif()
