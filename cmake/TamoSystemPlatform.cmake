# SPDX-License-Identifier: Apache-2.0
# The platform's C libraries as the machine has them (TAMO_PLATFORM=system): one imported target
# tamo::<name> for each, found by pkg-config where it knows the library, by its header and file
# otherwise.
find_package(PkgConfig QUIET)

function(_tamo_find_platform_library name header)
    if(TARGET tamo::${name})
        return()
    endif()
    if(PKG_CONFIG_FOUND)
        pkg_check_modules(TAMO_${name}_PKG QUIET ${name})
    endif()
    find_path(TAMO_${name}_INCLUDE_DIR ${header} HINTS ${TAMO_${name}_PKG_INCLUDE_DIRS})
    find_library(TAMO_${name}_LIBRARY ${name} HINTS ${TAMO_${name}_PKG_LIBRARY_DIRS})
    if(NOT TAMO_${name}_INCLUDE_DIR OR NOT TAMO_${name}_LIBRARY)
        message(FATAL_ERROR "The platform's library lib${name}, with its header <${header}>, is not "
            "on this machine. Name its prefix in CMAKE_PREFIX_PATH, or build libtamo with "
            "-DTAMO_PLATFORM=host, which brings the platform along.")
    endif()
    add_library(tamo::${name} SHARED IMPORTED GLOBAL)
    set_target_properties(tamo::${name} PROPERTIES
        IMPORTED_LOCATION ${TAMO_${name}_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${TAMO_${name}_INCLUDE_DIR})
endfunction()

_tamo_find_platform_library(pps pps/encoder.h)
_tamo_find_platform_library(screen screen/screen.h)
_tamo_find_platform_library(zel zel/zel.h)
