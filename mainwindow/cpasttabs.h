#pragma once

#include "document/place.h"
#include "mainwindow/cclosedtabs.h"
#include "mainwindow/session.h"

#include <QObject>

class CDocument;
class CDocuments;
class CTabWidget;

// Documents that are gone and can come back: those closed in this run, one by one, and those that
// were open when the program last ended, all together. Nothing comes back by itself.
class CPastTabs : public QObject
{
    Q_OBJECT

public:
    // pTabs and pDocuments outlive this object. strFile: where the session is kept.
    CPastTabs(CTabWidget *pTabs, CDocuments *pDocuments, const QString &strFile, QObject *pParent);

    // A document is about to be closed.
    void note(const CDocument &document);
    // The window begins to close its documents from the last to the first, noting each of them ...
    void startEnding();
    // ... and has closed all of them, or keeps the rest: then call only note() again.
    void storeEnding();
    // The window goes with all that is open.
    void storeOpen();

    // What reopenLast() opens.
    QStringList lastPaths() const;

public slots:
    // The document closed last, and so on with each further call.
    void reopenClosed();
    void reopenLast();

signals:
    // Open the file, or show its tab where it is open.
    void openWanted(const QString &strPath);
    // For the status bar.
    void message(const QString &strText);

private:
    QStringList openPaths() const;
    bool reopen(const SPlace &place);
    void store(const SSession &session);

    CTabWidget *m_pTabs;
    CDocuments *m_pDocuments;
    QString m_strFile;
    CClosedTabs m_closed;
    SSession m_last; // As it was when this run began.
    SSession m_ending;
};
