#include "app/cdraftstore.h"

#include "app/draftfiles.h"

#include <QDateTime>
#include <QDir>

#include <algorithm>

namespace {

const qint64 g_nKeptFor = qint64(24) * 60 * 60 * 1000; // Milliseconds.

} // namespace

QString CDraftStore::keptFolder() const
{
    return QDir(m_strFolder).filePath(QStringLiteral("kept"));
}

QString CDraftStore::keptPath(const QString &strId) const
{
    return QDir(keptFolder()).filePath(strId);
}

bool CDraftStore::keep(const SDraft &draft, QString *pError) const
{
    return DraftFiles::makeFolder(m_strFolder, pError)
        && DraftFiles::makeFolder(keptFolder(), pError)
        && DraftFiles::write(keptPath(newId()), draft, pError);
}

QVector<SDraft> CDraftStore::kept() const
{
    QVector<SDraft> lstDrafts;
    const qint64 nNow = QDateTime::currentMSecsSinceEpoch();
    const QStringList lstNames =
        QDir(keptFolder()).entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString &strName : lstNames) {
        SDraft draft;
        draft.strId = strName;
        const bool bDraft = DraftFiles::readHead(keptPath(strName), &draft);
        const qint64 nTime =
            bDraft ? draft.nTime : fileStateOf(keptPath(strName)).nModifiedNs / 1000000;
        if (qAbs(nNow - nTime) > g_nKeptFor) // Also what a wrong clock put into the future.
            removeKept(strName);
        else if (bDraft && !strName.contains(QLatin1Char('.')))
            lstDrafts.append(draft);
    }
    std::sort(lstDrafts.begin(), lstDrafts.end(),
              [](const SDraft &one, const SDraft &two) { return one.nTime > two.nTime; });
    return lstDrafts;
}

bool CDraftStore::readKept(const QString &strId, SDraft *pDraft, QString *pError) const
{
    pDraft->strId = strId;
    return DraftFiles::read(keptPath(strId), pDraft, pError);
}

void CDraftStore::removeKept(const QString &strId) const
{
    Platform::removeFile(keptPath(strId));
}
