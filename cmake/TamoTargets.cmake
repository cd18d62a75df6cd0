# SPDX-License-Identifier: Apache-2.0
# What every target of this repository has in common, and one function per kind of target.

# Warnings, sanitizers and the language level: options of targets, never global flags.
add_library(tamo_build_options INTERFACE)
target_compile_features(tamo_build_options INTERFACE cxx_std_17 c_std_11)
target_compile_options(tamo_build_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${TAMO_WERROR}>:-Werror>)
if(TAMO_SANITIZE)
    target_compile_options(tamo_build_options INTERFACE
        -fsanitize=${TAMO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(tamo_build_options INTERFACE -fsanitize=${TAMO_SANITIZE})
endif()

# The path from where a program is installed to the libraries, for its run path.
function(_tamo_set_rpath target installed_in)
    file(RELATIVE_PATH to_lib /${installed_in} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${to_lib}")
endfunction()

# A static library of the repository's own, never installed.
function(tamo_add_internal_library target)
    add_library(${target} STATIC ${ARGN})
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${target} PRIVATE tamo_build_options)
endfunction()

# A shared library with a stable name: lib<name>.so.0, symbols hidden unless exported.
function(tamo_add_shared_library target)
    add_library(${target} SHARED ${ARGN})
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION 0
        CXX_VISIBILITY_PRESET hidden C_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${target} PRIVATE tamo_build_options)
    target_link_options(${target} PRIVATE -Wl,--as-needed)
    if(NOT TAMO_SANITIZE)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    _tamo_set_rpath(${target} ${CMAKE_INSTALL_LIBDIR})
endfunction()

# A C library of the platform: lib<name>.so.0, what its lib<name>.map names, the headers in
# host/include/<name>, and a pkg-config module.
#   tamo_add_platform_library(name DESCRIPTION text SOURCES ...)
function(tamo_add_platform_library target)
    cmake_parse_arguments(arg "" "DESCRIPTION" "SOURCES" ${ARGN})
    tamo_add_shared_library(${target} ${arg_SOURCES})
    add_library(tamo::${target} ALIAS ${target})
    target_include_directories(${target}
        PUBLIC
            $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/host/include>
            $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/host)
    set(symbols ${CMAKE_CURRENT_SOURCE_DIR}/lib${target}.map)
    target_link_options(${target} PRIVATE -Wl,--version-script=${symbols})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${symbols})

    install(TARGETS ${target} EXPORT tamoTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/host/include/${target}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH prefix_from_pkgconfig /${pkgconfig_dir} /)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/platform-library.pc.in ${target}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc DESTINATION ${pkgconfig_dir})
endfunction()

# A program that users call; installed into bin.
function(tamo_add_program target)
    add_executable(${target} ${ARGN})
    target_link_libraries(${target} PRIVATE tamo_build_options)
    _tamo_set_rpath(${target} ${CMAKE_INSTALL_BINDIR})
    set_property(GLOBAL APPEND PROPERTY TAMO_PROGRAMS ${target})
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# A program that only our programs call; installed into libexec/tamo.
function(tamo_add_helper_program target)
    add_executable(${target} ${ARGN})
    target_link_libraries(${target} PRIVATE tamo_build_options)
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${TAMO_LIBEXEC_OUTPUT_DIRECTORY})
    _tamo_set_rpath(${target} ${CMAKE_INSTALL_LIBEXECDIR}/tamo)
    set_property(GLOBAL APPEND PROPERTY TAMO_PROGRAMS ${target})
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/tamo)
endfunction()

# A GoogleTest program, registered with CTest as one test under its own name.
#   tamo_add_test(name SOURCES ... LIBRARIES ... [LABELS ...] [TIMEOUT seconds] [ENVIRONMENT ...])
function(tamo_add_test target)
    cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBRARIES;LABELS;ENVIRONMENT" ${ARGN})
    find_package(GTest REQUIRED)
    add_executable(${target} ${arg_SOURCES})
    set_target_properties(${target} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    target_link_libraries(${target} PRIVATE tamo_build_options ${arg_LIBRARIES} GTest::gmock)
    # A test is compiled as often as it is run, and takes half the time so.
    target_compile_options(${target} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O1;-g1>)
    add_test(NAME ${target} COMMAND ${target})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    # 77 is how a test program says that it could not run here; CI counts it as a failure.
    set_tests_properties(${target} PROPERTIES
        TIMEOUT ${arg_TIMEOUT} SKIP_RETURN_CODE 77
        LABELS "${arg_LABELS}" ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
