// Tells about pictures that a page may not show.
#include "web/ceditwebview.h"

#include "web/localresources.h"

#include <QFileInfo>
#include <QHelpEvent>
#include <QToolTip>
#include <QWebElement>
#include <QWebFrame>

namespace {

enum class EHidden { No, Outside, Network };

EHidden hiddenState(const QUrl &urlPage, const QUrl &urlBase, const QWebElement &picture)
{
    const QString strSource = picture.attribute(QStringLiteral("src")).trimmed();
    if (strSource.isEmpty() || !urlPage.isLocalFile())
        return EHidden::No;
    const QUrl url = urlBase.resolved(QUrl(strSource));
    if (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
        return EHidden::Network;
    const QString strPage = urlPage.toLocalFile();
    const QString strFile = url.toLocalFile();
    if (url.isLocalFile() && !isOnMachineOf(strPage, strFile))
        return EHidden::Network;
    const bool bHidden =
        url.isLocalFile() && QFileInfo(strFile).isFile() && !mayReadLocal(strPage, strFile);
    return bHidden ? EHidden::Outside : EHidden::No;
}

} // namespace

void CEditWebView::tellHiddenPictures()
{
    const QWebElementCollection lstPictures =
        page()->mainFrame()->findAllElements(QStringLiteral("img[src], input[type=image][src]"));
    int nOutside = 0;
    int nNetwork = 0;
    for (const QWebElement &picture : lstPictures) {
        const EHidden hidden = hiddenState(url(), page()->mainFrame()->baseUrl(), picture);
        nOutside += hidden == EHidden::Outside;
        nNetwork += hidden == EHidden::Network;
    }
    QString strText;
    if (nOutside > 0 && nNetwork > 0)
        strText = tr("%1 pictures are not shown: they lie outside the page's folders or on the "
                     "network");
    else if (nOutside > 0)
        strText = nOutside == 1
            ? tr("1 picture is not shown: it lies outside the page's folders")
            : tr("%1 pictures are not shown: they lie outside the page's folders");
    else if (nNetwork > 0)
        strText = nNetwork == 1 ? tr("1 picture is not shown: it lies on the network")
                                : tr("%1 pictures are not shown: they lie on the network");
    if (strText.contains(QLatin1String("%1")))
        strText = strText.arg(nOutside + nNetwork);
    // Pictures on the network are common, and nobody expects to see them here, so a line in the
    // status bar is enough. A picture outside the page's folders was meant to be shown and can be
    // moved, so the notice bar tells it.
    const QString strNotice = nOutside > 0 ? strText : QString();
    if (nOutside == 0 && !strText.isEmpty())
        emit statusMessage(strText);
    if (strNotice != m_strNotice) {
        m_strNotice = strNotice;
        emit notice(strNotice);
    }
}

bool CEditWebView::showPictureToolTip(const QHelpEvent *pEvent)
{
    const QWebHitTestResult hit = page()->mainFrame()->hitTestContent(pEvent->pos());
    const EHidden hidden = hiddenState(url(), page()->mainFrame()->baseUrl(), hit.element());
    if (hidden == EHidden::No)
        return false;
    QToolTip::showText(pEvent->globalPos(),
                       hidden == EHidden::Network
                           ? tr("Not shown: the picture lies on the network")
                           : tr("Not shown: the picture lies outside the page's folders"),
                       this);
    return true;
}
