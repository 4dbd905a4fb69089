// Text that the program dropped, or that was left at its end, can be recovered.
#include "cdocumentsfixture.h"

#include "app/cdescriptor.h"
#include "app/cdraftstore.h"
#include "app/cinplacejournal.h"
#include "app/platformfiles.h"
#include "document/cdocument.h"
#include "document/cdraftkeeper.h"
#include "document/crecovery.h"
#include "document/notice.h"

#include <QDir>
#include <QDirIterator>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QSessionManager>
#include <QTextCodec>
#include <QTimer>

namespace {

// Drafts can then no longer be written.
bool replaceFolderByFile(const CDocumentsFixture &f)
{
    const bool bRemoved = QDir(f.path("recovery")).removeRecursively();
    f.write(f.path("recovery"), "no folder");
    return bRemoved;
}

QStringList draftFiles(const CDocumentsFixture &f)
{
    QStringList lstFiles;
    QDirIterator it(f.path("recovery"), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString strFile = it.next();
        if (QFileInfo(strFile).fileName() != "lock")
            lstFiles.append(strFile);
    }
    return lstFiles;
}

// Recovers what the program offers into documents, as the window does.
void recoverInto(CDocumentsFixture &f, QList<CDocument *> *pDocuments)
{
    QObject::connect(
        &f.documents().recovery(), &CRecovery::recoverWanted, &f.documents(),
        [&f, pDocuments](const SDraft &draft) {
            auto *pDocument = new CEditorDocument(nullptr);
            f.documents().add(pDocument);
            f.documents().restore(pDocument, draft);
            pDocuments->append(pDocument);
        });
}

// A file that was half written when the program ended.
QString cutOffFile(const CDocumentsFixture &f)
{
    CInPlaceJournal::setFolder(f.path("in-place"));
    const QString strPath = f.file("a.txt", "the old version");
    const CDescriptor file(Platform::openFile(strPath, Platform::FileAccess::ReadWrite));
    CInPlaceJournal journal;
    if (!journal.begin(strPath, file.handle(), "the new version"))
        qFatal("no journal");
    f.write(strPath, "the new");
    if (journal.putBack(-1)) // Nowhere: the copy stays.
        qFatal("put back");
    return strPath;
}

} // namespace

