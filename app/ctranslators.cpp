#include "app/ctranslators.h"

#include <QCoreApplication>

namespace {

void load(QTranslator *pTranslator, const char *szPrefix, const QString &strLocale)
{
    const QString strFile = QLatin1String(szPrefix) + strLocale + QLatin1String(".qm");
    if (pTranslator->load(strFile, QStringLiteral(":/")))
        QCoreApplication::installTranslator(pTranslator);
}

} // namespace

CTranslators::CTranslators(const QString &strLocale)
{
    load(&m_own, "lang_", strLocale);
    load(&m_qt, "qt_", strLocale);
    load(&m_base, "base_",
         strLocale); // Not "qtbase_": the boxes of a Japanese desktop stay as they are.
}
