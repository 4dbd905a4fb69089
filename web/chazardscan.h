#pragma once

#include "web/cdrawinguses.h"
#include "web/htmltoken.h"
#include "web/pagehazards.h"

#include <QHash>
#include <QString>
#include <QVector>

// One walk over the source of a page for what pagehazards.h tells of: which elements lie within
// which, and what a single tag or text asks of the engine. For one call of run().
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
        bool bPart = false; // Of a drawing, with a name.
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
    QHash<QString, int> m_hashOpen; // How many of each name are open.
    int m_nFlexBoxes = 0; // Open, all of these.
    int m_nColumns = 0;
    int m_nReflections = 0;
    int m_nMasked = 0;
    int m_nFields = 0;
    int m_nOctaves = 0;
    qint64 m_nTallCells = 0;
    qint64 m_nSpannedRows = 0;
    int m_nLines = 0; // Of the preformatted text.
    CDrawingUses m_uses;
};
