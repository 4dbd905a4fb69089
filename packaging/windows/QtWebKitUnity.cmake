# Read at the end of the CMakeLists.txt of JavaScriptCore and WebCore: compiles up to ten files of a folder
# as one, as each of them reads the same headers for seconds and adds little. What WebCore joins itself,
# and files that do not go together, stay as they are.
function(unite target apart)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.(cpp|cc)$")
  list(FILTER sources EXCLUDE REGEX "AllInOne|${apart}")
  foreach(source IN LISTS sources)
    get_filename_component(folder "${source}" DIRECTORY)
    string(MAKE_C_IDENTIFIER "${folder}" folder)
    math(EXPR group "${count_${folder}} + 0")
    math(EXPR count_${folder} "${group} + 1")
    math(EXPR group "${group} / 10")
    set_source_files_properties("${source}" PROPERTIES UNITY_GROUP "${folder}_${group}")
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
