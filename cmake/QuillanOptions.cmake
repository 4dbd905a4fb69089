# Compiler, warnings and switches common to every target of ours.

option(QUILLAN_BUILD_TESTS "Build the tests" ON)
option(QUILLAN_BUILD_BENCH "Build the benchmarks" OFF)
option(QUILLAN_BUILD_FUZZ "Build the fuzz targets (clang only)" OFF)
option(QUILLAN_PAGES "Show and edit pages; without, a stand-in for the page engine has them as their source only" ON)
option(QUILLAN_WERROR "Treat warnings in our own code as errors" OFF)
set(QUILLAN_MUTATED "" CACHE STRING "Libraries whose files scripts/mutate.py changes one by one")
set(QUILLAN_SANITIZE "" CACHE STRING "Sanitizers for every target, e.g. address,undefined")

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
  if(CMAKE_UNITY_BUILD) # Its tests have a precompiled header; see quillan_precompile().
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${CCACHE_PROGRAM}")
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endif()

# One place for the warnings; interface target, so that only our own code sees them.
add_library(quillan_flags INTERFACE)
target_compile_definitions(quillan_flags INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_STRICT_ITERATORS
  QT_USE_QSTRINGBUILDER)
if(MSVC)
  target_compile_options(quillan_flags INTERFACE /W4 /utf-8 $<$<BOOL:${QUILLAN_WERROR}>:/WX>)
else()
  target_compile_options(quillan_flags INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor
    $<$<BOOL:${QUILLAN_WERROR}>:-Werror>)
endif()

if(QUILLAN_SANITIZE)
  add_compile_options(-fsanitize=${QUILLAN_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUILLAN_SANITIZE})
endif()

# lld links the many small test programs several times as fast as the default linker.
find_program(LLD_PROGRAM ld.lld)
if(LLD_PROGRAM AND UNIX AND NOT APPLE)
  add_link_options(-fuse-ld=lld)
endif()
