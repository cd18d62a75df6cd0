# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` puts down for those who build against the library: headers, the CMake
# package and the pkg-config module.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/tamo)
set(generated_dir ${PROJECT_BINARY_DIR}/package)

install(TARGETS tamo EXPORT tamoTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tamo ${PROJECT_SOURCE_DIR}/include/tamomock
    ${TAMO_GENERATED_INCLUDE_DIR}/tamo
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT tamoTargets NAMESPACE tamo:: DESTINATION ${package_dir})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/tamoConfig.cmake.in
    ${generated_dir}/tamoConfig.cmake INSTALL_DESTINATION ${package_dir}
    NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${generated_dir}/tamoConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${generated_dir}/tamoConfig.cmake ${generated_dir}/tamoConfigVersion.cmake
    DESTINATION ${package_dir})
if(TAMO_PLATFORM STREQUAL "system")
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/TamoSystemPlatform.cmake DESTINATION ${package_dir})
endif()

# The prefix is told relative to the file, so that an installation can be moved.
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH TAMO_PREFIX_FROM_PKGCONFIG /${pkgconfig_dir} /)
# A platform of the machine's may have a prefix of its own; its headers are in tamomock's.
set(TAMO_PLATFORM_CFLAGS "")
if(TAMO_PLATFORM STREQUAL "system")
    foreach(library IN ITEMS pps screen zel)
        get_target_property(directory tamo::${library} INTERFACE_INCLUDE_DIRECTORIES)
        if(NOT directory IN_LIST CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
            string(APPEND TAMO_PLATFORM_CFLAGS " -I${directory}")
        endif()
    endforeach()
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/tamo.pc.in ${generated_dir}/tamo.pc @ONLY)
install(FILES ${generated_dir}/tamo.pc DESTINATION ${pkgconfig_dir})
