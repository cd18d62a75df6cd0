# SPDX-License-Identifier: Apache-2.0
# Has ThreadSanitizer told what Qt puts in order in a program, where the build is one for it.
function(tamo_tell_qt_order target)
    if(TAMO_SANITIZE STREQUAL "thread")
        target_link_libraries(${target} PRIVATE tamo_test_tsan)
    endif()
endfunction()

# A GoogleTest program around a QCoreApplication, with Qt Test. It is registered twice: the event
# dispatcher that Qt takes on its own (GLib's, where Qt was built with it), and Qt's own one. The two
# differ in when a socket notifier fires again.
#   tamo_add_qt_test(name [MAIN file] ...as tamo_add_test)
function(tamo_add_qt_test target)
    cmake_parse_arguments(arg "" "MAIN;TIMEOUT" "SOURCES;LIBRARIES;LABELS;ENVIRONMENT" ${ARGN})
    if(NOT arg_MAIN)
        set(arg_MAIN ${PROJECT_SOURCE_DIR}/tests/unit/main.cpp)
    endif()
    tamo_add_test(${target}
        SOURCES ${arg_MAIN} ${arg_SOURCES}
        LIBRARIES ${arg_LIBRARIES} Qt${TAMO_QT_MAJOR}::Test
        LABELS ${arg_LABELS}
        ENVIRONMENT ${arg_ENVIRONMENT}
        TIMEOUT ${arg_TIMEOUT})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    tamo_tell_qt_order(${target})

    set(twin ${target}-without-glib)
    add_test(NAME ${twin} COMMAND ${target})
    get_test_property(${target} TIMEOUT timeout)
    set_tests_properties(${twin} PROPERTIES
        TIMEOUT ${timeout} SKIP_RETURN_CODE 77
        LABELS "${arg_LABELS}" ENVIRONMENT "QT_NO_GLIB=1;${arg_ENVIRONMENT}")
endfunction()
