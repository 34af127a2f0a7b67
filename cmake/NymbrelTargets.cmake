# SPDX-License-Identifier: MIT
# One target per folder: the compile flags that all share, and the helper that makes such a target.

add_library(nymbrel_flags INTERFACE)
target_compile_features(nymbrel_flags INTERFACE cxx_std_20)
target_compile_options(nymbrel_flags INTERFACE
    -Wall -Wextra -Wshadow -Wnon-virtual-dtor
    # GCC 12 takes its own std::string for a fault at -O3.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
    # Fused multiply-adds would change the last bit of transformed coordinates.
    -ffp-contract=off)
if(NYMBREL_SANITIZE)
    target_compile_options(nymbrel_flags INTERFACE
        -fsanitize=${NYMBREL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(nymbrel_flags INTERFACE -fsanitize=${NYMBREL_SANITIZE})
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Whether there are levels to choose from. The code asks the compiler the same.
include(CheckCXXSourceCompiles)
check_cxx_source_compiles("
#if !defined(__x86_64__)
#error
#endif
int main() {}" NYMBREL_X86_64)

# GCC makes the constants of vectors anew in each iteration of a loop, by way of a general register. With this
# option it loads them.
set(NYMBREL_LOADED_CONSTANTS -mtune-ctrl=^inter_unit_moves_to_vec)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    include(CheckCXXCompilerFlag)
    check_cxx_compiler_flag(${NYMBREL_LOADED_CONSTANTS} NYMBREL_LOADS_CONSTANTS)
endif()

# nymbrel_folder(<name> SOURCES <file>... [USES <target>...])
#
# Makes <name>, the code of one folder as an object library, which sees the root of the tree for its
# includes and only those folders that USES names.
function(nymbrel_folder name)
    cmake_parse_arguments(PARSE_ARGV 1 folder "" "" "SOURCES;USES")
    add_library(${name} OBJECT ${folder_SOURCES})
    target_include_directories(${name} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>")
    target_link_libraries(${name} PUBLIC ${folder_USES} PRIVATE $<BUILD_INTERFACE:nymbrel_flags>)
endfunction()

# nymbrel_data(<path in the source tree> <place among the installed data>)
#
# Installs a folder, and links it where a program in the build finds it as an installed one does.
function(nymbrel_data source place)
    set(data "${CMAKE_INSTALL_DATADIR}/nymbrel-config")
    cmake_path(GET place PARENT_PATH above)
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/${data}/${above}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${source}" "${PROJECT_BINARY_DIR}/${data}/${place}" SYMBOLIC)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/${source}" DESTINATION "${data}/${above}")
endfunction()

# nymbrel_level(<AVX2|AVX512> <file>...)
#
# Compiles files of the calling folder for a newer processor than the rest. The linker must not take what they
# define for anything that is compiled for every processor, so no inline function of a shared header may be
# left uninlined in them. The options are what simd/level.h asks the processor for.
function(nymbrel_level level)
    set(options_AVX2 -mavx2 -mfma -mbmi -mbmi2 $<$<BOOL:${NYMBREL_LOADS_CONSTANTS}>:${NYMBREL_LOADED_CONSTANTS}>)
    set(options_AVX512 ${options_AVX2} -mavx512f -mavx512bw -mavx512dq -mavx512vl)
    set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_OPTIONS ${options_${level}})
endfunction()