class tst_recovery : public QObject
{
    Q_OBJECT

private slots:
    // Drafts are written on a thread while the user goes on, and even after the document is gone.
    void draftWithItsTextLater_isOfTheMomentItWasTaken()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "one\xe2\x80\xa9\ntwo\xc2\xa0"));
        f.type(pDocument, "mine ");
        const SDraft now = pDocument->draft();
        const SDraft later = pDocument->draftWithTextLater();
        f.type(pDocument, "more ");
        f.start();
        QVERIFY(later.strText.isEmpty() && !now.textLater);
        QVERIFY(now.strText.contains("mine ") && now.strText.contains(QChar(0x2029)));
        QVERIFY(now.strText.endsWith(QChar(QChar::Nbsp)));
        QCOMPARE(later.textLater(), now.strText);
        QCOMPARE(later.nCaret, now.nCaret);
    }

    void draft_overAFileThatHasChanged_raisesTheNotice_andSaveAsks()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.type(f.open(strPath), "mine ");
        f.start();
        f.write(strPath, "theirs");
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        QCOMPARE(lstDocuments.size(), 1);
        CDocument *pDocument = lstDocuments.constFirst();
        QVERIFY(pDocument->notice().strText.contains("Another program has changed"));
        QVERIFY(!pDocument->save().isDone());
        QCOMPARE(f.content(strPath), QByteArray("theirs"));
        QCOMPARE(pDocument->editor()->toPlainText(), QString("mine old"));
    }

    void draft_overAnUnchangedFile_savesWithoutAQuestion()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old\r\n");
        f.type(f.open(strPath), "mine ");
        f.start();
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        QVERIFY(lstDocuments.constFirst()->save().isDone());
        QCOMPARE(f.content(strPath), QByteArray("mine old\r\n"));
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), QStringList());
    }

    void everyCharacter_survivesRecovery_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("lone surrogate") << QString("a") + QChar(0xd800) + QString("b");
        QTest::newRow("leading U+FEFF") << QString(QChar(0xfeff)) + QString("a");
        QTest::newRow("zero") << QString("a") + QChar(0) + QString("b");
        QTest::newRow("no-break space") << QString(QChar(0xa0)) + QString("x");
        QTest::newRow("line separator") << QString("a") + QChar(0x2028) + QString("b");
    }

    void everyCharacter_survivesRecovery()
    {
        QFETCH(QString, text);
        CDocumentsFixture f;
        auto *pDocument = new CEditorDocument(nullptr);
        f.documents().add(pDocument);
        f.type(pDocument, text);
        f.start();
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        QCOMPARE(lstDocuments.constFirst()->editor()->rawText(), text);
        QVERIFY(lstDocuments.constFirst()->isModified());
    }

    void recovering_writesNothing_soAFullDiskLosesNothing()
    {
        CDocumentsFixture f;
        f.type(f.open(f.file("a.txt", "old")), "mine ");
        f.start();
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        const QStringList lstBefore = draftFiles(f);
        QCOMPARE(lstBefore.size(), 1);
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), lstBefore); // The document stands for the very same draft.
        f.start(); // And it is offered again if the program ends now.
        f.documents().recovery().offerAbandoned();
        QVERIFY(f.documents().recovery().notice().strText.contains("a.txt"));
    }

    void endOfTheSession_keepsWhatIsTyped_beforeAnybodyIsAsked()
    {
        CDocumentsFixture f;
        f.type(f.open(f.file("a.txt", "old")), "mine ");
        QCOMPARE(draftFiles(f), QStringList());
        // Only the system's plug-in can make one, and nobody looks at it.
        alignas(QSessionManager) char arrNobody[sizeof(QSessionManager)] = {};
        emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager &>(arrNobody));
        QCOMPARE(draftFiles(f).size(), 1);
    }

    void contextMenuRefresh_overUnsavedText_offersItAtOnce()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        f.type(pDocument, "mine ");
        pDocument->editor()->onRefresh();
        QCOMPARE(pDocument->editor()->toPlainText(), QString("old"));
        QVERIFY(pDocument->notice().strText.contains("a.txt"));
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QCOMPARE(pDocument->editor()->toPlainText(), QString("mine old"));
        QVERIFY(pDocument->isModified());
        QCOMPARE(pDocument->notice().strText, QString());
        QVERIFY(pDocument->save().isDone());
        QCOMPARE(f.content(strPath), QByteArray("mine old"));
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), QStringList()); // The draft was the document's again.
    }

    void restoring_keepsWhatWasTypedSince()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "first ");
        pDocument->editor()->onRefresh();
        f.type(pDocument, "second ");
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QCOMPARE(pDocument->editor()->toPlainText(), QString("first old"));
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QCOMPARE(pDocument->editor()->toPlainText(), QString("second old"));
    }

    void replacedText_thatNobodyAnswersFor_isOfferedAtTheNextStart()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        pDocument->editor()->onRefresh();
        f.start();
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        QCOMPARE(lstDocuments.constFirst()->editor()->toPlainText(), QString("mine old"));
    }

    void discardedText_isGone()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        pDocument->editor()->onRefresh();
        QVERIFY(choose(pDocument->notice(), "Discard"));
        QCOMPARE(pDocument->notice().strText, QString());
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), QStringList());
    }

    void refreshThatWasAgreedTo_leavesNoDraft()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        QVERIFY(pDocument->reload().isDone()); // The window has asked.
        QCOMPARE(pDocument->notice().strText, QString());
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), QStringList());
    }

    void closedWithUnsavedText_isOfferedAtOnce()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("notes.txt", "old"));
        f.type(pDocument, "mine ");
        f.documents().closeDropping(pDocument);
        QCOMPARE(f.documents().recovery().notice().strText,
                 QString("notes.txt was closed with unsaved changes."));
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        QVERIFY(choose(f.documents().recovery().notice(), "Restore"));
        QCOMPARE(lstDocuments.constFirst()->editor()->toPlainText(), QString("mine old"));
        QCOMPARE(f.documents().recovery().notice().strText, QString());
    }

    void closedText_thatIsDiscarded_isGone()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        f.documents().closeDropping(pDocument);
        QVERIFY(choose(f.documents().recovery().notice(), "Discard"));
        QCOMPARE(f.documents().recovery().notice().strText, QString());
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), QStringList());
    }

    void closedOnTheUsersWord_leavesNoDraft()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f).size(), 1);
        f.documents().close(pDocument);
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f), QStringList());
        QCOMPARE(f.documents().recovery().notice().strText, QString());
    }

    void closingTheLastCopyOfADeletedFile_keepsIt()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "the only copy");
        CDocument *pDocument = f.open(strPath);
        QVERIFY(QFile::remove(strPath));
        f.documents().close(pDocument);
        QVERIFY(f.documents().recovery().notice().strText.contains("no longer there"));
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        QVERIFY(choose(f.documents().recovery().notice(), "Restore"));
        QVERIFY(lstDocuments.constFirst()->isModified());
        QVERIFY(lstDocuments.constFirst()->save().isDone());
        QCOMPARE(f.content(strPath), QByteArray("the only copy"));
    }

    void codecThatCannotHoldWhatWasTyped_offersIt()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "ascii "));
        QVERIFY(pDocument->setCodec("windows-1251").isDone());
        f.type(pDocument, QString::fromUtf8("日本 "));
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QVERIFY(!pDocument->editor()->toPlainText().contains(QString::fromUtf8("日本")));
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QCOMPARE(pDocument->editor()->toPlainText(), QString::fromUtf8("日本 ascii "));
    }

    void draftsThatCannotBeWritten_areTold_andTriedAgain()
    {
#ifdef Q_OS_WIN
        QSKIP("A folder goes only when nobody has a file of it open.");
#endif
        CDocumentsFixture f;
        QVERIFY(replaceFolderByFile(f));
        CDraftKeeper &drafts = f.documents().drafts();
        QSignalSpy spy(&drafts, &CDraftKeeper::workingChanged);
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        drafts.flush();
        QCOMPARE(spy.size(), 1);
        QVERIFY(!drafts.isWorking());
        QVERIFY(!drafts.why().isEmpty());
        QVERIFY(f.documents().recovery().notice().strText.contains(drafts.why()));
        QVERIFY(QFile::remove(f.path("recovery")));
        drafts.flush();
        QCOMPARE(spy.size(), 2);
        QVERIFY(drafts.isWorking());
        QVERIFY(f.documents().recovery().notice().strText.isEmpty());
        QCOMPARE(draftFiles(f).size(), 1);
    }

    void restoredText_takesThePlaceOfTheDocumentsDraft()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        f.documents().drafts().flush();
        pDocument->editor()->onRefresh();
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QVERIFY(pDocument->editor()->getText().startsWith("mine "));
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f).size(), 1);
    }

    void typingWithoutAPause_isKeptNowAndThen()
    {
        CDocumentsFixture f;
        CDraftKeeper &drafts = f.documents().drafts();
        drafts.setDelays(1000, 2000);
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        QVERIFY(QTest::qWaitFor(
            [&] {
                f.type(pDocument, "x");
                return !draftFiles(f).isEmpty();
            },
            60000));
        drafts.flush();
        f.type(pDocument, "y");
        auto *pTimer = drafts.findChild<QTimer *>();
        QCOMPARE(pTimer->interval(), 1000); // Not at each key from then on.
        QSignalSpy spy(pTimer, &QTimer::timeout);
        QVERIFY(spy.wait());
        QVERIFY(!pTimer->isActive()); // A program that is left alone has nothing to write.
    }

    // Nothing is typed after the failure, so only the timer can bring the next try.
    void draftsThatCannotBeWritten_areTriedAgainByThemselves()
    {
#ifdef Q_OS_WIN
        QSKIP("A folder goes only when nobody has a file of it open.");
#endif
        CDocumentsFixture f;
        QVERIFY(replaceFolderByFile(f));
        CDraftKeeper &drafts = f.documents().drafts();
        f.type(f.open(f.file("a.txt", "old")), "mine ");
        drafts.flush();
        QVERIFY(!drafts.isWorking());
        QVERIFY(QFile::remove(f.path("recovery")));
        auto *pTimer = drafts.findChild<QTimer *>();
        QVERIFY(pTimer->isActive());
        pTimer->start(0); // Users wait for 20 seconds.
        QTRY_VERIFY(drafts.isWorking());
        QCOMPARE(draftFiles(f).size(), 1);
    }

    void keptTextThatCannotBeWritten_isTriedAgain()
    {
#ifdef Q_OS_WIN
        QSKIP("A folder goes only when nobody has a file of it open.");
#endif
        CDocumentsFixture f;
        QVERIFY(replaceFolderByFile(f));
        CDocument *pDocument = f.open(f.file("a.txt", "old"));
        f.type(pDocument, "mine ");
        f.documents().closeDropping(pDocument); // No document holds it any more.
        f.documents().drafts().flush();
        QVERIFY(!f.documents().drafts().isWorking());
        QVERIFY(QFile::remove(f.path("recovery")));
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f).size(), 1);
        f.start();
        f.documents().recovery().offerAbandoned();
        QVERIFY(f.documents().recovery().notice().strText.contains("a.txt"));
    }

    void recoveryFolderThatIsRemoved_isFilledAgain()
    {
#ifdef Q_OS_WIN
        QSKIP("A folder goes only when nobody has a file of it open.");
#endif
        CDocumentsFixture f;
        f.documents().drafts().setDelays(600000, 600000); // No later change brings the others back.
        for (const char *szName : {"a.txt", "b.txt"})
            f.type(f.open(f.file(szName, "old")), "mine ");
        f.documents().drafts().flush();
        QCOMPARE(draftFiles(f).size(), 2);
        QVERIFY(QDir(f.path("recovery")).removeRecursively());
        f.type(f.documents().all().constFirst(), "more ");
        f.documents().drafts().flush();
        QTRY_COMPARE(draftFiles(f).size(), 2); // Not only the one that was typed in.
    }

    void fiveHundredDrafts_comeBackOneByOne()
    {
        CDocumentsFixture f;
        for (int n = 0; n < 500; ++n) {
            f.documents().drafts().keep(*f.open(f.file("a.txt", QByteArray::number(n))),
                                        SDraft::Reason::Closed);
            f.documents().close(f.documents().all().constLast());
        }
        f.start();
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        const SNotice notice = f.documents().recovery().notice();
        QVERIFY(notice.strText.size() < 1000);
        QCOMPARE(notice.lstItems.size(), 500);
        notice.lstChoices.at(1).chosenOf({}); // "Discard" with nothing chosen.
        QCOMPARE(f.documents().recovery().notice().lstItems.size(), 500);
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        QVERIFY(lstDocuments.size() < 500); // The event loop lives between some and the next.
        QTRY_COMPARE_WITH_TIMEOUT(lstDocuments.size(), 500, 60000);
        QSet<QString> setTexts;
        for (CDocument *pDocument : qAsConst(lstDocuments))
            setTexts.insert(pDocument->editor()->rawText());
        QCOMPARE(setTexts.size(), 500);
    }

    void someOfTheDrafts_areChosenAndTheOthersOfferedAgain()
    {
        CDocumentsFixture f;
        for (const char *szName : {"a.txt", "b.txt", "c.txt"})
            f.type(f.open(f.file(szName, "old")), szName);
        f.start();
        QList<CDocument *> lstDocuments;
        recoverInto(f, &lstDocuments);
        f.documents().recovery().offerAbandoned();
        SNotice notice = f.documents().recovery().notice();
        const int nSecond = notice.lstItems.indexOf(QRegularExpression("^b\\.txt \\(.+\\)$"));
        QVERIFY(nSecond >= 0);
        notice.lstChoices.at(0).chosenOf({nSecond});
        QCOMPARE(lstDocuments.size(), 1);
        QCOMPARE(lstDocuments.constFirst()->editor()->rawText(), QString("b.txtold"));
        notice = f.documents().recovery().notice();
        QCOMPARE(notice.lstItems.size(), 2);
        notice.lstChoices.at(1).chosenOf({0});
        f.documents().drafts().finish();
        notice = f.documents().recovery().notice();
        QVERIFY(notice.lstItems.isEmpty());
        QVERIFY(notice.strText.contains("Left unsaved"));
        QCOMPARE(draftFiles(f).size(), 2); // The recovered one, and the one that is offered.
        notice.lstChoices.at(0).chosen();
        QCOMPARE(lstDocuments.size(), 2);
        QVERIFY(f.documents().recovery().notice().strText.isEmpty());
    }

    void formatting_keepsTheUnsavedTextBefore()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.xml", "<a><b/></a>"));
        pDocument->editor()->setDefinition({{"language", QVariantMap {{"name", "XML"}}}});
        f.type(pDocument, "<!--mine-->");
        QVERIFY(pDocument->editor()->formatting());
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QCOMPARE(pDocument->editor()->toPlainText(), QString("<!--mine--><a><b/></a>"));
    }

    void cutOffSave_isTakenBackOnTheUsersWord()
    {
        CDocumentsFixture f;
        const QString strPath = cutOffFile(f);
        CRecovery &recovery = f.documents().recovery();
        recovery.offerCutOff();
        QVERIFY(recovery.notice().strText.contains("a.txt was cut off"));
        QVERIFY(choose(recovery.notice(), "Put the old version back"));
        QCOMPARE(f.content(strPath), QByteArray("the old version"));
        QVERIFY(recovery.notice().strText.isEmpty());
        recovery.offerCutOff();
        QVERIFY(recovery.notice().strText.isEmpty());
    }

    void cutOffSave_isLeftOnTheUsersWord()
    {
        CDocumentsFixture f;
        const QString strPath = cutOffFile(f);
        CRecovery &recovery = f.documents().recovery();
        recovery.offerCutOff();
        QVERIFY(choose(recovery.notice(), "Leave the file as it is"));
        QCOMPARE(f.content(strPath), QByteArray("the new"));
        QVERIFY(recovery.notice().strText.isEmpty());
        recovery.offerCutOff();
        QVERIFY(recovery.notice().strText.isEmpty());
    }

    void cutOffSaveThatCannotBeTakenBack_staysOffered()
    {
        CDocumentsFixture f;
        const QString strPath = cutOffFile(f);
        CRecovery &recovery = f.documents().recovery();
        recovery.offerCutOff();
        QVERIFY(QFile::remove(strPath));
        QSignalSpy spyFailed(&recovery, &CRecovery::failed);
        QVERIFY(choose(recovery.notice(), "Put the old version back"));
        QCOMPARE(spyFailed.count(), 1);
        QVERIFY(recovery.notice().strText.contains("a.txt was cut off"));
        f.write(strPath, "made again");
        QVERIFY(choose(recovery.notice(), "Put the old version back"));
        QCOMPARE(f.content(strPath), QByteArray("the old version"));
        QVERIFY(recovery.notice().strText.isEmpty());
    }
};

QTEST_MAIN(tst_recovery)
#include "tst_recovery.moc"
