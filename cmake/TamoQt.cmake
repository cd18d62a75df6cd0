# SPDX-License-Identifier: Apache-2.0
# One switch between Qt 6 and Qt 5; everything else names the targets Qt::Core, Qt::Test, ...
if(TAMO_QT_MAJOR EQUAL 6)
    set(TAMO_QT_VERSION 6.4)
elseif(TAMO_QT_MAJOR EQUAL 5)
    set(TAMO_QT_VERSION 5.15)
else()
    message(FATAL_ERROR "TAMO_QT_MAJOR is '${TAMO_QT_MAJOR}'; it can be 6 or 5")
endif()
set(QT_DEFAULT_MAJOR_VERSION ${TAMO_QT_MAJOR})
# Of Qt Qml the library needs a header, and only its tests the library.
find_package(Qt${TAMO_QT_MAJOR} ${TAMO_QT_VERSION} REQUIRED COMPONENTS Core Qml)
if(TAMO_BUILD_TESTS OR TAMO_BUILD_BENCH)
    find_package(Qt${TAMO_QT_MAJOR} ${TAMO_QT_VERSION} REQUIRED COMPONENTS Test)
endif()
