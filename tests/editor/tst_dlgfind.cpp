#include "editor/cdlgfind.h"

#include "withsettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QSlider>
#include <QTabWidget>
#include <QtTest>

class tst_dlgfind : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void texts_areThoseOfTheForm_data();
    void texts_areThoseOfTheForm();
    void everyControl_hasAnAccessibleNameOrText();
    void sliders_goFromTwentyToHundred();
    void options_comeFromTheSettings();
    void option_isStoredAtOnce_data();
    void option_isStoredAtOnce();
    void transparency_isStoredAtOnce_data();
    void transparency_isStoredAtOnce();
    void construction_storesNothing();
    void find_goesIntoTheHistoryOfBothBoxes();
    void repeatedText_movesToTheFront();
    void otherCase_isAnotherEntry();
    void blankText_isNotKept();
    void historyFollowsTheOwner();
    void replaceButtons_keepTheReplaceTabsText();
    void enterInTheBox_isFindNextOnce();
    void enterInTheBox_addsOneEntry();
    void completion_doesNotChangeWhatIsTyped();
    void escape_closes();
    void hiding_tellsItOnce();
    void changeOfTab_copiesTextAndTitle();
    void textTypedOnTheReplaceTab_isTheFindText();
    void setFindText_selectsIt();
    void setFindText_survivesShowFind();
    void shownAgain_standsWhereItWas();
    void showFind_focusesTheBox();
    void showReplace_focusesTheBox();
    void changeOfTab_keepsTheWidth();
    void dialogOverTheMatch_makesWay();
    void messages_areThoseOfTheSearch();
    void count_comesBehindTheMessage();
    void message_isNeverMarkup();
    void inactiveDialog_isTranslucent();

private:
    template<class T> T *child(const char *pName) const
    {
        return m_pDialog->findChild<T *>(QLatin1String(pName));
    }
    QStringList history(const char *pName) const
    {
        QStringList lst;
        for (int i = 0; i < child<QComboBox>(pName)->count(); ++i)
            lst.append(child<QComboBox>(pName)->itemText(i));
        return lst;
    }
    void find(const QString &strText)
    {
        child<QComboBox>("comboBox_find")->setEditText(strText);
        child<QPushButton>("btn_find_next")->click();
    }

    std::unique_ptr<WithSettings> m_pSettings;
    std::unique_ptr<CDlgFind> m_pDialog;
};

void tst_dlgfind::init()
{
    m_pSettings = std::make_unique<WithSettings>();
    m_pDialog = std::make_unique<CDlgFind>();
}

void tst_dlgfind::cleanup()
{
    m_pDialog.reset();
    m_pSettings.reset();
}

void tst_dlgfind::texts_areThoseOfTheForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *pName, const char *pText) {
        QTest::newRow(pName) << pName << pText;
    };
    row("label_3", "Find what:");
    row("label", "Find what:");
    row("label_2", "Replace with:");
    row("checkBox_match_whole_word", "Match whole word only");
    row("checkBox_match_whole_word_2", "Match whole word only");
    row("checkBox_match_case", "Match case");
    row("checkBox_match_case_2", "Match case");
    row("checkBox_use_regular_exp", "Use regular expression");
    row("checkBox_use_regular_exp_2", "Use regular expression");
    row("checkBox_search_up", "Search up");
    row("checkBox_wrap_search", "Wrap search");
    row("checkBox_auto_close_after", "Auto close after click \"Find Next\"");
    row("groupBox_4", "Thransparent");
    row("groupBox", "Thransparent");
    row("btn_find_next", "Find Next");
    row("btn_replace", "Replace");
    row("btn_replace_all", "Replace All");
    row("label_info", "");
}

void tst_dlgfind::texts_areThoseOfTheForm()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    const QWidget *pWidget = m_pDialog->findChild<QWidget *>(name);
    QVERIFY(pWidget);
    const char *pProperty = qobject_cast<const QGroupBox *>(pWidget) ? "title" : "text";
    QCOMPARE(pWidget->property(pProperty).toString(), text);
    QCOMPARE(m_pDialog->objectName(), QString("CDlgFind"));
    QCOMPARE(m_pDialog->windowTitle(), QString("Find"));
    const auto *pTabs = child<QTabWidget>("tabWidget");
    QCOMPARE(pTabs->currentIndex(), 0);
    QCOMPARE(pTabs->tabText(0), QString("Find"));
    QCOMPARE(pTabs->tabText(1), QString("Replace"));
    QCOMPARE(pTabs->widget(0)->objectName(), QString("tab"));
    QCOMPARE(pTabs->widget(1)->objectName(), QString("tab_2"));
}

