#pragma once

#include <QString>

#include <atomic>
#include <functional>

// The files of a Git repository as Git itself lists them: tracked ones, and new ones that are not
// ignored. Git's own program is asked, because only it surely knows its rules (nested ignore files,
// the user's own, ignored files that are tracked). Settings of a repository that make it run or
// fetch something are switched off. All functions block, and end soon once bCancel is true.

// True if the folder is in a repository that does not ignore it as a whole.
bool gitKnowsFolder(const QString &strFolder, const std::atomic<bool> &bCancel);

// Calls back with each file below the folder, with its relative path, until the callback gives
// false. A repository inside it, which Git does not search, comes as a folder. Gives false, without
// a callback, if Git is not installed or cannot read the repository.
bool listGitFiles(const QString &strFolder, const std::atomic<bool> &bCancel,
                  const std::function<bool(const QString &strName, bool bFolder)> &onFile);
