# SPDX-License-Identifier: MIT
# What a user of the installed library does, with each compiler that is there.
set(prefix "${PROJECT_BINARY_DIR}/consumer/prefix")

add_test(NAME ImagingLibrary.ExportsTheListedSymbols
    COMMAND "${CMAKE_CURRENT_LIST_DIR}/exported_symbols.sh" "${CMAKE_NM}" $<TARGET_FILE:ks_imaging> "${imaging_symbols}")
add_test(NAME ImagingLibrary.Installs
    COMMAND "${CMAKE_COMMAND}" --install "${PROJECT_BINARY_DIR}" --component imaging --prefix "${prefix}")
set_tests_properties(ImagingLibrary.Installs PROPERTIES FIXTURES_SETUP installed_imaging)

# A sanitizer's runtime would have to be linked into the consumer too.
if(NOT NYMBREL_SANITIZE AND NOT CMAKE_CROSSCOMPILING)
    find_program(CLANG_COMPILER NAMES clang++-19 clang++)
    find_program(GCC_COMPILER NAMES g++)
    foreach(compiler CLANG GCC)
        if(${compiler}_COMPILER)
            foreach(way cmake pkgconfig)
                set(test ImagingLibrary.LinksBy_${way}_${compiler})
                add_test(NAME ${test}
                    COMMAND "${CMAKE_CURRENT_LIST_DIR}/by_${way}.sh" "${prefix}" "${${compiler}_COMPILER}"
                            "${PROJECT_BINARY_DIR}/consumer/${way}_${compiler}")
                set_tests_properties(${test} PROPERTIES FIXTURES_REQUIRED installed_imaging)
            endforeach()
        endif()
    endforeach()
endif()
