// Tells for selected files whether they can be shown, and why not.
#include "web/cimagewidget.h"
#include "web/cpreviewnotice.h"
#include "web/cpreviewwidget.h"
#include "web/ctaster.h"
#include "web/pagesuffix.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLayout>

namespace {

// The kinds of files that a vulnerable engine shows.
bool isTasted(const QString &strSuffix)
{
    return isPageSuffix(strSuffix) || strSuffix == QLatin1String("svg")
        || strSuffix == QLatin1String("svgz");
}

QString suffixOf(const QString &strPath)
{
    return QFileInfo(strPath).suffix().toLower();
}

} // namespace

void CPreviewWidget::previewFile(const QString &strPath)
{
    const QFileInfo info(strPath);
    if (info.exists() && !info.isDir()) {
        m_strFile = strPath;
        clearPreview();
        m_taster.warmUp(); // Starts the helper, which the next file may need.
        if (isTasted(suffixOf(strPath))) {
            m_timerTasting.start();
            m_taster.taste(strPath, size());
        } else {
            showRendered(strPath);
        }
    }
    updateTitle();
}

void CPreviewWidget::onTasted(const QString &strPath, CTaster::Result result)
{
    if (strPath != m_strFile)
        return;
    say(QString());
    if (!sayWhyRefused(strPath, result)) {
        showRendered(strPath);
        return;
    }
    showText(strPath);
    m_showAnyway = [this, strPath] { previewFile(strPath); };
}

// True if something is known against the file.
bool CPreviewWidget::sayWhyRefused(const QString &strPath, CTaster::Result result)
{
    const QString strAnyway = isPageSuffix(suffixOf(strPath)) ? tr("Show the page anyway")
                                                              : tr("Show the drawing anyway");
    m_strRefused = strPath;
    switch (result) {
    case CTaster::Result::TooSlow:
        say(tr("This file is not drawn here: that takes too long."), strAnyway);
        return true;
    case CTaster::Result::TooLarge:
        say(tr("This file is not drawn here: that takes too much memory."), strAnyway);
        return true;
    case CTaster::Result::Fails:
        say(tr("This file is not drawn here: it would crash the program."), strAnyway);
        return true;
    default:
        return false;
    }
}

void CPreviewWidget::onShowAnyway()
{
    m_taster.setKnown(m_strRefused, CTaster::Result::Good);
    const std::function<void()> show = m_showAnyway; // Which it may replace.
    show();
}

QString CPreviewWidget::notice() const
{
    return m_pNotice->text();
}

// An empty text shows no notice. The notice is above the view, which makes room for it.
void CPreviewWidget::say(const QString &strText, const QString &strButton)
{
    m_timerTasting.stop();
    m_pNotice->say(strText, strButton);
    placeNotice();
}

void CPreviewWidget::placeNotice()
{
    const int nHeight = m_pNotice->isHidden() ? 0 : m_pNotice->heightForWidth(width());
    m_pNotice->setGeometry(0, 0, width(), nHeight);
    layout()->setContentsMargins(0, nHeight, 0, 0);
}

void CPreviewWidget::resizeEvent(QResizeEvent *pEvent)
{
    QWidget::resizeEvent(pEvent);
    placeNotice();
}

void CPreviewWidget::showRendered(const QString &strPath)
{
    const QString strSuffix = suffixOf(strPath);
    if (isPageSuffix(strSuffix)) {
        showPage(strPath);
    } else if (QImageReader::supportedImageFormats().contains(strSuffix.toLatin1())) {
        imageView()->show();
        imageView()->setImageFile(strPath);
    } else {
        showText(strPath);
    }
}