void tst_dlgfind::everyControl_hasAnAccessibleNameOrText()
{
    int nControls = 0;
    for (const QWidget *pWidget : m_pDialog->findChildren<QWidget *>()) {
        if (qobject_cast<const QComboBox *>(pWidget) || qobject_cast<const QSlider *>(pWidget)) {
            QVERIFY2(!pWidget->accessibleName().isEmpty(), qPrintable(pWidget->objectName()));
            ++nControls;
        }
    }
    QCOMPARE(nControls, 5);
    QCOMPARE(child<QLabel>("label_3")->buddy(), child<QWidget>("comboBox_find"));
    QCOMPARE(child<QLabel>("label")->buddy(), child<QWidget>("comboBox_replace_find"));
    QCOMPARE(child<QLabel>("label_2")->buddy(), child<QWidget>("comboBox_repalce"));
}

void tst_dlgfind::sliders_goFromTwentyToHundred()
{
    for (const char *pName : {"slider_transparent", "slider_transparent_2"}) {
        const auto *pSlider = child<QSlider>(pName);
        QCOMPARE(pSlider->minimum(), 20);
        QCOMPARE(pSlider->maximum(), 100);
        QCOMPARE(pSlider->singleStep(), 10);
        QCOMPARE(pSlider->orientation(), Qt::Horizontal);
        QCOMPARE(pSlider->value(), 90);
    }
}

void tst_dlgfind::options_comeFromTheSettings()
{
    QVERIFY(child<QCheckBox>("checkBox_wrap_search")->isChecked());
    QVERIFY(!child<QCheckBox>("checkBox_match_case")->isChecked());
    (*m_pSettings)->m_bFindMatchCase = true;
    (*m_pSettings)->m_bFindWrapSearch = false;
    (*m_pSettings)->m_nFindTransparent = 40;
    m_pDialog = std::make_unique<CDlgFind>();
    QVERIFY(!child<QCheckBox>("checkBox_wrap_search")->isChecked());
    QVERIFY(child<QCheckBox>("checkBox_match_case")->isChecked());
    QVERIFY(child<QCheckBox>("checkBox_match_case_2")->isChecked());
    QCOMPARE(child<QSlider>("slider_transparent")->value(), 40);
    QCOMPARE(child<QSlider>("slider_transparent_2")->value(), 40);
}

void tst_dlgfind::option_isStoredAtOnce_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("twin");
    QTest::addColumn<QString>("key");
    const auto row = [](const char *pBox, const char *pTwin, const char *pKey) {
        QTest::newRow(pBox) << pBox << pTwin << pKey;
    };
    row("checkBox_match_whole_word", "checkBox_match_whole_word_2", "m_bFindMatchWholeWord");
    row("checkBox_match_whole_word_2", "checkBox_match_whole_word", "m_bFindMatchWholeWord");
    row("checkBox_match_case", "checkBox_match_case_2", "m_bFindMatchCase");
    row("checkBox_match_case_2", "checkBox_match_case", "m_bFindMatchCase");
    row("checkBox_use_regular_exp", "checkBox_use_regular_exp_2", "m_bFindUseRegularExpression");
    row("checkBox_use_regular_exp_2", "checkBox_use_regular_exp", "m_bFindUseRegularExpression");
    row("checkBox_search_up", "", "m_bFindSearchUp");
    row("checkBox_wrap_search", "", "m_bFindWrapSearch");
    row("checkBox_auto_close_after", "", "m_bFindCloseAfterFindNext");
}

void tst_dlgfind::option_isStoredAtOnce()
{
    QFETCH(QString, box);
    QFETCH(QString, twin);
    QFETCH(QString, key);
    auto *pBox = m_pDialog->findChild<QCheckBox *>(box);
    const bool bBefore = pBox->isChecked();
    for (const bool bNow : {!bBefore, bBefore}) {
        pBox->click();
        QCOMPARE(pBox->isChecked(), bNow);
        QCOMPARE((*m_pSettings)->value(key).toBool(), bNow);
        if (!twin.isEmpty())
            QCOMPARE(m_pDialog->findChild<QCheckBox *>(twin)->isChecked(), bNow);
    }
}

