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
    # With precompiled headers ccache needs the sloppiness; the inode cache saves it from hashing them each time.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_INODECACHE=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${EBTQ_CCACHE})
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

# Most of a compilation is the reading of Qt's headers: they are read once for each kind of target.
#   ebtq_precompiled(NAME HEADERS... LINKS...)     declares a set of headers
#   ebtq_precompile(TARGET NAME)                   lets a target use it
# A target must have the compiler flags of its set, or the compiler refuses it (-Winvalid-pch).
function(ebtq_precompiled name)
    cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
    add_library(ebtq_${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    set_target_properties(ebtq_${name} PROPERTIES AUTOMOC OFF)
    target_link_libraries(ebtq_${name} PRIVATE ebtq_options ${ARG_LINKS})
    target_precompile_headers(ebtq_${name} PRIVATE ${ARG_HEADERS})
endfunction()
function(ebtq_precompile target name)
    target_precompile_headers(${target} REUSE_FROM ebtq_${name})
endfunction()

# ebtq_room(NAME [WIDGETS] SOURCES... LINKS...): a room or a part of one, a static library whose link line is its rule.
function(ebtq_room name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC ebtq_options ${ARG_LINKS})
    if(ARG_WIDGETS)
        ebtq_precompile(${name} widget_headers)
    else()
        ebtq_precompile(${name} core_headers)
    endif()
endfunction()

# ebtq_test(NAME [WIDGETS] SOURCES... LINKS...): one GoogleTest program; links the lowest room that it needs.
function(ebtq_test name)
    cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ebtq_test_support ${ARG_LINKS})
    if(ARG_WIDGETS)
        ebtq_precompile(${name} widget_test_headers)
    else()
        ebtq_precompile(${name} test_headers)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=1")
endfunction()
