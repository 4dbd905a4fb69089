#pragma once

#include "document/place.h"

#include <QByteArray>
#include <QVector>

const int g_nMaxSessionPlaces = 1000;

// What was open when the window went: the documents that have a file, in the order of their tabs.
struct SSession
{
    QVector<SPlace> lstPlaces;
    QString strCurrent; // The path of the current one; empty where that had none.
};

// A line of JSON. Paths are absolute in it, and stand as the bytes that the system knows, in per
// cent signs where they are no letters: a name need not be text.
QByteArray sessionToBytes(const SSession &session);

// Whatever the bytes are: what makes no sense is left out.
SSession sessionFromBytes(const QByteArray &bytes);

// The same in a file that this user alone may read. A file that is missing, unreadable or huge is
// an empty session; false where it could not be written: the old one stays.
SSession readSession(const QString &strFile);
bool writeSession(const QString &strFile, const SSession &session);
