// Random sequences of what a user, other programs and the system do, against a model of what must
// be on the disk and what must be in an editor or on offer. QUILLAN_STEPS, QUILLAN_SEED: another
// session.
//
// Everything that is typed is a token of its own, such as "[17]". A token is owed to the user until
// it is saved, or declined in a box that names the loss. An owed token stands in an open editor or
// in a draft on the disk.

#include "cwindowfixture.h"

#include "app/cdraftstore.h"
#include "document/cdocument.h"
#include "editor/textreading.h"
#include "highlight/ctextdocument.h"
#include "mainwindow/cnoticebar.h"
#include "tests/support/boxanswer.h"

#include <QDirIterator>
#include <QMessageBox>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTextBlock>

namespace {

int number(const char *szVariable, int nDefault)
{
    bool bGiven = false;
    const int nGiven = qEnvironmentVariableIntValue(szVariable, &bGiven);
    return bGiven ? nGiven : nDefault;
}

void copyFolder(const QString &strFrom, const QString &strTo)
{
    QDir(strTo).removeRecursively();
    QDirIterator it(strFrom, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString strFile = it.next();
        const QString strCopy = strTo + strFile.mid(strFrom.size());
        QDir().mkpath(QFileInfo(strCopy).path());
        if (!QFile::copy(strFile, strCopy))
            qFatal("cannot copy %s", qPrintable(strFile));
    }
}

QList<int> tokensIn(const QString &strText)
{
    QList<int> lstTokens;
    static const QRegularExpression token(QStringLiteral("\\[(\\d+)\\]"));
    auto it = token.globalMatch(strText);
    while (it.hasNext())
        lstTokens.append(it.next().captured(1).toInt());
    return lstTokens;
}

} // namespace

class tst_nothinglost : public QObject
{
    Q_OBJECT

private slots:
    void randomSteps_loseNothing_data()
    {
        QTest::addColumn<uint>("seed");
        const int nSeed = number("QUILLAN_SEED", 0);
        if (nSeed > 0) {
            QTest::newRow("given") << uint(nSeed);
            return;
        }
        for (uint nRow = 1; nRow <= 10; ++nRow)
            QTest::newRow(qPrintable(QString::number(nRow))) << nRow;
    }

    void randomSteps_loseNothing()
    {
        QFETCH(uint, seed);
        QDir(CWindowFixture::draftFolder()).removeRecursively();
        m_random.seed(seed);
        m_bLarge = seed % 2;
        m_mapDisk.clear();
        m_setOwed.clear();
        m_setOnDraft.clear();
        // A file of some hundred lines is a large one here, which is loaded in the background.
        setMostShownAtOnce(500);
        QTemporaryDir folder;
        m_strFolder = folder.path();
        for (int n = 0; n < 4; ++n)
            foreignWrite(path(n));
        m_pFixture = std::make_unique<CWindowFixture>();
        const int nSteps = number("QUILLAN_STEPS", 1000);
        for (int n = 0; n < nSteps && !QTest::currentTestFailed(); ++n) {
            m_strStep.clear();
            step();
            check(n % 20 == 0);
        }
        if (QTest::currentTestFailed())
            fprintf(stderr, "the last steps:\n%s\n",
                    qPrintable(m_lstSteps.mid(m_lstSteps.size() - 60).join('\n')));
        m_pFixture.reset();
    }

private:
    MainWindow &window() { return m_pFixture->window(); }
    CDocument &current() { return window().currentDocument(); }
    int below(int nEnd) { return int(m_random.bounded(nEnd)); }
    QString path(int n) const { return QStringLiteral("%1/%2.txt").arg(m_strFolder).arg(n); }
    QString anyPath() { return path(below(4)); }

    void step()
    {
        if (m_bLarge && m_pFixture->editor())
            m_pFixture->editor()->textDocument()->setLargeFrom(1000);
        const int nStep = below(100);
        if (nStep < 32)
            type();
        else if (nStep < 46)
            open();
        else if (nStep < 58)
            save();
        else if (nStep < 66)
            foreignWrite(anyPath());
        else if (nStep < 69)
            remove(anyPath());
        else if (nStep < 75)
            refresh();
        else if (nStep < 78)
            refreshByMenu();
        else if (nStep < 82)
            chooseCodec();
        else if (nStep < 90)
            closeTab();
        else if (nStep < 93)
            saveAs();
        else if (nStep < 95)
            answerNotice();
        else if (nStep < 97)
            pause();
        else if (nStep < 99)
            rearrange();
        else
            restart(below(2));
        QCoreApplication::processEvents();
    }

