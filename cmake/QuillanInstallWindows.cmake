# Program, language definitions and all libraries in one folder that can be carried anywhere:
# cmake --install … --prefix FOLDER.
install(TARGETS quillan quillan-taste RUNTIME DESTINATION .)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/highlighter" DESTINATION .)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION .)

get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
function(query_qt name result)
  execute_process(COMMAND "${qmake}" -query "${name}" OUTPUT_VARIABLE answer
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${result} "${answer}" PARENT_SCOPE)
endfunction()
query_qt(QT_INSTALL_BINS qt_bins)
query_qt(QT_INSTALL_PLUGINS qt_plugins)

# Plug-ins that nothing links: windows and their look, pictures, drawings as icons.
set(plugins platforms/qwindows.dll styles/qwindowsvistastyle.dll iconengines/qsvgicon.dll)
file(GLOB pictures RELATIVE "${qt_plugins}" "${qt_plugins}/imageformats/*.dll")
set(installed_plugins "")
foreach(plugin IN LISTS plugins pictures)
  get_filename_component(folder "${plugin}" DIRECTORY)
  install(FILES "${qt_plugins}/${plugin}" DESTINATION "${folder}")
  list(APPEND installed_plugins "${qt_plugins}/${plugin}")
endforeach()

# The libraries that all these need, those of the compiler among them.
set(library_folders "${qt_bins}")
set(import_folder "")
if(MINGW)
  get_filename_component(folder "${CMAKE_CXX_COMPILER}" DIRECTORY)
  list(APPEND library_folders "${folder}")
endif()
if(CMAKE_CROSSCOMPILING)
  foreach(library libstdc++-6.dll libwinpthread-1.dll libkernel32.a)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${library}"
                    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    get_filename_component(folder "${path}" DIRECTORY)
    list(APPEND library_folders "${folder}")
  endforeach()
  set(import_folder "${folder}")
endif()
install(CODE "
  set(program_files \"$<TARGET_FILE:quillan>;$<TARGET_FILE:quillan-taste>\")
  set(plugin_files \"${installed_plugins}\")
  set(library_folders \"${library_folders}\")
  set(objdump \"${CMAKE_OBJDUMP}\")
  set(import_folder \"${import_folder}\")
  include(\"${CMAKE_CURRENT_LIST_DIR}/InstallLibraries.cmake\")")

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "quillan-${PROJECT_VERSION}-windows")
