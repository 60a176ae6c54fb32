# The desktop program, tarnwick, with its tests and benchmarks. Included only when src/display has sources.
set(TARNWICK_QT_PARTS Widgets PrintSupport Multimedia Svg)
if(TARNWICK_DESKTOP STREQUAL "AUTO")
    find_package(Qt6 6.4 QUIET COMPONENTS ${TARNWICK_QT_PARTS})
else()
    find_package(Qt6 6.4 REQUIRED COMPONENTS ${TARNWICK_QT_PARTS})
endif()
find_path(QSCINTILLA_INCLUDE_DIR Qsci/qsciscintilla.h PATH_SUFFIXES x86_64-linux-gnu/qt6 aarch64-linux-gnu/qt6 qt6)
find_library(QSCINTILLA_LIBRARY qscintilla2_qt6)
mark_as_advanced(QSCINTILLA_INCLUDE_DIR QSCINTILLA_LIBRARY)
if(NOT QSCINTILLA_LIBRARY AND NOT TARNWICK_DESKTOP STREQUAL "AUTO")
    message(FATAL_ERROR "QScintilla for Qt 6 is missing: libqscintilla2-qt6-dev")
endif()
if(NOT Qt6_FOUND OR NOT QSCINTILLA_LIBRARY)
    return()
endif()

list(TRANSFORM TARNWICK_QT_PARTS PREPEND Qt6:: OUTPUT_VARIABLE qt_targets)

# All but the start, so that tests can link it.
list(FILTER display_sources EXCLUDE REGEX "/main\\.cpp$")
file(GLOB_RECURSE display_headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/display/*.h")
qt_add_library(tarnwick_display STATIC ${display_sources} ${display_headers})
set_target_properties(tarnwick_display PROPERTIES AUTOMOC ON)
target_compile_definitions(tarnwick_display PRIVATE QT_NO_CAST_FROM_BYTEARRAY TARNWICK_VERSION="${PROJECT_VERSION}")
target_link_libraries(tarnwick_display PUBLIC tarnwick_core ${qt_targets} ${QSCINTILLA_LIBRARY})
if(QSCINTILLA_INCLUDE_DIR)
    target_include_directories(tarnwick_display SYSTEM PUBLIC "${QSCINTILLA_INCLUDE_DIR}")
endif()
tarnwick_warnings(tarnwick_display)

# Pictures, sounds and texts that the program carries inside itself, under their paths in assets/.
file(GLOB_RECURSE carried CONFIGURE_DEPENDS
     "${PROJECT_SOURCE_DIR}/assets/*.json" "${PROJECT_SOURCE_DIR}/assets/*.svg" "${PROJECT_SOURCE_DIR}/assets/sounds/*")
if(carried)
    qt_add_resources(tarnwick_display assets PREFIX / BASE "${PROJECT_SOURCE_DIR}/assets" FILES ${carried})
endif()

qt_add_executable(tarnwick src/display/main.cpp)
target_link_libraries(tarnwick PRIVATE tarnwick_display)
target_compile_definitions(tarnwick PRIVATE TARNWICK_VERSION="${PROJECT_VERSION}")
tarnwick_warnings(tarnwick)
install(TARGETS tarnwick)

file(GLOB_RECURSE window_tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/window/*.cpp")
if(window_tests AND TARNWICK_HAS_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
    qt_add_executable(tarnwick_window_tests ${window_tests})
    set_target_properties(tarnwick_window_tests PROPERTIES AUTOMOC ON)
    target_include_directories(tarnwick_window_tests PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(tarnwick_window_tests PRIVATE tarnwick_display Qt6::Test GTest::gmock Threads::Threads)
    tarnwick_warnings(tarnwick_window_tests)
    set_source_files_properties(tests/window/main.cpp PROPERTIES COMPILE_DEFINITIONS
        "SOURCE_FOLDER=\"${PROJECT_SOURCE_DIR}\"")
    gtest_discover_tests(tarnwick_window_tests DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_PREFIX "Window."
        PROPERTIES TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;QTEST_FUNCTION_TIMEOUT=20000")
endif()

file(GLOB window_benches CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bench/window/*.cpp")
if(window_benches AND TARNWICK_HAS_BENCH)
    add_executable(tarnwick_window_bench ${window_benches})
    target_link_libraries(tarnwick_window_bench PRIVATE tarnwick_display benchmark::benchmark)
    tarnwick_warnings(tarnwick_window_bench)
endif()
