#include "app/clangmgt.h"

#include <QFile>
#include <QJsonDocument>
#include <QTimer>

CLangMgt *g_pLangMgt = nullptr;

CLangMgt::CLangMgt(QObject *pParent) : QObject(pParent)
{
    QTimer::singleShot(0, this, &CLangMgt::init);
}

void CLangMgt::init()
{
    // The table lies at ":/share/lang.txt". A path at the root finds nothing. That keeps the table
    // empty, so that only the catalogues translate the program.
    QFile file(QStringLiteral(":/lang.txt"));
    if (file.open(QIODevice::ReadOnly | QIODevice::Text))
        m_table = parseTable(file.readAll());
}

QVariantMap CLangMgt::parseTable(const QByteArray &data)
{
    // Reads up to the first zero byte; each byte is one character.
    const QString strBody = QString::fromLatin1(data.constData());
    const QByteArray json = QStringLiteral("{%1}").arg(strBody).toUtf8();
    return QJsonDocument::fromJson(json).toVariant().toMap();
}

QString CLangMgt::translate(const QString &strText)
{
    if (m_strLocale.isEmpty())
        return strText;
    const QVariant &varLocale = m_table[m_strLocale];
    if (varLocale.isNull())
        return strText;
    const QString strTranslation = varLocale.toMap().value(strText).toString();
    return strTranslation.isEmpty() ? strText : strTranslation;
}