void tst_dlgfind::transparency_isStoredAtOnce_data()
{
    QTest::addColumn<QString>("slider");
    QTest::addColumn<QString>("twin");
    QTest::newRow("Find tab") << "slider_transparent"
                              << "slider_transparent_2";
    QTest::newRow("Replace tab") << "slider_transparent_2"
                                 << "slider_transparent";
}

void tst_dlgfind::transparency_isStoredAtOnce()
{
    QFETCH(QString, slider);
    QFETCH(QString, twin);
    m_pDialog->findChild<QSlider *>(slider)->setValue(50);
    QCOMPARE((*m_pSettings)->m_nFindTransparent, 50);
    QCOMPARE((*m_pSettings)->value("m_nFindTransparent").toInt(), 50);
    QCOMPARE(m_pDialog->findChild<QSlider *>(twin)->value(), 50);
}

void tst_dlgfind::construction_storesNothing()
{
    (*m_pSettings)->m_bFindMatchCase = true;
    (*m_pSettings)->m_nFindTransparent = 5; // Below what the slider shows.
    const CDlgFind dialog;
    QVERIFY(!(*m_pSettings)->contains("m_bFindMatchCase"));
    QCOMPARE((*m_pSettings)->m_nFindTransparent, 5);
}

void tst_dlgfind::find_goesIntoTheHistoryOfBothBoxes()
{
    find("  one ");
    find("two");
    QCOMPARE(history("comboBox_find"), QStringList({"two", "one"}));
    QCOMPARE(history("comboBox_replace_find"), QStringList({"two", "one"}));
    QCOMPARE(child<QComboBox>("comboBox_find")->currentText(), QString("two"));
    QCOMPARE(child<QComboBox>("comboBox_replace_find")->currentText(), QString("two"));
}

void tst_dlgfind::repeatedText_movesToTheFront()
{
    for (const char *pText : {"one", "two", "three", "one"})
        find(pText);
    QCOMPARE(history("comboBox_find"), QStringList({"one", "three", "two"}));
    QCOMPARE(history("comboBox_replace_find"), QStringList({"one", "three", "two"}));
    QCOMPARE(m_pDialog->getFindText(), QString("one"));
}

void tst_dlgfind::otherCase_isAnotherEntry()
{
    find("one");
    find("One");
    QCOMPARE(history("comboBox_find"), QStringList({"One", "one"}));
}

void tst_dlgfind::blankText_isNotKept()
{
    find("");
    find("  ");
    QCOMPARE(history("comboBox_find"), QStringList());
    QCOMPARE(m_pDialog->getFindText(), QString("  "));
}

void tst_dlgfind::historyFollowsTheOwner()
{
    QStringList lst;
    connect(m_pDialog.get(), &CDlgFind::emitFindNext, this, [&] {
        lst.append(m_pDialog->getFindText());
        lst.append(QString::number(child<QComboBox>("comboBox_find")->count()));
    });
    find(" one ");
    QCOMPARE(lst, QStringList({" one ", "0"}));
}

void tst_dlgfind::replaceButtons_keepTheReplaceTabsText()
{
    QSignalSpy replace(m_pDialog.get(), &CDlgFind::emitReplace);
    QSignalSpy replaceAll(m_pDialog.get(), &CDlgFind::emitReplaceAll);
    m_pDialog->showReplace();
    child<QComboBox>("comboBox_replace_find")->setEditText("one");
    child<QComboBox>("comboBox_repalce")->setEditText(" with ");
    child<QPushButton>("btn_replace")->click();
    child<QComboBox>("comboBox_replace_find")->setEditText("two");
    child<QPushButton>("btn_replace_all")->click();
    QCOMPARE(history("comboBox_find"), QStringList({"two", "one"}));
    QCOMPARE(replace.size(), 1);
    QCOMPARE(replaceAll.size(), 1);
    QCOMPARE(m_pDialog->getFindText(), QString("two"));
    QCOMPARE(m_pDialog->getReplaceText(), QString(" with "));
    QCOMPARE(child<QComboBox>("comboBox_repalce")->count(), 0);
}

