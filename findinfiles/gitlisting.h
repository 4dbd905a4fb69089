#pragma once

#include <QString>

#include <atomic>
#include <functional>

// The files of a Git repository as Git itself tells them: tracked ones, and new ones that it is not
// told to ignore. Its own program is asked, because its rules (nested files, the user's own ones,
// tracked files that are ignored) are known for certain there only; what a repository's settings
// could make it run or fetch is switched off. All functions block, and end soon once bCancel is
// true.

// True when the folder lies in a repository that does not ignore it as a whole.
bool gitKnowsFolder(const QString &strFolder, const std::atomic<bool> &bCancel);

// Calls back with each file below the folder, its path relative to that, until the callback gives
// false. A repository within it, which Git does not look into, comes as a folder. False, before
// anything was called, when Git is not there or cannot read the repository.
bool listGitFiles(const QString &strFolder, const std::atomic<bool> &bCancel,
                  const std::function<bool(const QString &strName, bool bFolder)> &onFile);