    void note(const QString &strStep)
    {
        m_strStep += strStep + QLatin1Char(' ');
        m_lstSteps.append(QString(strStep).remove(m_strFolder));
    }

    void type()
    {
        if (!m_pFixture->editor() || m_pFixture->editor()->isReadOnly())
            return;
        const int nToken = ++m_nToken;
        note(QStringLiteral("type %1").arg(nToken));
        m_pFixture->editor()->insertPlainText(QStringLiteral("[%1]").arg(nToken));
        m_setOwed.insert(nToken);
    }

    // Commands after which every token is still there.
    void rearrange()
    {
        CHighlightEdit *pEditor = m_pFixture->editor();
        if (!pEditor || pEditor->isReadOnly())
            return;
        const int nCommand = below(6);
        note(QStringLiteral("rearrange %1").arg(nCommand));
        if (nCommand == 0) {
            QTextCursor cursor(
                pEditor->document()->findBlockByNumber(below(pEditor->blockCount())));
            pEditor->setTextCursor(cursor);
        } else if (nCommand == 1) {
            pEditor->selectAll();
            pEditor->cut();
            pEditor->undo();
        } else if (nCommand == 2) {
            pEditor->selectAll();
            QTest::keyClick(pEditor, Qt::Key_Tab);
            pEditor->undo();
        } else if (nCommand == 3) {
            pEditor->setLineWrap(below(2));
        } else if (nCommand == 4) {
            pEditor->moveCursor(QTextCursor::StartOfBlock);
            pEditor->insertPlainText(QStringLiteral("\n").repeated(1 + below(100)));
        } else {
            pEditor->undo();
            pEditor->redo();
        }
        pEditor->moveCursor(QTextCursor::EndOfBlock); // What is typed must replace nothing.
    }

    void open()
    {
        const QString strPath = anyPath();
        note("open " + strPath);
        if (!m_mapDisk.contains(strPath))
            return;
        // Now and then the same file under another spelling.
        const QString strSpelled = below(6) ? strPath : m_strFolder + "/./" + strPath.right(5);
        window().parseArgument(QLatin1Char('"') + strSpelled + QLatin1Char('"'));
    }

    // What a save of the document does to the model, once it has succeeded.
    void noteSaved(const QString &strPath, const QString &strText)
    {
        m_mapDisk[canonical(strPath)] = strText.toUtf8();
        settle(strText);
    }

    QString canonical(const QString &strPath) const
    {
        return m_strFolder + QLatin1Char('/') + QFileInfo(strPath).fileName();
    }

    void settle(const QString &strText)
    {
        const QList<int> lstTokens = tokensIn(strText);
        for (const int nToken : lstTokens)
            m_setOwed.remove(nToken);
    }

    void save()
    {
        CDocument &document = current();
        if (!document.editor() || document.path().isEmpty() || !document.canSave())
            return;
        note("save " + document.path());
        const QString strText = document.editor()->getText();
        const bool bSaved = window().on_actionSave_triggered();
        if (bSaved) {
            noteSaved(document.path(), strText);
        } else {
            QVERIFY(!document.notice().strText.isEmpty());
            if (below(2)) {
                note("overwrite");
                QVERIFY2(press("Overwrite"), qPrintable(document.notice().strText));
                noteSaved(document.path(), strText);
            }
        }
    }

    void saveAs()
    {
        CDocument &document = current();
        if (!document.editor() || !document.canSave())
            return;
        const QString strPath = anyPath();
        note("save as " + strPath);
        const QString strText = document.editor()->getText();
        const CFileDialogAnswer answer({strPath});
        const CBoxAnswer overwrite({QMessageBox::Yes}); // The dialog's own question.
        if (window().on_actionSave_As_triggered())
            noteSaved(strPath, strText);
    }

