#pragma once

#include <QString>

#include <atomic>
#include <functional>

// Calls back with the path of each file below a folder, in no special order, until bCancel is true
// or the callback gives false. It blocks, so call it on a thread.
//
// Symbolic links are not followed, except for the folder itself. If a folder belongs to a Git
// repository, Git tells its files, so ignored ones are left out. Hidden files are included, the
// folders ".git" are not.
void walkFiles(const QString &strFolder, const std::atomic<bool> &bCancel,
               const std::function<bool(const QString &)> &onFile);
