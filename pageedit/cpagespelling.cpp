#include "pageedit/cpagespelling.h"

#include "app/csettings.h"
#include "pageedit/pagecommands.h"
#include "spelling/cspelling.h"
#include "spelling/csuggestionmenu.h"
#include "spelling/spellwords.h"
#include "spelling/wavyline.h"
#include "web/ceditwebview.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWebFrame>
#include <QWebView>

namespace {

const int g_nCheckDelay = 250; // Milliseconds without a key.

} // namespace

CPageSpelling::CPageSpelling(CEditWebView *pView) : QObject(pView), m_pView(pView), m_caret(-1, 0)
{
    m_timerCheck.setSingleShot(true);
    m_timerCheck.setInterval(g_nCheckDelay);
    m_timerMeasure.setSingleShot(true);
    m_timerMeasure.setInterval(0);
    connect(&m_timerCheck, &QTimer::timeout, this, &CPageSpelling::check);
    connect(&m_timerMeasure, &QTimer::timeout, this, &CPageSpelling::measure);
    const QWebPage *pPage = pView->page();
    connect(pPage, &QWebPage::contentsChanged, this, &CPageSpelling::followTyping);
    connect(pPage, &QWebPage::selectionChanged, this, &CPageSpelling::checkSoon);
    connect(pPage, &QWebPage::scrollRequested, this, &CPageSpelling::checkSoon);
    connect(pPage->mainFrame(), &QWebFrame::contentsSizeChanged, this, &CPageSpelling::checkSoon);
    connect(pView, &QWebView::loadFinished, this, &CPageSpelling::checkSoon);
    connect(pView, &CEditWebView::painted, this, &CPageSpelling::paint);
    if (g_pSpelling)
        connect(g_pSpelling, &CSpelling::changed, this, &CPageSpelling::check);
    pView->installEventFilter(this);
}

bool CPageSpelling::eventFilter(QObject *pObject, QEvent *pEvent)
{
    if (pEvent->type() == QEvent::KeyPress) {
        const auto *pKey = static_cast<QKeyEvent *>(pEvent);
        const bool bShift = pKey->modifiers() == Qt::ShiftModifier;
        if (pKey->key() == Qt::Key_F4 && (bShift || pKey->modifiers() == Qt::NoModifier)) {
            bShift ? toggleMarks() : suggest();
            return true;
        }
    }
    if (pEvent->type() == QEvent::Resize || pEvent->type() == QEvent::Show)
        checkSoon();
    return QObject::eventFilter(pObject, pEvent);
}

bool CPageSpelling::isShown() const
{
    return g_pSpelling && g_pSettings->m_bPageSpelling && m_pView->isVisible()
        && m_pView->isBodyEdited() && !m_pView->isSourceShown();
}

void CPageSpelling::ask(bool bAll)
{
    const QVariantMap answer =
        askPage(m_pView, QStringLiteral("spelledTexts"), {{QStringLiteral("all"), bAll}}).toMap();
    m_texts.clear();
    const QVariantList lstTexts = answer.value(QStringLiteral("texts")).toList();
    for (const QVariant &varText : lstTexts) {
        const QVariantList lstText = varText.toList();
        m_texts.append({lstText.value(0).toString(), lstText.value(1).toString()});
    }
    const QVariantList lstCaret = answer.value(QStringLiteral("caret")).toList();
    m_caret = {lstCaret.value(0, -1).toInt(), lstCaret.value(1).toInt()};
    m_strSelected = answer.value(QStringLiteral("selected")).toString();
}

QVector<CPageSpelling::Word> CPageSpelling::misspeltIn(int nText) const
{
    QVector<Word> lst;
    const SText &text = m_texts.at(nText);
    const QVector<SSpellWord> lstWords = spellWords(text.strText);
    for (const SSpellWord &word : lstWords)
        if (!g_pSpelling->isCorrect(text.strLanguage, text.strText.mid(word.nStart, word.nLength)))
            lst.append({nText, word.nStart, word.nLength});
    return lst;
}

bool CPageSpelling::isTyped(const Word &word) const
{
    const int nStart = word.at(1).toInt();
    return m_bTyping && word.at(0).toInt() == m_caret.first && nStart <= m_caret.second
        && m_caret.second <= nStart + word.at(2).toInt();
}

void CPageSpelling::checkSoon()
{
    m_timerMeasure.start();
    m_timerCheck.start();
}

// The marks move with the text at once. Which words are misspelt is checked at the next pause.
void CPageSpelling::followTyping()
{
    m_bTyping = true;
    checkSoon();
}

