# What every target of the project has in common, in one place.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Programs and the files they look for beside themselves (key file, catalogues)
# lie in the build tree as they do once installed: bin/ and share/.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

find_program(KELMAR_CCACHE ccache)
if(KELMAR_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${KELMAR_CCACHE}")
endif()

add_library(kelmar_options INTERFACE)
target_compile_options(kelmar_options INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion
    -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual)
target_include_directories(kelmar_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
# A program loads only the libraries that it calls: not every one that a layer below can need.
target_link_options(kelmar_options INTERFACE -Wl,--as-needed)
if(KELMAR_SANITIZE)
    target_compile_options(kelmar_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kelmar_options INTERFACE -fsanitize=address,undefined)
endif()

# kelmar_library(NAME [SMALL] SOURCES ... [PUBLIC ...] [PRIVATE ...]): one library a layer. SMALL is for
# code that runs seldom in a program that stays: optimised for its size, since next to all of it is
# kept in memory, while what it takes longer at each event nobody sees.
function(kelmar_library name)
    cmake_parse_arguments(arg "SMALL" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC kelmar_options ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    # So that a program need not take all of a source of which it calls one function.
    target_compile_options(${name} PRIVATE -ffunction-sections -fdata-sections)
    if(arg_SMALL)
        target_compile_options(${name} PRIVATE $<$<CONFIG:RelWithDebInfo>:-Os>)
    endif()
endfunction()

# kelmar_program(NAME SOURCES ... [LIBRARIES ...] [FOLDER ...] [COMPONENT ...]): a thin main over the
# layers, installed with the widgets among the programs unless a folder or component is named.
function(kelmar_program name)
    cmake_parse_arguments(arg "" "FOLDER;COMPONENT" "SOURCES;LIBRARIES" ${ARGN})
    if(NOT arg_FOLDER)
        set(arg_FOLDER ${CMAKE_INSTALL_BINDIR})
    endif()
    if(NOT arg_COMPONENT)
        set(arg_COMPONENT widgets)
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE kelmar_options ${arg_LIBRARIES})
    target_link_options(${name} PRIVATE -Wl,--gc-sections -Wl,-z,pack-relative-relocs)
    install(TARGETS ${name} RUNTIME DESTINATION ${arg_FOLDER} COMPONENT ${arg_COMPONENT})
endfunction()

# kelmar_test(NAME SOURCES ... [LIBRARIES ...] [LABELS ...]): a GoogleTest program, its cases known to ctest.
function(kelmar_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE kelmar_options ${arg_LIBRARIES}
        GTest::gtest GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES LABELS "${arg_LABELS}")
endfunction()
