# quillan_library(NAME SOURCES … LINK …): a static library that holds one folder.
# Its headers are reached as "folder/header.h" from everywhere.
# For scripts/mutate.py it is a shared library, so that a changed line needs one compilation and one link.
function(quillan_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  if(QUILLAN_MUTATED)
    add_library(${name} SHARED ${ARG_SOURCES})
    # The compiler commands stay those of the static library.
    set_target_properties(${name} PROPERTIES DEFINE_SYMBOL "" POSITION_INDEPENDENT_CODE OFF)
    if(name IN_LIST QUILLAN_MUTATED)
      set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
  else()
    add_library(${name} STATIC ${ARG_SOURCES})
  endif()
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}/generated")
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE quillan_flags)
endfunction()

# quillan_test(NAME [DISPLAY] [SOURCES …] [LINK …] [DEPENDS …]): builds NAME from
# NAME.cpp (or SOURCES) and registers it. Every test gets a HOME, XDG_CONFIG_HOME and TMPDIR of its
# own. It runs on the offscreen platform; with DISPLAY it runs under Xvfb and a window manager.
# Its labels are its folder and, with DISPLAY, "display".
function(quillan_test name)
  cmake_parse_arguments(ARG "DISPLAY" "" "SOURCES;LINK;DEPENDS" ${ARGN})
  if(NOT ARG_SOURCES)
    set(ARG_SOURCES ${name}.cpp)
  endif()
  # Seconds after which a test hangs rather than works, on a busy machine, too.
  set(timeout 900)
  if(QUILLAN_SANITIZE)
    set(timeout 1800)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  set(drive "")
  if(WIN32 AND CMAKE_CROSSCOMPILING_EMULATOR)
    set(drive "Z:") # Where Wine shows the files of this machine.
  endif()
  target_compile_definitions(${name} PRIVATE
    QUILLAN_SOURCE_DIR="${drive}${PROJECT_SOURCE_DIR}" QUILLAN_BINARY_DIR="${drive}${PROJECT_BINARY_DIR}")
  # Widgets, because the tests share a precompiled header of Qt.
  target_link_libraries(${name} PRIVATE ${ARG_LINK} Qt5::Widgets Qt5::Test quillan_flags)
  quillan_test_flags(${name})
  if("${ARG_LINK}" MATCHES "quillan_(app|widgets|spelling|highlight|editor|web|pageedit|browser|findinfiles|document|mainwindow)")
    quillan_precompile(${name} ${CMAKE_MATCH_0})
  endif()
  if(ARG_DEPENDS)
    add_dependencies(${name} ${ARG_DEPENDS})
  endif()
  set(runner "${PROJECT_SOURCE_DIR}/scripts/private-run.sh")
  if(ARG_DISPLAY)
    set(runner "${runner};--display")
  endif()
  list(APPEND runner ${CMAKE_CROSSCOMPILING_EMULATOR})
  add_test(NAME ${name} COMMAND ${runner} $<TARGET_FILE:${name}>)
  get_filename_component(labels "${CMAKE_CURRENT_SOURCE_DIR}" NAME)
  if(ARG_DISPLAY)
    list(APPEND labels display)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout} LABELS "${labels}")
endfunction()

# quillan_test_flags(NAME): with the address sanitizer only the program is instrumented. The tests are not,
# which halves the time of their build.
function(quillan_test_flags name)
  if(QUILLAN_SANITIZE MATCHES "address")
    target_compile_options(${name} PRIVATE -O0 -fno-sanitize=all)
    target_compile_definitions(${name} PRIVATE QUILLAN_ADDRESS_SANITIZER)
  endif()
endfunction()

# quillan_precompile(NAME LIBRARY): in a unity build, which is for building everything at once, lets the
# tests share a precompiled header of Qt, which takes longest to read. There are two, as its modules
# define macros of their own: one for libraries with pages, one for the others.
function(quillan_precompile name library)
  if(NOT CMAKE_UNITY_BUILD)
    return()
  endif()
  set(base quillan_widgets)
  if(library MATCHES "web|pageedit|document|mainwindow")
    set(base quillan_web)
  endif()
  set(owner precompiled_${base})
  if(NOT TARGET ${owner})
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/generated/empty.cpp" CONTENT "")
    add_library(${owner} OBJECT "${PROJECT_BINARY_DIR}/generated/empty.cpp")
    set_target_properties(${owner} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    quillan_test_flags(${owner})
    target_link_libraries(${owner} PRIVATE ${base} Qt5::Test quillan_flags)
    target_precompile_headers(${owner} PRIVATE <QtTest> <QtWidgets>)
  endif()
  target_precompile_headers(${name} REUSE_FROM ${owner})
  # Almost empty, as the tests include their own meta-object code.
  set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp"
                              PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# quillan_bench(NAME [SOURCES …] [LINK …]): a program of bench/, never part of a plain test run.
function(quillan_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  if(NOT ARG_SOURCES)
    set(ARG_SOURCES ${name}.cpp)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_compile_definitions(${name} PRIVATE
    QUILLAN_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QUILLAN_BINARY_DIR="${PROJECT_BINARY_DIR}")
  target_link_libraries(${name} PRIVATE ${ARG_LINK} quillan_flags)
endfunction()
