# Program, language definitions and Qt's libraries in one folder: cmake --install … --prefix FOLDER.
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

find_program(WINDEPLOYQT_PROGRAM windeployqt HINTS "${qt_bins}")
if(WINDEPLOYQT_PROGRAM)
  install(CODE "
    execute_process(COMMAND \"${WINDEPLOYQT_PROGRAM}\" --release --no-translations
                            \"\${CMAKE_INSTALL_PREFIX}/quillan.exe\"
                    COMMAND_ERROR_IS_FATAL ANY)")
else()
  message(STATUS "windeployqt was not found: the installed folder will lack Qt's libraries.")
endif()

# What the tool forgets: plug-ins that nothing links, with their library, what QtWebKit, which is not
# part of Qt's own distribution, brings along, uchardet and hunspell.
foreach(plugin imageformats/qsvg.dll iconengines/qsvgicon.dll)
  get_filename_component(folder "${plugin}" DIRECTORY)
  install(FILES "${qt_plugins}/${plugin}" DESTINATION "${folder}")
endforeach()
foreach(library Qt5Svg Qt5WebKit Qt5WebKitWidgets Qt5Network Qt5PrintSupport Qt5Sensors
        Qt5Positioning Qt5WebChannel Qt5Qml Qt5QmlModels Qt5Quick Qt5OpenGL Qt5Multimedia
        Qt5MultimediaWidgets)
  if(EXISTS "${qt_bins}/${library}.dll")
    install(FILES "${qt_bins}/${library}.dll" DESTINATION .)
  endif()
endforeach()
file(GLOB webkit_needs "${qt_bins}/libxml2*.dll" "${qt_bins}/libxslt*.dll" "${qt_bins}/icu*.dll"
     "${qt_bins}/libicu*.dll" "${qt_bins}/sqlite3*.dll" "${qt_bins}/zlib*.dll"
     "${qt_bins}/*uchardet*.dll" "${qt_bins}/*hunspell*.dll"
     "${qt_bins}/libjpeg*.dll" "${qt_bins}/libpng*.dll" "${qt_bins}/libwebp*.dll")
if(webkit_needs)
  install(FILES ${webkit_needs} DESTINATION .)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "quillan-${PROJECT_VERSION}-windows")