    void foreignWrite(const QString &strPath)
    {
        note("foreign " + strPath);
        QByteArray bytes = "theirs " + QByteArray::number(++m_nToken);
        if (below(3) == 0)
            bytes += QByteArray("\nand more of it").repeated(100 + below(400));
        QFile file(strPath);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(strPath));
        m_mapDisk[strPath] = bytes;
    }

    void remove(const QString &strPath)
    {
        note("delete " + strPath);
        QFile::remove(strPath);
        m_mapDisk.remove(strPath);
    }

    void refresh()
    {
        CDocument &document = current();
        if (document.path().isEmpty() || document.isArriving())
            return;
        const bool bYes = below(3);
        note(QStringLiteral("refresh %1").arg(bYes));
        const bool bGone = !m_mapDisk.contains(canonical(document.path()));
        const QString strText = document.editor()->getText();
        QList<QMessageBox::StandardButton> lstAnswers = {QMessageBox::Ok}; // "Fail to open file".
        if (document.isModified())
            lstAnswers.prepend(bYes ? QMessageBox::Yes : QMessageBox::Cancel);
        const CBoxAnswer answer(lstAnswers, arrival());
        window().on_actionRefresh_triggered();
        if (bYes && !bGone)
            settle(strText); // Declined in a box that named the loss, or not modified.
    }

    // A later start hands a file over while a question stands.
    std::function<void()> arrival()
    {
        if (below(2))
            return {};
        const QString strPath = anyPath();
        return [this, strPath] {
            note("arrives " + strPath);
            window().parseArgument(QLatin1Char('"') + strPath + QLatin1Char('"'));
        };
    }

    void refreshByMenu()
    {
        if (!m_pFixture->editor() || current().path().isEmpty())
            return;
        note("menu refresh");
        const CBoxAnswer answer({QMessageBox::Ok});
        m_pFixture->editor()->onRefresh();
    }

    void chooseCodec()
    {
        note("codec");
        static const char *const s_arrCodecs[] = {"windows-1252", "UTF-8", "Shift_JIS"};
        static_cast<void>(current().setCodec(QString::fromLatin1(s_arrCodecs[below(3)])));
    }

    void closeTab()
    {
        CTabWidget &tabs = m_pFixture->tabs();
        if (tabs.count() == 0)
            return;
        const int nIndex = below(tabs.count());
        CDocument &asked = *documentOf(nIndex);
        CDocument &saved = current(); // By specification the current one, whichever is asked about.
        const QMessageBox::StandardButton arrAnswers[] = {QMessageBox::Yes, QMessageBox::No,
                                                          QMessageBox::Cancel};
        const QMessageBox::StandardButton answer = arrAnswers[below(3)];
        note(QStringLiteral("close %1 of %2 answer %3").arg(nIndex).arg(tabs.count()).arg(answer));
        const QString strAsked = asked.editor()->getText();
        QString strSaved = saved.editor()->getText();
        if (saved.isArriving()) { // It may be there as a whole before the box is answered.
            connect(
                &saved, &CDocument::saved, &saved,
                [&strSaved, &saved] { strSaved = saved.editor()->getText(); });
        }
        const QString strSavedPath = saved.path();
        const bool bModified = asked.isModified();
        QSignalSpy spySaved(&saved, &CDocument::saved);
        if (strSavedPath.isEmpty() && answer == QMessageBox::Yes)
            return;
        const CBoxAnswer boxes({answer}, arrival());
        const QPointer<CDocument> pSaved(&saved);
        window().onTabCloseRequested(nIndex);
        if (pSaved)
            pSaved->disconnect(pSaved);
        if (bModified && answer == QMessageBox::No)
            settle(strAsked);
        if (bModified && !spySaved.isEmpty())
            noteSaved(strSavedPath, strSaved);
    }

    CDocument *documentOf(int nIndex)
    {
        const int nCurrent = m_pFixture->tabs().currentIndex();
        m_pFixture->tabs().setCurrentIndex(nIndex);
        CDocument *pDocument = &current();
        m_pFixture->tabs().setCurrentIndex(nCurrent);
        return pDocument;
    }

    bool press(const QString &strText)
    {
        const auto lst = window().findChild<CNoticeBar *>()->findChildren<QPushButton *>();
        for (QPushButton *pButton : lst) {
            if (pButton->text() == strText && pButton->isVisibleTo(pButton->parentWidget())) {
                pButton->click();
                return true;
            }
        }
        return false;
    }

    void answerNotice()
    {
        note("restore");
        press("Restore");
    }

    // A pause that lasts until drafts are written.
    void pause()
    {
        note("pause");
        window().documents().drafts().flush();
        m_setOnDraft = m_setOwed;
    }

    void restart(bool bKilled)
    {
        note(bKilled ? "kill" : "end");
        const QString strDrafts = CWindowFixture::draftFolder();
        const QString strSnapshot = m_strFolder + "/snapshot";
        if (bKilled) {
            // A killed program would leave the present files.
            window().documents().drafts().finish();
            copyFolder(strDrafts, strSnapshot);
        }
        m_pFixture.reset();
        if (bKilled) {
            copyFolder(strSnapshot, strDrafts);
            QDir(strSnapshot).removeRecursively();
            // What was typed since the last drafts is lost, and nothing else.
            forgetWhatIsNowhere();
        }
        m_pFixture = std::make_unique<CWindowFixture>();
        QCoreApplication::processEvents();
        if (window().findChild<CNoticeBar *>()->text().contains("eft unsaved"))
            QVERIFY(press("Recover"));
    }

    void forgetWhatIsNowhere()
    {
        const QSet<int> setFound = tokensInDrafts();
        const QSet<int> setLost = m_setOwed - setFound;
        for (const int nToken : setLost)
            QVERIFY2(!m_setOnDraft.contains(nToken),
                     qPrintable(QStringLiteral("[%1] was in a draft, and is not in: %2")
                                    .arg(nToken)
                                    .arg(drafts())));
        m_setOwed -= setLost;
    }

    QSet<int> tokensInDrafts() const
    {
        QSet<int> setTokens;
        QDirIterator it(CWindowFixture::draftFolder(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            SDraft draft;
            if (!draftFromBytes(CWindowFixture::content(it.next()), &draft))
                continue;
            const QList<int> lstTokens = tokensIn(draft.strText);
            for (const int nToken : lstTokens)
                setTokens.insert(nToken);
        }
        return setTokens;
    }

    QString drafts() const
    {
        QString strAll;
        QDirIterator it(CWindowFixture::draftFolder(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            SDraft draft;
            if (draftFromBytes(CWindowFixture::content(it.next()), &draft))
                strAll += draft.strPath + ": " + draft.strText + "; ";
        }
        return strAll;
    }

    void check(bool bAll)
    {
        if (QTest::currentTestFailed())
            return;
        for (auto it = m_mapDisk.cbegin(); it != m_mapDisk.cend(); ++it) {
            QVERIFY2(CWindowFixture::content(it.key()) == it.value(),
                     qPrintable(m_strStep + it.key() + " holds " + CWindowFixture::content(it.key())
                                + ", not " + it.value()));
        }
        QSet<int> setMissing = m_setOwed;
        for (CDocument *pDocument : window().documents().all()) {
            const QList<int> lstTokens = tokensIn(pDocument->editor()->getText());
            for (const int nToken : lstTokens)
                setMissing.remove(nToken);
        }
        setMissing -= bAll ? QSet<int>() : m_setDropped;
        if (setMissing.isEmpty())
            return;
        window().documents().drafts().flush();
        const QSet<int> setInDrafts = tokensInDrafts();
        for (const int nToken : qAsConst(setMissing)) {
            QVERIFY2(setInDrafts.contains(nToken),
                     qPrintable(QStringLiteral("lost [%1]: %2").arg(nToken).arg(m_strStep)));
            m_setDropped.insert(nToken);
        }
    }

    std::unique_ptr<CWindowFixture> m_pFixture;
    QRandomGenerator m_random;
    bool m_bLarge = false; // Texts of more than a screen count as very large.
    QString m_strFolder;
    QString m_strStep;
    QStringList m_lstSteps;
    QMap<QString, QByteArray> m_mapDisk; // What each file must hold.
    QSet<int> m_setOwed;
    QSet<int> m_setOnDraft; // Were owed when drafts were last written.
    QSet<int> m_setDropped; // Found in a draft after they had left the editors.
    int m_nToken = 0;
};

QTEST_MAIN(tst_nothinglost)
#include "tst_nothinglost.moc"
