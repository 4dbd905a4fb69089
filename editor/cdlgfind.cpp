#include "editor/cdlgfind.h"

#include "app/csettings.h"
#include "editor/windowplace.h"

#include "ui_cdlgfind.h"

#include <QEvent>
#include <QHideEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScreen>

namespace {

const int g_nFindTab = 0;
const int g_nReplaceTab = 1;

void setBoxText(QComboBox *pBox, const QString &strText)
{
    if (pBox->currentText() != strText)
        pBox->setEditText(strText);
}

// Text that the user types into one box, or picks from its history, is copied to the other.
void mirrorEntries(QComboBox *pFrom, QComboBox *pTo)
{
    const auto copy = [pTo](const QString &strText) { setBoxText(pTo, strText); };
    QObject::connect(pFrom->lineEdit(), &QLineEdit::textEdited, pTo, copy);
    QObject::connect(pFrom, &QComboBox::textActivated, pTo, copy);
}

} // namespace

CDlgFind::CDlgFind(QWidget *pParent) : QDialog(pParent), m_pUi(new Ui::CDlgFind)
{
    m_pUi->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    prepareBoxes();
    loadOptions();
    connectButtons();
    // The form measured its first page before the texts were set, and would measure it again only
    // when that page is shown. On the other page the dialog would begin too narrow and then jump.
    m_pUi->gridLayout_find->invalidate();
    m_pUi->verticalLayout_find->invalidate();
}

CDlgFind::~CDlgFind() = default;

void CDlgFind::prepareBoxes()
{
    for (QComboBox *pBox :
         {m_pUi->comboBox_find, m_pUi->comboBox_replace_find, m_pUi->comboBox_repalce}) {
        pBox->setInsertPolicy(QComboBox::NoInsert);
        // Completion would turn "Abc" into an earlier "abc".
        pBox->setCompleter(nullptr);
        pBox->lineEdit()->setAccessibleName(pBox->accessibleName());
    }
    // The search reads its text from the Find tab's box, so Replace must not find an older text
    // there than the one just entered beside it.
    mirrorEntries(m_pUi->comboBox_replace_find, m_pUi->comboBox_find);
    mirrorEntries(m_pUi->comboBox_find, m_pUi->comboBox_replace_find);
}

void CDlgFind::loadOptions()
{
    const QScopedValueRollback<bool> updating(m_bUpdating, true);
    m_pUi->slider_transparent->setValue(g_pSettings->m_nFindTransparent);
    m_pUi->slider_transparent_2->setValue(g_pSettings->m_nFindTransparent);
    m_pUi->checkBox_match_whole_word->setChecked(g_pSettings->m_bFindMatchWholeWord);
    m_pUi->checkBox_match_whole_word_2->setChecked(g_pSettings->m_bFindMatchWholeWord);
    m_pUi->checkBox_match_case->setChecked(g_pSettings->m_bFindMatchCase);
    m_pUi->checkBox_match_case_2->setChecked(g_pSettings->m_bFindMatchCase);
    m_pUi->checkBox_use_regular_exp->setChecked(g_pSettings->m_bFindUseRegularExpression);
    m_pUi->checkBox_use_regular_exp_2->setChecked(g_pSettings->m_bFindUseRegularExpression);
    m_pUi->checkBox_search_up->setChecked(g_pSettings->m_bFindSearchUp);
    m_pUi->checkBox_wrap_search->setChecked(g_pSettings->m_bFindWrapSearch);
    m_pUi->checkBox_auto_close_after->setChecked(g_pSettings->m_bFindCloseAfterFindNext);
}

// The histories take the text after the owner has searched for it.
void CDlgFind::connectButtons()
{
    connect(m_pUi->btn_find_next, &QPushButton::clicked, this, &CDlgFind::emitFindNext);
    connect(m_pUi->btn_replace, &QPushButton::clicked, this, &CDlgFind::emitReplace);
    connect(m_pUi->btn_replace_all, &QPushButton::clicked, this, &CDlgFind::emitReplaceAll);
    connect(m_pUi->btn_find_next, &QPushButton::clicked, this, &CDlgFind::onFind);
    connect(m_pUi->btn_replace, &QPushButton::clicked, this, &CDlgFind::onReplace);
    connect(m_pUi->btn_replace_all, &QPushButton::clicked, this, &CDlgFind::onReplaceAll);
}

QString CDlgFind::getFindText() const
{
    return m_pUi->comboBox_find->currentText();
}

QString CDlgFind::getReplaceText() const
{
    return m_pUi->comboBox_repalce->currentText();
}

void CDlgFind::setFindText(const QString &strText)
{
    // Sets both boxes, because a change of tab copies the shown one over the other.
    for (QComboBox *pBox : {m_pUi->comboBox_find, m_pUi->comboBox_replace_find}) {
        pBox->setEditText(strText);
        if (!strText.isEmpty())
            pBox->lineEdit()->selectAll();
    }
}

void CDlgFind::showFind()
{
    present(g_nFindTab);
}

void CDlgFind::showReplace()
{
    present(g_nReplaceTab);
}

void CDlgFind::present(int nTab)
{
    m_pUi->tabWidget->setCurrentIndex(nTab);
    on_tabWidget_currentChanged(nTab);
    setWindowOpacity(1.0);
    show();
    setAttribute(Qt::WA_Moved); // Keeps the dialog where it is; Qt would move it each time.
    raise();
    activateWindow();
}

void CDlgFind::uncover(const QRect &spot)
{
    if (!isVisible())
        return;
    const QPoint place = placeBeside(frameGeometry(), spot, screen()->availableGeometry());
    if (place != pos())
        move(place);
}