void tst_dlgfind::enterInTheBox_isFindNextOnce()
{
    QSignalSpy spy(m_pDialog.get(), &CDlgFind::emitFindNext);
    m_pDialog->showFind();
    QVERIFY(QTest::qWaitForWindowActive(m_pDialog.get()));
    QTRY_VERIFY(QApplication::focusWidget());
    QTest::keyClicks(QApplication::focusWidget(), "abc");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(spy.size(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(spy.size(), 2);
    QVERIFY(m_pDialog->isVisible());
}

void tst_dlgfind::enterInTheBox_addsOneEntry()
{
    m_pDialog->showFind();
    auto *pEdit = child<QComboBox>("comboBox_find")->lineEdit();
    QTest::keyClicks(pEdit, "abc");
    QTest::keyClick(pEdit, Qt::Key_Return);
    QTest::keyClick(pEdit, Qt::Key_Return);
    QCOMPARE(history("comboBox_find"), QStringList("abc"));
}

void tst_dlgfind::completion_doesNotChangeWhatIsTyped()
{
    find("abcdef");
    find("x");
    m_pDialog->showFind();
    auto *pEdit = child<QComboBox>("comboBox_find")->lineEdit();
    pEdit->selectAll();
    QTest::keyClicks(pEdit, "AB");
    QCOMPARE(m_pDialog->getFindText(), QString("AB"));
}

void tst_dlgfind::escape_closes()
{
    QSignalSpy spy(m_pDialog.get(), &CDlgFind::emitClosed);
    m_pDialog->showFind();
    QTest::keyClick(child<QComboBox>("comboBox_find")->lineEdit(), Qt::Key_Escape);
    QVERIFY(!m_pDialog->isVisible());
    QCOMPARE(spy.size(), 1);
}

void tst_dlgfind::hiding_tellsItOnce()
{
    QSignalSpy spy(m_pDialog.get(), &CDlgFind::emitClosed);
    m_pDialog->showFind();
    m_pDialog->close();
    QCOMPARE(spy.size(), 1);
    m_pDialog->showFind();
    m_pDialog->hide();
    QCOMPARE(spy.size(), 2);
}

void tst_dlgfind::changeOfTab_copiesTextAndTitle()
{
    auto *pTabs = child<QTabWidget>("tabWidget");
    child<QComboBox>("comboBox_find")->setEditText("one");
    pTabs->setCurrentIndex(1);
    QCOMPARE(m_pDialog->windowTitle(), QString("Replace"));
    QCOMPARE(child<QComboBox>("comboBox_replace_find")->currentText(), QString("one"));
    child<QComboBox>("comboBox_replace_find")->setEditText("two");
    QCOMPARE(m_pDialog->getFindText(), QString("one"));
    pTabs->setCurrentIndex(0);
    QCOMPARE(m_pDialog->windowTitle(), QString("Find"));
    QCOMPARE(m_pDialog->getFindText(), QString("two"));
}

void tst_dlgfind::textTypedOnTheReplaceTab_isTheFindText()
{
    m_pDialog->showReplace();
    QTest::keyClicks(child<QComboBox>("comboBox_replace_find")->lineEdit(), "abc");
    QCOMPARE(m_pDialog->getFindText(), QString("abc"));
}

void tst_dlgfind::setFindText_selectsIt()
{
    m_pDialog->setFindText("abc");
    QCOMPARE(m_pDialog->getFindText(), QString("abc"));
    QCOMPARE(child<QComboBox>("comboBox_find")->lineEdit()->selectedText(), QString("abc"));
    m_pDialog->setFindText(QString());
    QCOMPARE(m_pDialog->getFindText(), QString());
}

void tst_dlgfind::setFindText_survivesShowFind()
{
    m_pDialog->setFindText("abc");
    m_pDialog->showFind();
    QCOMPARE(m_pDialog->getFindText(), QString("abc"));
    m_pDialog->setFindText("de");
    m_pDialog->showReplace();
    QCOMPARE(child<QComboBox>("comboBox_replace_find")->currentText(), QString("de"));
}

void tst_dlgfind::shownAgain_standsWhereItWas()
{
    m_pDialog->showFind();
    QVERIFY(QTest::qWaitForWindowActive(m_pDialog.get()));
    const QPoint posFirst = m_pDialog->pos();
    for (int n = 0; n < 2; ++n) {
        m_pDialog->hide();
        m_pDialog->showReplace();
        QVERIFY(QTest::qWaitForWindowActive(m_pDialog.get()));
        QTRY_COMPARE(m_pDialog->pos(), posFirst);
    }
}

void tst_dlgfind::showFind_focusesTheBox()
{
    QWidget owner;
    owner.show();
    owner.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&owner));
    CDlgFind dialog(&owner);
    auto *pBox = dialog.findChild<QComboBox *>("comboBox_find");
    dialog.setFindText("abc");
    for (int i = 0; i < 2; ++i) {
        dialog.showFind();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTRY_VERIFY(pBox->hasFocus());
        QCOMPARE(pBox->lineEdit()->selectedText(), QString("abc"));
        dialog.hide();
        // Asks the widgets, which know it a little later than the windows.
        QTRY_COMPARE(QApplication::activeWindow(), &owner);
    }
}

