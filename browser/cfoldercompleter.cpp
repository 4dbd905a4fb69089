#include "browser/cfoldercompleter.h"

#include "app/platform.h"
#include "browser/filelisting.h"

#include <QDir>
#include <QLineEdit>

namespace {

// The path up to the last separator, which is included; empty if the path is not absolute yet.
QString folderPart(const QString &strText)
{
    const QString strPath = QDir::fromNativeSeparators(strText);
    const int nSlash = strPath.lastIndexOf(QLatin1Char('/'));
    return nSlash >= 0 && QDir::isAbsolutePath(strPath) ? strPath.left(nSlash + 1) : QString();
}

} // namespace

CFolderCompleter::CFolderCompleter(QLineEdit *pEdit)
    : QCompleter(pEdit), m_pEdit(pEdit), m_reader(true)
{
    setModel(&m_paths);
    setCompletionMode(QCompleter::PopupCompletion);
    const bool bIgnoreCase = Platform::isSamePath(QStringLiteral("/a"), QStringLiteral("/A"));
    setCaseSensitivity(bIgnoreCase ? Qt::CaseInsensitive : Qt::CaseSensitive);
    pEdit->setCompleter(this);
    connect(pEdit, &QLineEdit::textEdited, this, &CFolderCompleter::onTextEdited);
    connect(&m_reader, &CFolderReader::listed, this, &CFolderCompleter::onListed);
}

QStringList CFolderCompleter::splitPath(const QString &strPath) const
{
    return {QDir::toNativeSeparators(strPath)};
}

void CFolderCompleter::onTextEdited(const QString &strText)
{
    const QString strFolder = folderPart(strText);
    if (strFolder == m_strFolder)
        return;
    m_strFolder = strFolder;
    m_paths.setStringList({});
    if (!strFolder.isEmpty())
        m_reader.read(QDir::toNativeSeparators(strFolder));
}

void CFolderCompleter::onListed(const QString &strFolder, const QFileInfoList &lstFileInfos)
{
    if (strFolder != QDir::toNativeSeparators(m_strFolder))
        return;
    QStringList lstPaths;
    const QFileInfoList lstSorted = sortedFileInfos(lstFileInfos);
    for (const QFileInfo &info : lstSorted)
        lstPaths.append(QDir::toNativeSeparators(m_strFolder + info.fileName()));
    m_paths.setStringList(lstPaths);
    if (m_pEdit->hasFocus() && folderPart(m_pEdit->text()) == m_strFolder) {
        setCompletionPrefix(m_pEdit->text());
        if (completionCount() > 0)
            complete();
    }
}
