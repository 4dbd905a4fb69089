#pragma once

#include <QString>

struct SDraft;

// Single drafts on the disk, for CDraftStore. Each returns false if it failed, with the reason in
// pError, which may be null.
namespace DraftFiles {

// A folder that only this user may look into.
bool makeFolder(const QString &strFolder, QString *pError);

// Stamped with the time.
bool write(const QString &strPath, const SDraft &draft, QString *pError);
bool read(const QString &strPath, SDraft *pDraft, QString *pError);

// Reads all but the text, and no more of the file than its beginning.
bool readHead(const QString &strPath, SDraft *pDraft);

} // namespace DraftFiles
