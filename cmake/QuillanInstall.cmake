# Install rules and packages.
# Linux: the program and its language definitions in lib/quillan, because it looks for them beside
# itself; on the PATH a launcher; what a desktop wants to know under share.
# Windows: one folder that can be carried anywhere.

set(QUILLAN_RELEASE_DATE 2026-11-21)
set(QUILLAN_RELEASE_DATE_RFC "Sat, 21 Nov 2026 12:00:00 +0000")

set(CPACK_PACKAGE_VENDOR "The Quillan developers")
set(CPACK_PACKAGE_CONTACT "The Quillan developers <developers@quillan.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://quillan.example/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)

if(WIN32)
  include(QuillanInstallWindows)
elseif(UNIX AND NOT APPLE)
  include(QuillanInstallLinux)
endif()

include(CPack)
