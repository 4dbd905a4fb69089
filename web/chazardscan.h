#pragma once

#include "web/cdrawinguses.h"
#include "web/htmltoken.h"
#include "web/pagehazards.h"

#include <QHash>
#include <QString>
#include <QVector>

// Searches the source of a page for the hazards of pagehazards.h in one walk: how elements are
// nested, and what a single tag or text demands of the engine. Each object serves one call of
// run().
class CHazardScan
{
public:
    // The text has to outlive the scan. bXml: the engine reads it as XML.
    CHazardScan(const QString &strHtml, bool bXml);
    EPageHazard run();

private:
    struct SOpen
    {
        QString strName;
        bool bFlexBox = false;
        bool bColumns = false;
        bool bReflection = false;
        bool bPart = false; // It is a part of a drawing, with a name.
        bool bMasked = false; // Within a mask.
    };

    void start(const SHtmlToken &tag);
    void enter(const SOpen &open);
    void end(const QString &strName);
    void closeLast();
    void countField(const QString &strName);
    void countSpans(const QVector<SHtmlAttribute> &lstAttributes);
    void followUses(const QString &strName, const QVector<SHtmlAttribute> &lstAttributes);
    void followEffects(const QString &strName, const QVector<SHtmlAttribute> &lstAttributes);
    void lookAtText(const SHtmlToken &text);
    QString value(const QVector<SHtmlAttribute> &lstAttributes, const char *szName) const;
    void limit(qint64 nCount, qint64 nMost, EPageHazard hazard);

    const QString &m_strHtml;
    const int m_nMaxNesting;
    EPageHazard m_found = EPageHazard::None;
    QVector<SOpen> m_lstOpen;
    QHash<QString, int> m_hashOpen; // How many elements of each name are open.
    int m_nFlexBoxes = 0; // The number of all these that are open.
    int m_nColumns = 0;
    int m_nReflections = 0;
    int m_nMasked = 0;
    int m_nFields = 0;
    int m_nOctaves = 0;
    qint64 m_nTallCells = 0;
    qint64 m_nSpannedRows = 0;
    int m_nLines = 0; // The lines of the present preformatted text.
    CDrawingUses m_uses;
};