void CDlgFind::on_tabWidget_currentChanged(int index)
{
    QComboBox *pFind = m_pUi->comboBox_find;
    QComboBox *pReplaceFind = m_pUi->comboBox_replace_find;
    if (index == g_nFindTab) {
        setWindowTitle(tr("Find"));
        setBoxText(pFind, pReplaceFind->currentText());
        focusBox(pFind);
    } else if (index == g_nReplaceTab) {
        setWindowTitle(tr("Replace"));
        setBoxText(pReplaceFind, pFind->currentText());
        focusBox(pReplaceFind);
    }
}

void CDlgFind::focusBox(QComboBox *pBox)
{
    pBox->setFocus();
    pBox->lineEdit()->selectAll();
}

void CDlgFind::showInfo(const QString &strText, bool bError)
{
    const QString strSpan = bError ? QStringLiteral("<span style='color:Red'>%1</span>")
                                   : QStringLiteral("<span style='color:#27a650'>%1</span>");
    m_strInfo = strText;
    m_pUi->label_info->setText(strSpan.arg(strText.toHtmlEscaped()));
}

void CDlgFind::clearInfo()
{
    m_strInfo.clear();
    m_pUi->label_info->clear();
}

void CDlgFind::onFindToTop()
{
    showInfo(tr("Find: the top has been reached."), false);
}

void CDlgFind::onFindToBottom()
{
    showInfo(tr("Find: the end has been reached."), false);
}

void CDlgFind::onCannotFound()
{
    showInfo(tr("Find: the string cannot be found."), true);
}

void CDlgFind::onReplaceNum(int nVal)
{
    const QString strText = nVal < 2 ? tr("Replace All: %1 item has been replaced.")
                                     : tr("Replace All: %1 items have been replaced.");
    showInfo(strText.arg(nVal), false);
}

QString CDlgFind::countText(int nIndex, int nCount)
{
    return tr("%1 of %2").arg(nIndex).arg(nCount);
}

void CDlgFind::onFindCounted(int nIndex, int nCount)
{
    const QString strCount = countText(nIndex, nCount);
    showInfo(m_strInfo.isEmpty() ? strCount : m_strInfo + QLatin1Char(' ') + strCount, false);
}

void CDlgFind::onFind()
{
    addToHistory(m_pUi->comboBox_find->currentText().trimmed());
}

void CDlgFind::onReplace()
{
    addToHistory(m_pUi->comboBox_replace_find->currentText().trimmed());
}

void CDlgFind::onReplaceAll()
{
    addToHistory(m_pUi->comboBox_replace_find->currentText().trimmed());
}

void CDlgFind::addToHistory(const QString &strText)
{
    if (strText.isEmpty())
        return;
    const int nOld =
        m_pUi->comboBox_find->findText(strText, Qt::MatchExactly | Qt::MatchCaseSensitive);
    for (QComboBox *pBox : {m_pUi->comboBox_find, m_pUi->comboBox_replace_find}) {
        if (nOld >= 0)
            pBox->removeItem(nOld);
        pBox->insertItem(0, strText);
        pBox->setCurrentIndex(0);
        setBoxText(pBox, strText);
    }
}

void CDlgFind::storeOption(bool *pOption, int nState, QCheckBox *pTwin)
{
    if (m_bUpdating)
        return;
    *pOption = nState != Qt::Unchecked;
    g_pSettings->save();
    if (pTwin) {
        const QScopedValueRollback<bool> updating(m_bUpdating, true);
        pTwin->setChecked(*pOption);
    }
}

void CDlgFind::storeTransparency(int nValue, QSlider *pTwin)
{
    if (m_bUpdating)
        return;
    g_pSettings->m_nFindTransparent = nValue;
    g_pSettings->save();
    const QScopedValueRollback<bool> updating(m_bUpdating, true);
    pTwin->setValue(nValue);
}

void CDlgFind::on_checkBox_match_whole_word_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindMatchWholeWord, arg1, m_pUi->checkBox_match_whole_word_2);
}

void CDlgFind::on_checkBox_match_whole_word_2_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindMatchWholeWord, arg1, m_pUi->checkBox_match_whole_word);
}

void CDlgFind::on_checkBox_match_case_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindMatchCase, arg1, m_pUi->checkBox_match_case_2);
}

void CDlgFind::on_checkBox_match_case_2_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindMatchCase, arg1, m_pUi->checkBox_match_case);
}

void CDlgFind::on_checkBox_use_regular_exp_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindUseRegularExpression, arg1, m_pUi->checkBox_use_regular_exp_2);
}

void CDlgFind::on_checkBox_use_regular_exp_2_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindUseRegularExpression, arg1, m_pUi->checkBox_use_regular_exp);
}

void CDlgFind::on_checkBox_search_up_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindSearchUp, arg1);
}

void CDlgFind::on_checkBox_wrap_search_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindWrapSearch, arg1);
}

void CDlgFind::on_checkBox_auto_close_after_stateChanged(int arg1)
{
    storeOption(&g_pSettings->m_bFindCloseAfterFindNext, arg1);
}

void CDlgFind::on_slider_transparent_valueChanged(int value)
{
    storeTransparency(value, m_pUi->slider_transparent_2);
}

void CDlgFind::on_slider_transparent_2_valueChanged(int value)
{
    storeTransparency(value, m_pUi->slider_transparent);
}

void CDlgFind::changeEvent(QEvent *pEvent)
{
    QDialog::changeEvent(pEvent);
    if (pEvent->type() == QEvent::ActivationChange)
        setWindowOpacity(isActiveWindow() ? 1.0 : g_pSettings->m_nFindTransparent / 100.0);
}

void CDlgFind::hideEvent(QHideEvent *pEvent)
{
    QDialog::hideEvent(pEvent);
    if (!pEvent->spontaneous()) // Minimising is not closing.
        emit emitClosed();
}
