// The searches and replacements of the panel, and the choice of a match.
#include "app/csettings.h"
#include "findinfiles/cfindresults.h"
#include "findinfiles/cwidgetfindinfiles.h"
#include "findinfiles/findquery.h"
#include "findinfiles/replacefile.h"

#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

namespace {

const int g_nExpandedFiles = 200; // More rows would have to be laid out one by one.

} // namespace

SFindQuery CWidgetFindInFiles::query() const
{
    SFindQuery query;
    query.strFolder = QDir::fromNativeSeparators(m_pEditFolder->text());
    query.strNames = m_pEditNames->text();
    query.strText = m_pEditText->text();
    query.options.bMatchCase = m_pCheckCase->isChecked();
    query.options.bWholeWord = m_pCheckWord->isChecked();
    query.options.bRegExp = m_pCheckRegExp->isChecked();
    return query;
}

bool CWidgetFindInFiles::isBusy() const
{
    return m_search.isRunning() || m_replace.isRunning();
}

void CWidgetFindInFiles::updateButtons()
{
    m_pBtnFind->setEnabled(!m_replace.isRunning());
    m_pBtnCancel->setEnabled(isBusy());
    m_pBtnReplace->setEnabled(!isBusy() && m_pCheckReplace->isChecked()
                              && m_pResults->rowCount() > 0);
    m_pProgress->setVisible(isBusy());
    if (m_bBusy == isBusy())
        return;
    m_bBusy = isBusy();
    emit busyChanged(m_bBusy,
                     m_replace.isRunning() ? tr("Replacing in files") : tr("Searching in files"));
}

void CWidgetFindInFiles::onFind()
{
    if (m_replace.isRunning())
        return;
    const SFindQuery what = query();
    const QRegExp expression(what.strText);
    if (what.strText.isEmpty())
        showState(tr("There is no text to search for."));
    else if (!QFileInfo(what.strFolder).isDir())
        showState(tr("There is no such folder."));
    else if (what.options.bRegExp && !expression.isValid())
        showState(tr("This is no regular expression: %1").arg(expression.errorString()));
    else {
        m_pResults->start(what.strFolder);
        m_search.start(what);
        updateButtons();
    }
}

void CWidgetFindInFiles::onCancel()
{
    m_search.cancel();
    m_replace.cancel();
}

void CWidgetFindInFiles::onFound(const QVector<SFileMatches> &lstFound)
{
    const bool bFirst = m_pResults->rowCount() == 0;
    m_pResults->add(lstFound);
    const int nRows = m_pResults->rowCount();
    for (int nRow = 0; nRow < nRows && nRows <= g_nExpandedFiles; ++nRow)
        m_pTree->setExpanded(m_pResults->index(nRow, 0), true);
    if (bFirst)
        m_pTree->setCurrentIndex(m_pResults->index(0, 0));
}

void CWidgetFindInFiles::onFinished(const SFindCounts &counts)
{
    showState(textOf(counts));
    updateButtons();
}

QString CWidgetFindInFiles::textOf(const SFindCounts &counts)
{
    QString strText = tr("Matches: %1, in %2 of %3 files.")
                          .arg(counts.nMatches)
                          .arg(counts.nMatchedFiles)
                          .arg(counts.nFiles);
    if (counts.nBinary + counts.nHuge + counts.nUnreadable > 0) {
        strText += QLatin1Char(' ')
            + tr("Left out: %1 binary, %2 huge, %3 unreadable.")
                  .arg(counts.nBinary)
                  .arg(counts.nHuge)
                  .arg(counts.nUnreadable);
    }
    if (counts.bCutOff)
        strText += QLatin1Char(' ') + tr("There are more.");
    if (counts.bCancelled)
        strText += QLatin1Char(' ') + tr("Cancelled.");
    return strText;
}

void CWidgetFindInFiles::onReplacementChanged()
{
    const bool bReplace = m_pCheckReplace->isChecked();
    m_pEditReplace->setEnabled(bReplace);
    m_pResults->setReplacement(bReplace, m_pEditReplace->text());
    updateButtons();
}

void CWidgetFindInFiles::onReplace()
{
    if (isBusy() || !m_pCheckReplace->isChecked())
        return;
    m_nReplaced = 0;
    m_nRefused = 0;
    QVector<SFileReplacement> lstAllowed;
    const QVector<SFileReplacement> lstChecked = m_pResults->checkedReplacements();
    for (const SFileReplacement &file : lstChecked) {
        const QString strReason = m_guard ? m_guard(file.strPath) : QString();
        if (strReason.isEmpty())
            lstAllowed.append(file);
        else
            onFileDone(file.strPath, strReason);
    }
    if (lstAllowed.isEmpty()) {
        showState(m_nRefused > 0 ? tr("Nothing was replaced.") : tr("No match is checked."));
        return;
    }
    m_replace.start(lstAllowed, m_pEditReplace->text());
    updateButtons();
}

void CWidgetFindInFiles::onFileDone(const QString &strPath, const QString &strReason)
{
    if (!strReason.isEmpty()) {
        ++m_nRefused;
        m_pResults->setNote(strPath, strReason);
        return;
    }
    ++m_nReplaced;
    m_pResults->removeFile(strPath);
    emit fileReplaced(strPath);
}

void CWidgetFindInFiles::onReplaced()
{
    QString strText = tr("Files replaced: %1.").arg(m_nReplaced);
    if (m_nRefused > 0)
        strText += QLatin1Char(' ') + tr("Left as they were, with the reason: %1.").arg(m_nRefused);
    showState(strText);
    updateButtons();
}

void CWidgetFindInFiles::onFolderBrowse()
{
    const QString strStart = m_pEditFolder->text().isEmpty() ? g_pSettings->getLastPathFileName()
                                                             : m_pEditFolder->text();
    const QString strFolder = QFileDialog::getExistingDirectory(
        this, tr("Select a folder"), strStart, QFileDialog::ShowDirsOnly);
    if (strFolder.isEmpty())
        return;
    m_bFolderTyped = true;
    m_pEditFolder->setText(QDir::toNativeSeparators(strFolder));
}

// A click on a row's check box only changes the box.
void CWidgetFindInFiles::onPressed(const QModelIndex &index)
{
    m_nPressedState = index.data(Qt::CheckStateRole).toInt();
}

void CWidgetFindInFiles::onClicked(const QModelIndex &index)
{
    if (index.data(Qt::CheckStateRole).toInt() == m_nPressedState)
        onActivated(index);
}

void CWidgetFindInFiles::onActivated(const QModelIndex &index)
{
    if (const SFileMatch *pMatch = m_pResults->matchOf(index))
        emit matchActivated(m_pResults->pathOf(index), pMatch->nLine, pMatch->nColumn,
                            pMatch->nLength);
}

void CWidgetFindInFiles::keyPressEvent(QKeyEvent *pEvent)
{
    if (pEvent->key() == Qt::Key_Escape && isBusy())
        onCancel();
    else
        QWidget::keyPressEvent(pEvent);
}
