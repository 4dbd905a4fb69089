#pragma once

#include <QFileInfo>

// The entries in the order of lessFileInfo(), equal ones as they came: what a stable sort with it
// gives, but each entry's key is made once and not once a comparison. Thread-safe.
QFileInfoList sortedFileInfos(const QFileInfoList &lstFileInfos);
