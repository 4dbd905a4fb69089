# The program itself, at the top of the build folder with its language definitions beside it.
add_executable(quillan WIN32 app/main.cpp)
target_link_libraries(quillan PRIVATE quillan_mainwindow quillan_resources quillan_flags)
set_target_properties(quillan PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}")

# Windows: icon, version information and manifest.
if(WIN32)
  set(QUILLAN_WINDOWS_DIR "${PROJECT_SOURCE_DIR}/packaging/windows")
  configure_file("${QUILLAN_WINDOWS_DIR}/quillan.rc.in" "${PROJECT_BINARY_DIR}/quillan.rc" @ONLY)
  target_sources(quillan PRIVATE "${PROJECT_BINARY_DIR}/quillan.rc")
  set_source_files_properties("${PROJECT_BINARY_DIR}/quillan.rc" PROPERTIES OBJECT_DEPENDS
    "${QUILLAN_WINDOWS_DIR}/quillan.ico;${QUILLAN_WINDOWS_DIR}/quillan.manifest")
  if(MSVC)
    target_sources(quillan PRIVATE "${QUILLAN_WINDOWS_DIR}/quillan.manifest")
  endif()
endif()

file(GLOB definitions CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/highlighter/*")
add_custom_command(
  OUTPUT "${PROJECT_BINARY_DIR}/highlighter.stamp"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${PROJECT_BINARY_DIR}/highlighter"
  COMMAND ${CMAKE_COMMAND} -E copy_directory
          "${PROJECT_SOURCE_DIR}/highlighter" "${PROJECT_BINARY_DIR}/highlighter"
  COMMAND ${CMAKE_COMMAND} -E touch "${PROJECT_BINARY_DIR}/highlighter.stamp"
  DEPENDS ${definitions}
  COMMENT "Copying the language definitions beside the program")
add_custom_target(highlighter_files ALL DEPENDS "${PROJECT_BINARY_DIR}/highlighter.stamp")
add_dependencies(quillan highlighter_files quillan-taste)
