set(linux "${PROJECT_SOURCE_DIR}/packaging/linux")
set(filled "${PROJECT_BINARY_DIR}/packaging")
foreach(name quillan.sh quillan.1 quillan.metainfo.xml changelog)
  configure_file("${linux}/${name}.in" "${filled}/${name}" @ONLY)
endforeach()

# Debian wants both compressed, and without a time stamp, so that equal sources give equal packages.
find_program(GZIP_PROGRAM gzip REQUIRED)
foreach(name quillan.1 changelog)
  add_custom_command(
    OUTPUT "${filled}/${name}.gz"
    COMMAND "${GZIP_PROGRAM}" -9nkf "${filled}/${name}"
    DEPENDS "${filled}/${name}"
    COMMENT "Compressing ${name}")
endforeach()
add_custom_target(compressed_documents ALL
                  DEPENDS "${filled}/quillan.1.gz" "${filled}/changelog.gz")

install(TARGETS quillan quillan-taste RUNTIME DESTINATION lib/quillan)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/highlighter" DESTINATION lib/quillan)
install(PROGRAMS "${filled}/quillan.sh" DESTINATION bin RENAME quillan)
install(FILES "${linux}/quillan.desktop" DESTINATION share/applications)
install(FILES "${filled}/quillan.metainfo.xml"
        DESTINATION share/metainfo RENAME example.quillan.quillan.metainfo.xml)
install(FILES "${filled}/quillan.1.gz" DESTINATION share/man/man1)
install(FILES "${linux}/copyright" "${filled}/changelog.gz" DESTINATION share/doc/quillan)
foreach(size 16 24 32 48 64 128 256)
  install(FILES "${PROJECT_SOURCE_DIR}/res/share/quillan-${size}.png"
          DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME quillan.png)
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/res/icons/quillan.svg"
        DESTINATION share/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plug-ins that no linker sees: without them the drawings of new files and SVG pictures stay blank.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt5svg5)
# Opens files with the desktop's default application. Dictionaries for the spelling; without one nothing is marked.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, hunspell-en-us | hunspell-dictionary")
# Tells Find in Files what a repository ignores.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS git)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Quillan opens any number of files in the tabs of one window: text and
source files in a code editor with syntax highlighting, HTML pages in an
editor of the rendered page with its source beside it, pictures in an
image view.
.
A folder browser with favourite folders, a preview, find and replace,
verification and formatting of HTML, XML, SVG and JSON, and a choice of
encodings and line ends serve the editing.")
