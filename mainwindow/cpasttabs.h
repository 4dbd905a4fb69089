#pragma once

#include "document/place.h"
#include "mainwindow/cclosedtabs.h"
#include "mainwindow/session.h"

#include <QObject>

class CDocument;
class CDocuments;
class CTabWidget;

// Closed documents that can be opened again: those closed in this run, one by one, and those that
// were open when the program last ended, all together. None is opened without being asked for.
class CPastTabs : public QObject
{
    Q_OBJECT

public:
    // pTabs and pDocuments outlive this object. strFile is the file of the session.
    CPastTabs(CTabWidget *pTabs, CDocuments *pDocuments, const QString &strFile, QObject *pParent);

    // A document is about to be closed.
    void note(const CDocument &document);
    // Call it before the window closes its documents from the last to the first, with a note() for
    // each,
    void startEnding();
    // and this afterwards, whether all were closed or some are kept.
    void storeEnding();
    // The window is closed with all open documents.
    void storeOpen();

    // The document that reopenLast() opens.
    QStringList lastPaths() const;

public slots:
    // Opens the last closed document; each further call the one before.
    void reopenClosed();
    void reopenLast();

signals:
    // Asks to open the file, or to show its tab if it is open.
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
    SSession m_last; // The session at the beginning of this run.
    SSession m_ending;
};
