#include "highlight/modeline.h"

#include <QRegExp>

namespace {

constexpr int g_nLinesWithModes = 5;
constexpr int g_nMaxLength = 1000; // A mode line is short.

QString captured(const QString &strPattern, const QString &strLine)
{
    QRegExp rx(strPattern, Qt::CaseInsensitive);
    return rx.indexIn(strLine) >= 0 ? rx.cap(rx.captureCount()) : QString();
}

QString modeOfLine(const QString &strLine)
{
    static const QStringList s_lstPatterns {
        QStringLiteral("-\\*-(.*;)?\\s*mode:\\s*([\\w+#-]+)\\s*(?=;|-\\*-)"),
        QStringLiteral("-\\*-\\s*([\\w+#-]+)\\s*(?=-\\*-)"),
        QStringLiteral("\\b(vim?|ex):(.*[ \\t:])?(filetype|ft|syntax)=([\\w+#-]+)")};
    for (const QString &strPattern : s_lstPatterns) {
        QString strMode = captured(strPattern, strLine);
        if (!strMode.isEmpty())
            return strMode;
    }
    return QString();
}

// For example, "#!/usr/bin/env -S python3.11 -u" names python.
QString programOf(const QString &strLine)
{
    if (!strLine.startsWith(QLatin1String("#!")))
        return QString();
    const QStringList lstWords =
        strLine.mid(2).split(QRegExp(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    for (const QString &strWord : lstWords) {
        const QString strName = strWord.section(QLatin1Char('/'), -1);
        const bool bOption = strWord.startsWith(QLatin1Char('-'));
        if (strName != QLatin1String("env") && !bOption && !strWord.contains(QLatin1Char('=')))
            return QString(strName).remove(QRegExp(QStringLiteral("[-\\d.]+$")));
    }
    return QString();
}

} // namespace

QString modeOf(const QStringList &lstFirstLines)
{
    const QStringList lst = lstFirstLines.mid(0, g_nLinesWithModes);
    for (const QString &strLine : lst) {
        QString strMode = modeOfLine(strLine.left(g_nMaxLength));
        if (!strMode.isEmpty())
            return strMode;
    }
    return programOf(lst.value(0).left(g_nMaxLength));
}
