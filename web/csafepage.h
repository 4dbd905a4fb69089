#pragma once

#include "web/pagesource.h"

#include <QUrl>
#include <QWebPage>

#include <functional>

class CPageNetwork;
class QWebView;

// A page on which nothing of the document's own runs: no scripts, plug-ins, Java or media, no
// network for a local document, no error pages, no window of its own. It goes to another address
// only within navigate() or after a click, never by itself.
class CSafePage : public QWebPage
{
    Q_OBJECT

public:
    explicit CSafePage(QObject *pParent = nullptr);
    ~CSafePage() override;

    // Makes this the view's page and shows it on white, as its author saw it. A page without
    // colours has black text, which would be unreadable on a dark desktop's black.
    void showIn(QWebView *pView);

    // Runs a load, reload or step in the history. A file is read once, before the call returns:
    // source() tells what was read.
    void navigate(const std::function<void()> &load);
    // The same for a file that was read already, and for a page given as text; no file is read
    // then.
    void navigateTo(const SPageSource &source, const std::function<void()> &load);
    // The source that the page was made from, or is being made from.
    const SPageSource &source() const { return m_source; }
    CPageNetwork *network() const { return m_pNetwork; }
    bool supportsExtension(Extension extension) const override;
    // Called before the clipboard is pasted; true if it has done the pasting.
    void setPaste(const std::function<bool()> &paste) { m_paste = paste; }
    void triggerAction(WebAction action, bool bChecked = false) override;

signals:
    // A click on a link to another document; only signalled while the page is not editable, as a
    // click in an editable page sets the caret. Nothing is loaded yet.
    void linkFollowed(const QUrl &url);

protected:
    bool acceptNavigationRequest(QWebFrame *pFrame, const QNetworkRequest &request,
                                 NavigationType type) override;

private:
    void restrictSettings();
    void begin(const QUrl &url);
    bool isRedirect(const QUrl &url) const;
    bool isWithinDocument(const QUrl &url) const;

    CPageNetwork *m_pNetwork;
    SPageSource m_source;
    const SPageSource *m_pGiven = nullptr; // While navigateTo() runs.
    std::function<bool()> m_paste;
    bool m_bNavigating = false;
    bool m_bLoading = false;
};
