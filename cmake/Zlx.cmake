# Helpers shared by every folder: one static library per subsystem, one test program per
# subsystem, all with the same warnings and sanitizer settings.

# zlx_add_library(<name> SOURCES ... [DEPS ...])
# Creates the static library zlx_<name>; every subsystem library is linked whole into the
# shared library `zolmar`.
function(zlx_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_library(zlx_${name} STATIC ${ARG_SOURCES})
    target_include_directories(zlx_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(zlx_${name} PUBLIC ${ARG_DEPS})
    set_property(GLOBAL APPEND PROPERTY ZLX_LIBRARIES zlx_${name})
endfunction()

# zlx_add_test(<name> SOURCES ... [DEPS ...] [LABELS ...])
# One GoogleTest program per subsystem, registered with CTest as one test.
function(zlx_add_test name)
    if(NOT ZLX_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS;LABELS" ${ARGN})
    add_executable(test_${name} ${ARG_SOURCES})
    target_link_libraries(test_${name} PRIVATE ${ARG_DEPS} zlx_test_support GTest::gtest GTest::gtest_main)
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    add_test(NAME ${name} COMMAND test_${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ZLX_TEST_TMP=${CMAKE_BINARY_DIR}/test-tmp"
        LABELS "${ARG_LABELS}"
        TIMEOUT 900)
endfunction()

# zlx_add_fuzzer(<name> SOURCES ... DEPS ... [SEEDS <folder>]): a libFuzzer target built with
# ZLX_FUZZ=ON (clang); otherwise, with tests on and a seed folder, the same entry point runs
# a short repeatable mutation run over the seeds as a test (tests/ShortFuzz.cpp).
function(zlx_add_fuzzer name)
    cmake_parse_arguments(ARG "" "SEEDS" "SOURCES;DEPS" ${ARGN})
    if(ZLX_FUZZ)
        add_executable(fuzz_${name} ${ARG_SOURCES})
        target_link_libraries(fuzz_${name} PRIVATE ${ARG_DEPS})
        target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
        target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    elseif(ZLX_BUILD_TESTS AND ARG_SEEDS)
        add_executable(shortfuzz_${name} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/tests/ShortFuzz.cpp)
        target_link_libraries(shortfuzz_${name} PRIVATE ${ARG_DEPS} Qt6::Core)
        add_test(NAME shortfuzz_${name}
                 COMMAND shortfuzz_${name} ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_SEEDS})
        set_tests_properties(shortfuzz_${name} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 900)
    endif()
endfunction()
