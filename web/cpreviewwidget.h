#pragma once

#include "web/ctaster.h"

#include <QMenu>
#include <QTimer>
#include <QUrl>
#include <QVariantMap>
#include <QWidget>

#include <functional>

class CEditWebView;
class CHighlightEdit;
class CImageWidget;
class CPreviewNotice;
class CSafePage;
class QWebView;

// The preview dock's content: one file, HTML text or SVG text at a time, read-only. Links and
// scripts of what is shown do nothing, and nothing is asked from the network. What cannot be read
// shows as empty.
//
// A page or drawing that was only selected is first shown by a helper program (see ctaster.h). If
// the file crashes the helper, its source is shown as text, and a notice says why. Text that is
// handed over is shown at once, unless its file is known to crash.
class CPreviewWidget : public QWidget
{
    Q_OBJECT

public:
    // The language definition for a path; an empty map for none.
    using DefinitionFunction = std::function<QVariantMap(const QString &)>;

    explicit CPreviewWidget(QWidget *pParent = nullptr);

    void setDefinitionFunction(const DefinitionFunction &function) { m_definition = function; }

    // Shows nothing; the file stays known.
    void clearPreview();
    // A folder or missing file only changes the dock's title. At most 500000 bytes of text are
    // read, and lines that take long to lay out are cut.
    void previewFile(const QString &strPath);
    // Makes an existing file the one that the dock's title names, and shows it when bLoad is set.
    void setFile(const QString &strPath, bool bLoad);
    void previewHtml(const QString &strHtml, const QUrl &urlBase);
    void previewSvg(const QString &strSvg);
    // Empty for none.
    QString file() const { return m_strFile; }
    // Sets where the helper's findings are kept, and what crashed the program itself.
    CTaster *taster() { return &m_taster; }
    // The panel's message about its file; empty if there is none.
    QString notice() const;

public slots:
    void onClickAction();

protected:
    void contextMenuEvent(QContextMenuEvent *pEvent) override;
    void resizeEvent(QResizeEvent *pEvent) override;

private:
    void updateTitle();
    void addView(QWidget *pView);
    CImageWidget *imageView();
    QWebView *webFileView();
    CEditWebView *webTextView();
    void onTasted(const QString &strPath, CTaster::Result result);
    void onShowAnyway();
    bool sayWhyRefused(const QString &strPath, CTaster::Result result);
    void say(const QString &strText, const QString &strButton = QString());
    void placeNotice();
    void showRendered(const QString &strPath);
    void showPage(const QString &strPath);
    void showText(const QString &strPath);
    void setText(const QByteArray &bytes);
    void deleteTextView();

    QString m_strFile;
    CImageWidget *m_pImage = nullptr;
    CHighlightEdit *m_pText = nullptr;
    QWebView *m_pWebFile = nullptr;
    CEditWebView *m_pWebText = nullptr;
    QMenu m_menuContext;
    QAction *m_pActOpenPosition;
    CSafePage *m_pFilePage = nullptr; // The page of m_pWebFile.
    DefinitionFunction m_definition;
    CTaster m_taster;
    CPreviewNotice *m_pNotice;
    QString m_strRefused; // The file that the notice is about.
    std::function<void()> m_showAnyway; // What the notice's button does.
    QTimer m_timerTasting; // Before the panel says that it has to wait.
};
