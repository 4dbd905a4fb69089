#pragma once

#include <QObject>
#include <QPair>
#include <QRectF>
#include <QTimer>
#include <QVariantList>
#include <QVector>

class CEditWebView;
class CSuggestionMenu;
class QPainter;

// Checks the spelling of a page while it is edited: draws wavy lines below the visible misspelt
// words and offers replacements. The marks are drawn over the view and are no part of the page.
//
// The language of a word is that of the element around it (lang), else the system's. The word that
// is being typed is not marked before the caret has left it. Without g_pSpelling, or without a
// dictionary, nothing happens. A child of the view. GUI thread only.
class CPageSpelling : public QObject
{
    Q_OBJECT

public:
    explicit CPageSpelling(CEditWebView *pView);

    // Selects the misspelt word at the caret or the next one, and offers replacements.
    void suggest();
    // Turns the marks on or off, in all pages.
    void toggleMarks();

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    struct SText
    {
        QString strText;
        QString strLanguage;
    };
    // A word of a text: the text's number, start and length.
    using Word = QVariantList;

    bool isShown() const;
    void ask(bool bAll);
    QVector<Word> misspeltIn(int nText) const;
    bool isTyped(const Word &word) const;
    void checkSoon();
    void check();
    void followTyping();
    void measure();
    void show(const QVariant &varBoxes);
    void paint(QPainter *pPainter) const;
    QRect inView(const QRectF &box) const;
    Word nextWord() const;
    void offer(const Word &word);
    void take(const QString &strText);
    void add(const QString &strWord);

    CEditWebView *m_pView;
    CSuggestionMenu *m_pMenu = nullptr; // Made for the first offer.
    QVector<SText> m_texts; // The texts that were last checked.
    QPair<int, int> m_caret; // The caret: in which text, and where; -1 for none.
    QString m_strSelected;
    Word m_offered; // The word that the menu is about.
    QVector<QRectF> m_boxes; // The boxes of misspelt words, in the document.
    bool m_bTyping = false; // True if the last change of the page was typing.
    QTimer m_timerCheck;
    QTimer m_timerMeasure;
};
