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

// Handles keys in an edited page: Enter in headings, items and quotations, Tab in items, formats
// chosen for the next typing, and bold and italic with the page's own elements. A child of the
// page, which it watches.
class CPageTyping : public QObject
{
    Q_OBJECT

public:
    // The object of the page; made at the first call.
    static CPageTyping *of(CEditWebView *pPage);

    // Adds a format for the next typing at the caret, or takes it off; colours ("color",
    // "background-color") can only be taken off. It is forgotten when the caret moves.
    void choose(const QString &strMark, bool bOn);
    // The next typing has no format at all.
    void choosePlain();
    // The same for the selection now, or at a caret for the next typing.
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
    QHash<QString, bool> m_chosen; // The keys are marks; "*" stands for all.
    bool m_bMoved = true; // The caret may have come to a place between blocks.
    bool m_bComposing =
        false; // Letters of an input method that are not typed yet stand in the page.
    bool m_bComposedBegins = false; // These letters begin a paragraph.
    bool m_bFormatted = false; // The web view has a format of its own for the next typing.
};