void CPageSpelling::check()
{
    m_timerCheck.stop();
    if (!isShown()) {
        show(QVariant());
        return;
    }
    ask(false);
    QVariantList lstWords;
    bool bInWord = false;
    for (int n = 0; n < m_texts.size(); ++n) {
        const QVector<Word> lstMisspelt = misspeltIn(n);
        for (const Word &word : lstMisspelt)
            if (isTyped(word))
                bInWord = true;
            else
                lstWords.append(QVariant(word));
    }
    m_bTyping = bInWord;
    show(askPage(m_pView, QStringLiteral("markMisspelt"), {{QStringLiteral("words"), lstWords}}));
}

void CPageSpelling::measure()
{
    if (!m_boxes.isEmpty())
        show(isShown() ? askPage(m_pView, QStringLiteral("misspeltBoxes")) : QVariant());
}

void CPageSpelling::show(const QVariant &varBoxes)
{
    QVector<QRectF> boxes;
    const QVariantList lstBoxes = varBoxes.toList();
    for (const QVariant &varBox : lstBoxes) {
        const QVariantList lstBox = varBox.toList();
        boxes.append(QRectF(lstBox.value(0).toReal(), lstBox.value(1).toReal(),
                            lstBox.value(2).toReal(), lstBox.value(3).toReal()));
    }
    if (boxes == m_boxes)
        return;
    m_boxes.swap(boxes);
    m_pView->update();
}

// Converts a box of the document to the view's own pixels.
QRect CPageSpelling::inView(const QRectF &box) const
{
    const qreal dZoom = m_pView->zoomFactor();
    const QRectF zoomed(box.topLeft() * dZoom, box.size() * dZoom);
    return zoomed.toRect().translated(-m_pView->page()->mainFrame()->scrollPosition());
}

void CPageSpelling::paint(QPainter *pPainter) const
{
    for (const QRectF &box : m_boxes)
        paintWavyLine(pPainter, inView(box));
}

void CPageSpelling::toggleMarks()
{
    const bool bMark = !g_pSettings->m_bPageSpelling;
    g_pSettings->m_bPageSpelling = bMark;
    check();
    emit m_pView->statusMessage(bMark ? tr("Misspelt words are marked.")
                                      : tr("Misspelt words are no longer marked."));
}

// The word that the caret touches, else the first one after it. Skips the word that was just
// offered. Empty for none.
CPageSpelling::Word CPageSpelling::nextWord() const
{
    for (int n = qMax(0, m_caret.first); n < m_texts.size(); ++n) {
        const QVector<Word> lstMisspelt = misspeltIn(n);
        for (const Word &word : lstMisspelt) {
            const int nStart = word.at(1).toInt();
            const bool bBefore = n == m_caret.first && nStart + word.at(2).toInt() < m_caret.second;
            const bool bOffered = n == m_caret.first && nStart == m_caret.second
                && m_strSelected == m_texts.at(n).strText.mid(nStart, word.at(2).toInt());
            if (!bBefore && !bOffered)
                return word;
        }
    }
    return {};
}

void CPageSpelling::suggest()
{
    if (!g_pSpelling || !m_pView->isBodyEdited())
        return;
    ask(true);
    bool bDictionary = m_texts.isEmpty();
    QStringList lstAsked;
    for (const SText &text : qAsConst(m_texts)) {
        if (!lstAsked.contains(text.strLanguage)) {
            lstAsked.append(text.strLanguage);
            bDictionary = g_pSpelling->prepare(text.strLanguage) || bDictionary;
        }
    }
    const Word word = nextWord();
    if (!word.isEmpty())
        offer(word);
    else
        emit m_pView->statusMessage(bDictionary ? tr("No misspelt word follows.")
                                                : tr("There is no dictionary for this language."));
}

void CPageSpelling::offer(const Word &word)
{
    if (!m_pMenu) {
        m_pMenu = new CSuggestionMenu(m_pView);
        connect(m_pMenu, &CSuggestionMenu::chosen, this, &CPageSpelling::take);
        connect(m_pMenu, &CSuggestionMenu::added, this, &CPageSpelling::add);
    }
    m_offered = word;
    askPage(m_pView, QStringLiteral("selectWord"), {{QStringLiteral("word"), word}});
    const SText text = m_texts.at(word.at(0).toInt());
    const QString strWord = text.strText.mid(word.at(1).toInt(), word.at(2).toInt());
    m_pMenu->offer(strWord, g_pSpelling->suggestions(text.strLanguage, strWord),
                   m_pView->selectedSpot().bottomLeft());
}

void CPageSpelling::take(const QString &strText)
{
    runPageCommand(m_pView, QStringLiteral("replaceWord"),
                   {{QStringLiteral("word"), m_offered}, {QStringLiteral("text"), strText}});
    m_bTyping = false;
}

void CPageSpelling::add(const QString &strWord)
{
    QString strError;
    if (!g_pSpelling->addWord(strWord, &strError))
        emit m_pView->statusMessage(tr("The word could not be kept: %1").arg(strError));
}
