#pragma once

#include "pageedit/ctypedblanks.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QVariantMap>
#include <QWebPage>

#include <functional>

class CEditWebView;
class QInputMethodEvent;
class QKeyEvent;

// What keys mean in a page that is written: Enter in headings, items and quotations, Tab in items,
// the formats chosen for what is typed next, and bold and italic letters in the page's own
// elements. A child of the page, which it watches.
class CPageTyping : public QObject
{
    Q_OBJECT

public:
    // The one of the page; made at the first call.
    static CPageTyping *of(CEditWebView *pPage);

    // What is typed next at the caret has the format, or has it not; colours ("color",
    // "background-color") can only be taken off. Forgotten when the caret goes elsewhere.
    void choose(const QString &strMark, bool bOn);
    // What is typed next has no format at all.
    void choosePlain();
    // The same, now for what is selected, for a caret for what is typed next.
    static void takeColorOff(CEditWebView *pPage, bool bBackground);
    const QHash<QString, bool> &chosen() const { return m_chosen; }

signals:
    void chosenChanged();

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    explicit CPageTyping(CEditWebView *pPage);

    bool takeFormat(QWebPage::WebAction action);
    bool takeKey(const QKeyEvent *pEvent);
    bool takeDeletion(const QKeyEvent *pEvent);
    bool joinsParagraphs(bool bBack) const;
    void changeUnstyled(const std::function<void()> &change);
    bool takeEnter();
    bool takeTab(bool bBack);
    bool takeText(const QString &strText, bool bComposedBegins = false);
    bool typeDressed(const QString &strText, const QVariantMap &arguments);
    bool takeComposed(const QInputMethodEvent *pEvent);
    bool beginsParagraph();
    bool isFirstText() const;
    void forget();

    QPointer<CEditWebView> m_pPage;
    CTypedBlanks m_blanks;
    QHash<QString, bool> m_chosen; // By mark; "*": all of them.
    bool m_bMoved = true; // The caret may have come to a place between blocks.
    bool m_bComposing = false; // An input method has letters in the page that are not typed yet,
    bool m_bComposedBegins = false; // and they begin a paragraph.
    bool m_bFormatted = false; // The web view has a format of its own for what is typed next.
};
