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

// The spelling of a page while it is edited: wavy lines below the misspelt words that can be seen,
// and words to take for one of them. The marks are drawn over the view and are no part of the page.
//
// The language of a word is that of the element around it (lang), else the system's. The word that
// is being typed is not marked before the caret has left it. Needs g_pSpelling, without which, or
// without a dictionary, nothing happens. A child of the view. GUI thread only.
class CPageSpelling : public QObject
{
    Q_OBJECT

public:
    explicit CPageSpelling(CEditWebView *pView);

    // Selects the misspelt word at the caret or the next one, and offers others for it.
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
    CSuggestionMenu *m_pMenu = nullptr; // From the first offer on.
    QVector<SText> m_texts; // As they were asked for last.
    QPair<int, int> m_caret; // In which of them, and where; -1 for none.
    QString m_strSelected;
    Word m_offered; // The word that the menu is about.
    QVector<QRectF> m_boxes; // Of misspelt words, in the document.
    bool m_bTyping = false; // The last thing that happened to the page.
    QTimer m_timerCheck;
    QTimer m_timerMeasure;
};
