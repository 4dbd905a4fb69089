# Runs at the installation: copies the libraries that program_files and plugin_files need, and what those
# need, from library_folders into the folder of the program. Where import_folder is given, this machine is
# no Windows: the libraries of the system are those that the compiler can import, and a library that is
# neither found nor one of these fails the installation.
if(import_folder)
  set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
  set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
  set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND "${objdump}")
  # Names are looked for in small letters, which only Windows takes for the same.
  set(links "${CMAKE_CURRENT_LIST_DIR}/../build/windows-libraries")
  file(REMOVE_RECURSE "${links}")
  file(MAKE_DIRECTORY "${links}")
  foreach(folder IN LISTS library_folders)
    file(GLOB libraries "${folder}/*.dll")
    foreach(library IN LISTS libraries)
      get_filename_component(name "${library}" NAME)
      string(TOLOWER "${name}" name)
      if(NOT EXISTS "${links}/${name}")
        file(CREATE_LINK "${library}" "${links}/${name}" SYMBOLIC)
      endif()
    endforeach()
  endforeach()
  set(library_folders "${links}")
endif()
file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES ${program_files}
  MODULES ${plugin_files}
  DIRECTORIES ${library_folders}
  PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-"
  POST_EXCLUDE_REGEXES ".*[/\\][Ss]ystem32[/\\].*"
  RESOLVED_DEPENDENCIES_VAR found
  UNRESOLVED_DEPENDENCIES_VAR system)

foreach(library IN LISTS system)
  string(TOLOWER "${library}" name)
  string(REGEX REPLACE "\\.(dll|drv)$" "" name "${name}")
  if(NOT import_folder OR NOT EXISTS "${import_folder}/lib${name}.a")
    message(FATAL_ERROR "${library} was not found.")
  endif()
endforeach()
foreach(library IN LISTS found)
  file(REAL_PATH "${library}" library)
  file(COPY "${library}" DESTINATION "${CMAKE_INSTALL_PREFIX}")
endforeach()
