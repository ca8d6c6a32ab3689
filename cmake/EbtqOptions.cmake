# What every target of the project is compiled with, in one INTERFACE target, and where things are put.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(EBTQ_CCACHE ccache)
if(EBTQ_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${EBTQ_CCACHE})
endif()
find_program(EBTQ_MOLD mold)
if(EBTQ_MOLD)
    add_link_options(-fuse-ld=mold)
endif()

add_library(ebtq_options INTERFACE)
target_include_directories(ebtq_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(ebtq_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
    -Wconversion -Wno-sign-conversion $<$<BOOL:${EBTQ_WERROR}>:-Werror>)
target_compile_definitions(ebtq_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(EBTQ_SANITIZE)
    target_compile_options(ebtq_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
    target_link_options(ebtq_options INTERFACE -fsanitize=address,undefined)
endif()

# ebtq_room(NAME SOURCES... LINKS...): a room or a part of one, a static library whose link line is its rule.
function(ebtq_room name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ebtq_options ${ARG_LINKS})
endfunction()

# ebtq_test(NAME SOURCES... LINKS...): one GoogleTest program; links the lowest room that it needs.
function(ebtq_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ebtq_test_support ${ARG_LINKS})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=1")
endfunction()
