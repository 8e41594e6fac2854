# SPDX-License-Identifier: Apache-2.0
# What every target shares: language level, warnings, floating-point rules, sanitizers, and how a test is added.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# Where things are installed, below the prefix. The build folder is laid out the same way: the program looks for its
# packages and its sample market in one place, relative to itself.
include(GNUInstallDirs)
set(VENTIQ_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/ventiq-workstation)
set(VENTIQ_PACKAGE_DIR ${VENTIQ_LIBRARY_DIR}/packages)
set(VENTIQ_SAMPLE_DIR ${CMAKE_INSTALL_DATADIR}/ventiq-workstation/sample)
set(VENTIQ_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/ventiq-workstation)

# A second build of the same text costs nothing, in another build folder or another clone of the tree either.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
                                  ${CCACHE_PROGRAM})
endif()

# Fused multiply-add would change the last bit of a leg's result; P/L must not depend on the machine.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -ffp-contract=off)
# g++ 12 warns of an overlap inside its own std::string when a literal is assigned in optimised code; mended in g++ 13.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict)
endif()
if(VENTIQ_WERROR)
  add_compile_options(-Werror)
endif()
if(VENTIQ_SANITIZE)
  add_compile_options(-fsanitize=${VENTIQ_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VENTIQ_SANITIZE})
endif()

# ventiq_add_test(<name> LIBS <libraries...> SOURCES <files...>): one GoogleTest program, one ctest entry a program.
function(ventiq_add_test name)
  cmake_parse_arguments(ARG "" "" "LIBS;SOURCES" ${ARGN})
  find_package(GTest REQUIRED)
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  target_compile_options(${name} PRIVATE -O0)  # what is tested is optimised; optimising the tests only costs build time
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
endfunction()

# ventiq_embed_text(<target> <file> <variable>): compiles a text file into a target, so that an installed program needs
# no source tree. The source reads it as `extern const std::string_view <variable>;` in namespace ws::embedded.
function(ventiq_embed_text target file variable)
  set(out ${CMAKE_CURRENT_BINARY_DIR}/Embedded_${variable}.cpp)
  add_custom_command(
    OUTPUT ${out}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${file} -DOUTPUT=${out} -DVARIABLE=${variable} -P ${PROJECT_SOURCE_DIR}/cmake/EmbedText.cmake
    DEPENDS ${file} ${PROJECT_SOURCE_DIR}/cmake/EmbedText.cmake
    COMMENT "Embedding ${file}"
    VERBATIM)
  target_sources(${target} PRIVATE ${out})
endfunction()
