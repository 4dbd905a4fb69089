#pragma once

#include <QString>

// Which files a page on this disk may show. Pure functions over the file system, no widgets.

// The folder that holds all of a page's site: the page's own folder, or up to two above it, because
// styles and images are often beside the pages' folder. Never as far as a root, the home folder, a
// folder above that, or the folder for temporary files, unless the page itself lies there.
// Canonical path; empty when the page's folder does not exist.
QString siteFolder(const QString &strPage);

// False when the path of the file names another machine than that of the page, as
// "//host/share/file". Does not look at the disk: on Windows even a look at such a file signs the
// user in there, so this has to be asked first.
bool isOnMachineOf(const QString &strPage, const QString &strFile);

// True for a regular file that lies in the page's site and is not hidden there. So a foreign page
// can neither show a file from another place nor wait for a device.
bool mayReadLocal(const QString &strPage, const QString &strFile);
