#pragma once

#include <QString>

#include <atomic>
#include <functional>

// Calls back with the path of each file below a folder, in no special order, until bCancel is true
// or the callback gives false. Blocks: for a thread of its own.
//
// Symbolic links are not followed, apart from the folder itself. Where a folder belongs to a Git
// repository, its files are those that Git tells: what .gitignore and its kin name is left out.
// Hidden files are walked to, the repositories' own folders are not.
void walkFiles(const QString &strFolder, const std::atomic<bool> &bCancel,
               const std::function<bool(const QString &)> &onFile);
