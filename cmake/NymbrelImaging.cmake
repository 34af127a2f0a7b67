# SPDX-License-Identifier: MIT
# The imaging library as others use it: shared and static, with headers, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(imaging_folders merge bitmaptools exchange raster)
set(imaging_headers
    bitmaptools/KSBitmapTools.h
    bitmaptools/ks_premultiply.h
    bitmaptools/ks_resample.h
    exchange/BBitmap.h
    exchange/BRect.h
    exchange/KSMessage.h
    hdr/KSList.h
    hdr/KSPixels.h
    hdr/KSPoint.h
    hdr/KSRect.h
    hdr/ks_assert.h
    hdr/ks_color.h
    hdr/ks_export.h
    hdr/ks_math.h
    hdr/ks_version.h
    kits/BBitmap.h
    kits/BRect.h
    merge/KSMerge.h
    merge/ks_compose.h
    raster/KSRaster.h
    raster/ks_coverage.h
    toolkit/KSMessage.h)

# imaging_library(<target> <exported name> <type>)
function(imaging_library target name type)
    list(TRANSFORM imaging_folders REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
    add_library(${target} ${type} ${objects})
    add_library(ks::${name} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME ksimaging EXPORT_NAME ${name} LINKER_LANGUAGE CXX
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:nymbrel_flags>)
    list(TRANSFORM imaging_headers PREPEND "${PROJECT_SOURCE_DIR}/" OUTPUT_VARIABLE headers)
    target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${headers})
    install(TARGETS ${target} EXPORT ksimaging COMPONENT imaging
        FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/ksimaging")
endfunction()

imaging_library(ks_imaging imaging SHARED)
imaging_library(ks_imaging_static imaging_static STATIC)

# What an image that exports the library is linked with: exactly the symbols of this list are visible. Programs linked
# against 1.0 know some operations under the names that they had before they were const.
set(imaging_symbols "${PROJECT_SOURCE_DIR}/cmake/ksimaging.symbols")
set(imaging_exports "LINKER:--version-script,${imaging_symbols}"
    "LINKER:--defsym,_ZN8KSRaster8CopyFromEPS_=_ZN8KSRaster8CopyFromEPKS_")
foreach(name 12CreateScaledE6KSRectIlEb16ks_raster_native 12CreateScaledE7KSPointIdES1_S1_S1_bdS1_
        15DuplicateRasterE16ks_raster_native 7ArchiveEP9KSMessage)
    list(APPEND imaging_exports "LINKER:--defsym,_ZN8KSRaster${name}=_ZNK8KSRaster${name}")
endforeach()
target_link_options(ks_imaging PRIVATE ${imaging_exports} "LINKER:--no-undefined-version")
set_property(TARGET ks_imaging APPEND PROPERTY LINK_DEPENDS "${imaging_symbols}")

set(imaging_package "${CMAKE_INSTALL_LIBDIR}/cmake/ksimaging")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ksimagingConfigVersion.cmake"
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
file(RELATIVE_PATH imaging_prefix_from_pc "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/ksimaging.pc.in" "${PROJECT_BINARY_DIR}/ksimaging.pc" @ONLY)
install(EXPORT ksimaging NAMESPACE ks:: FILE ksimagingConfig.cmake DESTINATION "${imaging_package}" COMPONENT imaging)
install(FILES "${PROJECT_BINARY_DIR}/ksimagingConfigVersion.cmake" DESTINATION "${imaging_package}" COMPONENT imaging)
install(FILES "${PROJECT_BINARY_DIR}/ksimaging.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT imaging)

# The reference of the public headers: the target makes it, and fails where a declaration has no comment.
find_program(DOXYGEN_PROGRAM NAMES doxygen)
if(DOXYGEN_PROGRAM)
    list(JOIN imaging_headers " " headers)
    set(imaging_reference "${CMAKE_COMMAND}" -E env
        "BUILD=${PROJECT_BINARY_DIR}" "HEADERS=${headers}" "VERSION=${PROJECT_VERSION}" "${DOXYGEN_PROGRAM}" docs/Doxyfile)
    add_custom_target(reference VERBATIM COMMAND ${imaging_reference} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
endif()
