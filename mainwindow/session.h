#pragma once

#include "document/place.h"

#include <QByteArray>
#include <QVector>

const int g_nMaxSessionPlaces = 1000;

// The documents with a file that were open when the window was closed, in the order of their tabs.
struct SSession
{
    QVector<SPlace> lstPlaces;
    QString strCurrent; // The path of the current one; empty if it had none.
};

// Writes a line of JSON. Paths are absolute. They are written as the system's bytes,
// percent-encoded, because a name need not be text.
QByteArray sessionToBytes(const SSession &session);

// Reads any bytes; what makes no sense is left out.
SSession sessionFromBytes(const QByteArray &bytes);

// The same with a file that only this user may read. A missing, unreadable or huge file is an empty
// session. If it could not be written, gives false, and the old one stays.
SSession readSession(const QString &strFile);
bool writeSession(const QString &strFile, const SSession &session);