void tst_dlgfind::showReplace_focusesTheBox()
{
    m_pDialog->showReplace();
    QVERIFY(QTest::qWaitForWindowActive(m_pDialog.get()));
    QCOMPARE(child<QTabWidget>("tabWidget")->currentIndex(), 1);
    QTRY_VERIFY(child<QComboBox>("comboBox_replace_find")->hasFocus());
}

void tst_dlgfind::changeOfTab_keepsTheWidth()
{
    m_pDialog->showReplace();
    QVERIFY(QTest::qWaitForWindowExposed(m_pDialog.get()));
    const int nWidth = m_pDialog->width();
    m_pDialog->showFind();
    QTRY_VERIFY(child<QComboBox>("comboBox_find")->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(m_pDialog->width(), nWidth);
    QVERIFY(nWidth >= m_pDialog->sizeHint().width());
}

void tst_dlgfind::dialogOverTheMatch_makesWay()
{
    CDlgFind &dialog = *m_pDialog;
    dialog.showFind();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QPoint before = dialog.pos();
    dialog.uncover(QRect(dialog.frameGeometry().bottomRight() + QPoint(10, 10), QSize(50, 15)));
    QCOMPARE(dialog.pos(), before);
    const QRect spot(dialog.frameGeometry().center(), QSize(50, 15));
    dialog.uncover(spot);
    QTRY_VERIFY(!dialog.frameGeometry().intersects(spot));
    QVERIFY(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
}

void tst_dlgfind::messages_areThoseOfTheSearch()
{
    const QLabel *pLabel = child<QLabel>("label_info");
    const QString strGreen = "<span style='color:#27a650'>%1</span>";
    m_pDialog->onFindToTop();
    QCOMPARE(pLabel->text(), strGreen.arg("Find: the top has been reached."));
    m_pDialog->onFindToBottom();
    QCOMPARE(pLabel->text(), strGreen.arg("Find: the end has been reached."));
    m_pDialog->onCannotFound();
    QCOMPARE(pLabel->text(),
             QString("<span style='color:Red'>Find: the string cannot be found.</span>"));
    m_pDialog->onReplaceNum(0);
    QCOMPARE(pLabel->text(), strGreen.arg("Replace All: 0 item has been replaced."));
    m_pDialog->onReplaceNum(1);
    QCOMPARE(pLabel->text(), strGreen.arg("Replace All: 1 item has been replaced."));
    m_pDialog->onReplaceNum(3);
    QCOMPARE(pLabel->text(), strGreen.arg("Replace All: 3 items have been replaced."));
    m_pDialog->clearInfo();
    QCOMPARE(pLabel->text(), QString());
}

void tst_dlgfind::count_comesBehindTheMessage()
{
    const auto *pLabel = child<QLabel>("label_info");
    m_pDialog->onFindCounted(3, 17);
    QCOMPARE(pLabel->text(), QString("<span style='color:#27a650'>3 of 17</span>"));
    m_pDialog->clearInfo();
    m_pDialog->onFindToBottom();
    m_pDialog->onFindCounted(1, 17);
    QVERIFY(pLabel->text().contains(">Find: the end has been reached. 1 of 17<"));
    m_pDialog->clearInfo();
    m_pDialog->onFindCounted(2, 17);
    QVERIFY(pLabel->text().contains(">2 of 17<"));
}

void tst_dlgfind::message_isNeverMarkup()
{
    m_pDialog->showInfo("<img src='http://localhost/x.png'>&", true);
    QVERIFY(!child<QLabel>("label_info")->text().contains("<img"));
}

void tst_dlgfind::inactiveDialog_isTranslucent()
{
    (*m_pSettings)->m_nFindTransparent = 60;
    m_pDialog->showFind();
    QVERIFY(QTest::qWaitForWindowActive(m_pDialog.get()));
    QTRY_COMPARE(qRound(m_pDialog->windowOpacity() * 100), 100);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTRY_COMPARE(qRound(m_pDialog->windowOpacity() * 100), 60);
    m_pDialog->showFind();
    QTRY_COMPARE(qRound(m_pDialog->windowOpacity() * 100), 100);
}

QTEST_MAIN(tst_dlgfind)
#include "tst_dlgfind.moc"
