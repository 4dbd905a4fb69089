#include "web/pagehazards.h"

#include "web/chazardscan.h"
#include "web/pagesuffix.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>

namespace {

class CPageHazards
{
    Q_DECLARE_TR_FUNCTIONS(CPageHazards)
};

} // namespace

EPageHazard pageHazard(const QString &strHtml, bool bXml)
{
    return CHazardScan(strHtml, bXml).run();
}

EPageHazard pageHazardOfFile(const QString &strPath, const QString &strText)
{
    const QString strSuffix = QFileInfo(strPath).suffix().toLower();
    if (isPageSuffix(strSuffix))
        return pageHazard(strText);
    static const QSet<QString> s_setXml = {QStringLiteral("xhtml"), QStringLiteral("xht"),
                                           QStringLiteral("xml"), QStringLiteral("svg")};
    return s_setXml.contains(strSuffix) ? pageHazard(strText, true) : EPageHazard::None;
}

QString pageHazardReason(EPageHazard hazard)
{
    switch (hazard) {
    case EPageHazard::None:
        return QString();
    case EPageHazard::Nesting:
        return CPageHazards::tr("its elements are nested too deeply");
    case EPageHazard::FlexBoxes:
        return CPageHazards::tr("its flexible boxes are nested too deeply");
    case EPageHazard::Columns:
        return CPageHazards::tr("its columns are nested too deeply");
    case EPageHazard::Reflections:
        return CPageHazards::tr("its reflections are nested too deeply");
    case EPageHazard::Attributes:
        return CPageHazards::tr("one of its elements has too many attributes");
    case EPageHazard::Uses:
        return CPageHazards::tr("the parts of a drawing in it use each other too often");
    case EPageHazard::Effects:
        return CPageHazards::tr("its effects take too long to be drawn");
    case EPageHazard::LongText:
        return CPageHazards::tr("it has a text that is too long to be laid out");
    case EPageHazard::Fields:
        return CPageHazards::tr("it has too many form fields");
    case EPageHazard::Spans:
        return CPageHazards::tr("its table cells span too many others");
    }
    return QString();
}
