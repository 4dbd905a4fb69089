#pragma once

#include "editor/chighlightedit.h"
#include "web/cpagemerge.h"
#include "web/ctypingsteps.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWebElement>
#include <QWebView>

#include <functional>
#include <memory>
#include <optional>

class CPageReader;
class CSafePage;
class QHelpEvent;
class QMimeData;
struct SFileContent;
struct SPageSource;

// The visual editor of an HTML page: the rendered page itself is edited. Its twin, the source
// editor, shows the page's HTML.
//
// Ownership: the page owns its source editor, also while a tab widget has taken the source editor
// in the page's place and so become its parent. To close a document, delete the page editor
// (CHighlightEdit::pageEditor() gives it), whichever of the two is shown. A source editor that is
// deleted first takes its page along as soon as the event loop runs.
//
// Nothing in the page runs, and a page of this disk asks nobody on the network (see csafepage.h,
// cpagenetwork.h). Needs g_pSettings. GUI thread only.
class CEditWebView : public QWebView
{
    Q_OBJECT

public:
    explicit CEditWebView(QWidget *pParent = nullptr);
    ~CEditWebView() override;

    // Document.
    void setModified(bool bModified);
    bool isModified() const { return m_bModified; }
    // The text for the tab: the title of the page, else the file name, else "Untitled". It has a
    // "*" when modified.
    QString getTitle() const;
    QString selectedHtml() const { return QWebView::selectedHtml(); }
    // Also declares that the view shows that file's content now.
    void setFilePath(const QString &strPath);
    QString filePath() const { return m_strFilePath; }
    // The icon that the page names, when it is a file of the page's site; else null.
    QIcon icon() const;

    // Loading. None of these functions marks the page modified, and all except applySource() end in
    // loadFinished(). If the file cannot be read, this gives false and nothing happens. Otherwise
    // it takes over the path.
    bool loadFile(const QString &strPath);
    void setUrl(const QUrl &url);
    void setHtml(const QString &strHtml, const QUrl &urlBase = QUrl());
    // Shows a file that was read already, in an encoding that the user chose; without one, as the
    // page declares or as detected. Takes the path over.
    void loadSource(const QString &strPath, const SFileContent &content,
                    const QString &strCodec = QString());
    // The same for a file that was decoded already.
    void loadSource(const QString &strPath, const SPageSource &source);
    // The same for the document's file; the history and the place on the screen stay.
    void reloadSource(const SFileContent &content, const QString &strCodec);
    // An empty page as a file has it, with the caret in its body.
    void startNewPage();
    // Reads the document's file again, or the address that is shown instead of it. False when the
    // file cannot be read: the page stays as it was, and statusMessage() says so.
    bool reload();
    // The encoding that the page was read in. A chosen one stays for reload(), until the page is
    // saved.
    QString codecName() const { return m_strCodec; }
    QString chosenCodecName() const { return m_bCodecChosen ? m_strCodec : QString(); }
    void back();
    void forward();
    bool canGoBack() const;
    bool canGoForward() const;
    // False while the view shows another address (a followed link), or after the file failed to
    // load. Saving would then overwrite the file with something else.
    bool showsOwnFile() const;
    // The same, but also true if the file could not be loaded.
    bool showsOwnAddress() const;
    // Called before a modified page is left for another; true if it was saved or may be lost.
    // Without this function a modified page is never left.
    void setLeaveQuestion(const std::function<bool()> &question) { m_leaveQuestion = question; }
    void setLinksFollowed(bool bFollowed) { m_bLinksFollowed = bFollowed; }

    // The document as HTML, with doctype and leading comments. Stable: read and serialised again it
    // is the same text.
    QString toHtml() const;
    // The page's source as it was read, with the changes made since and nothing else. While the
    // source is shown, it is the text there. UTF-8 without a byte-order mark; a declaration of
    // another encoding is changed, none is added. Line ends as they were read. Relative addresses
    // are changed so that from strTarget they lead where they led before. strTarget is the file
    // that will be written, by default filePath().
    QByteArray htmlForSaving(const QString &strTarget = QString()) const;
    // The text of htmlForSaving() has reached the disk; further changes count from it.
    void markSaved();

    // Source view.
    CHighlightEdit *sourceEdit() const { return m_pSourceEdit; }
    // Call with true before the source editor takes the page's place.
    void showSource(bool bShow);
    bool isSourceShown() const;
    // Makes the edited source the page, which is then modified if the source is. If nothing was
    // typed in the source, the page stays as it is, with caret and undo history. Best called after
    // showSource(false), as a source still shown is refreshed from the new page.
    void applySource(const QString &strHtml);
    // Decodes the bytes of the shown source with another encoding. Characters that it cannot
    // represent are lost.
    void readSourceIn(const QString &strCodec);

    // The place of the caret in the page, if there is a caret.
    std::optional<CPageMerge::SPlace> caretPlace() const;
    // Goes near the place if the page no longer has it.
    void setCaretPlace(const CPageMerge::SPlace &place);

    // Editing, which works on the selection. False while the caret is in a frame, or if the page
    // consists of frames.
    bool isBodyEdited() const { return !m_bInSubframe && !m_bFrameset; }
    // Makes the next typing or command a separate step of undo.
    void endStep();
    // Runs a command with the page editable: while Control is held, it is not.
    void runEditable(const std::function<void()> &command);
    void triggerEdit(QWebPage::WebAction action);
    void insertHtml(const QString &strHtml);
    // Called before the clipboard is pasted in any way; true if it has done the pasting.
    using PasteTaker = std::function<bool(const QMimeData *)>;
    void setPasteTaker(const PasteTaker &taker) { m_pasteTaker = taker; }
    // Called before an action of triggerEdit(), whatever key or button caused it; true if it has
    // done the action.
    using EditTaker = std::function<bool(QWebPage::WebAction)>;
    void setEditTaker(const EditTaker &taker) { m_editTaker = taker; }
    bool isBold() const;
    bool isItalic() const;
    bool isUnderline() const;
    QString fontName() const;
    // The size in points without a unit: "12", "10.5".
    QString fontSize() const;
    // Invalid when unknown; without a background of its own, a colour with alpha 0.
    QColor foreColor() const;
    QColor backColor() const;
    void setFontName(const QString &strFamily);
    // Points, or with the unit "pt" or "px". Anything else changes nothing.
    void setFontSize(const QString &strSize);
    // Any notation of CSS. What is no colour changes nothing.
    void setForeColor(const QString &strColor);
    void setBackColor(const QString &strColor);
    // Larger or smaller, in steps of a tenth.
    void zoomBy(int nSteps);
    // The selection's rectangle on the screen; empty without a selection.
    QRect selectedSpot() const;
    // Invalid over no link.
    QUrl urlUnderPos(QMouseEvent *pEvent) const;

    // Search, with the find options of the settings. With "search up" off the page is searched
    // backward and with it on forward.
    bool findPageText(const QString &strText, bool bFromEdge);
    // The opposite direction for this call only.
    bool findPageTextReverse(const QString &strText, bool bFromEdge);
    // Always forward from the selection, whatever the options say. The replacement is HTML.
    bool replacePageText(const QString &strText, const QString &strReplacement);
    // Replaces from the start of the page. With "search up" it begins at the end and replaces
    // nothing. One step of undo; replaceNum() tells how many. Always true.
    bool replaceAllPageText(const QString &strText, const QString &strReplacement);

signals:
    void overUrl(const QString &strUrl);
    void linkLeft(const QString &strUrl); // The mouse is no longer over it.
    void modifiedChanged(bool bModified);
    void focusIn();
    void replaceNum(int nCount);
    // A message about the shown page; empty when there is none any more.
    void notice(const QString &strText);
    // Emitted while painting: what is drawn now covers the page, in the view's own pixels.
    void painted(QPainter *pPainter);
    // One line for the status bar.
    void statusMessage(const QString &strText);
    // The file is about to be read again over edits that were not saved, and nobody was asked.
    void textReplacing();
    // The text that was typed while another page was loading, and that was dropped with the old
    // page.
    void textDropped(const QString &strHtml);
    // The view has read its file again by itself.
    void fileRead(const SFileContent &content);

public slots:
    void onLoadStarted();
    void onLoadFinished(bool bOk);
    void onEditPageContentChanged();
    void onRefresh();
    void onCopy();
    void onCut();
    void onPaste();
    void onSelectAll();
    void onOpenFilePosition();

protected:
    bool event(QEvent *pEvent) override;
    void mousePressEvent(QMouseEvent *pEvent) override;
    void mouseMoveEvent(QMouseEvent *pEvent) override;
    void mouseReleaseEvent(QMouseEvent *pEvent) override;
    void leaveEvent(QEvent *pEvent) override;
    void paintEvent(QPaintEvent *pEvent) override;
    void wheelEvent(QWheelEvent *pEvent) override;
    void keyPressEvent(QKeyEvent *pEvent) override;
    void keyReleaseEvent(QKeyEvent *pEvent) override;
    void focusInEvent(QFocusEvent *pEvent) override;
    void focusOutEvent(QFocusEvent *pEvent) override;
    void contextMenuEvent(QContextMenuEvent *pEvent) override;
    void dragEnterEvent(QDragEnterEvent *pEvent) override;
    void dragMoveEvent(QDragMoveEvent *pEvent) override;
    void dropEvent(QDropEvent *pEvent) override;
    bool focusNextPrevChild(bool bNext) override;

private:
    CSafePage *safePage() const;
    void buildMenu();
    void createSourceEdit();
    void pushSource(bool bQuick = false);
    void pushSourceSoon();
    bool changeSource(const QString &strSource);
    QString loadedSource() const;
    QString readAnew(const QString &strSource) const;
    void takeSource(bool bTyped);
    QString mergedSource(bool bQuick = false) const;
    QString sourceFor(const QUrl &urlFile, bool bQuick = false) const;
    QString editedSource() const;
    bool isSourceEdited() const;
    void moveSourceCaret();
    void movePageCaret();

    void showText(const QString &strHtml, const QUrl &urlBase);
    void go(const std::function<void()> &load);
    void showFile(const QUrl &url, const SPageSource &source);
    void noteCodec();
    QUrl fileUrl() const;
    static QUrl fileUrl(const QString &strPath);
    bool mayLeave();
    bool isPasteTaken() const;
    void step(QWebPage::WebAction action);
    void followLink(const QUrl &url);
    void followToFile(const QUrl &url);

    void ensureCaret();
    void tellHiddenPictures();
    void followFrameset();
    bool showPictureToolTip(const QHelpEvent *pEvent);
    bool zoomByKey(const QKeyEvent *pEvent);
    void rememberTyped(const std::function<void()> &edit);
    bool keepTyped();
    void followTyping(const QKeyEvent *pEvent);
    void onUndoIndexChanged(int nIndex);

    bool pasteHarmful(const QMimeData *pData);
    void dropHtml(QDropEvent *pEvent);
    void setEditable(bool bWanted);
    void formatByKey(QKeyEvent *pEvent);
    void enterFrame(const QWebFrame *pFrame);
    void setLinkUnderMouse(const QString &strUrl);
    QVariant evaluate(const QString &strScript) const;
    QVariant queryState(const QString &strCommand) const;
    QString queryValue(const QString &strCommand) const;
    void beginFormat();
    void command(const QString &strName, const QString &strValue);
    void applyPendingFontSize();
    void moveToSearchEdge();
    void replaceSelection(const QString &strReplacement);
    bool findAndFollow(const QString &strText, QWebPage::FindFlags flags);

    bool m_bModified = false;
    bool m_bModifiedBeforeLoad = false;
    QString m_strFilePath;
    QPointer<CHighlightEdit> m_pSourceEdit;
    QMenu m_menuContext;

    QString m_strCodec = QStringLiteral("UTF-8");
    bool m_bCodecChosen = false;
    QUrl m_urlNamed; // The address shown when the file path was set.
    bool m_bLoadFailed = false;
    bool m_bLinksFollowed = true;
    std::function<bool()> m_leaveQuestion;
    PasteTaker m_pasteTaker;
    EditTaker m_editTaker;
    bool m_bSourceShown = false;
    int m_nPushedRevision = -1; // The revision of the source's document; -1 before the first push.
    QString m_strPushed; // The source as it was pushed, with its own line ends.
    int m_nPushedFormat = -1; // The style of its line ends.
    int m_nSourceCaret = -1; // The caret in the source when it was last shown or left; -1 for none.
    int m_nCaretToShow = -1; // The source's caret, which the page takes over when it has loaded.
    CPageMerge::SPlace m_placeLeft; // The page's caret when it was left last.
    QString m_strGiven; // What setHtml() was called with; null while an address is shown.
    QTimer m_timerPush; // Checks the source that was pushed during typing.
    bool m_bPageComing = false; // From the start of a load to its end.
    // The page at the moment when something was typed meanwhile; null if nothing was.
    QString m_strTyped;
    QWebElement m_rootTyped; // The root element of that page.
    CTypingSteps m_steps;
    int m_nUndoIndex = 0;
    int m_nUndoCount = 0;
    bool m_bBaseSaved = true; // True if m_merge begins with the text of the file.
    mutable CPageMerge m_merge;
    mutable QString m_strMergedFrom; // The serialisation of the last merge, and its result.
    mutable QString m_strMerged;
    mutable std::unique_ptr<CPageReader> m_pReader; // Made on first use.
    bool m_bControlDown = false;
    bool m_bEditableBeforeControl = true;
    QString m_strLinkUnderMouse;
    QString m_strNotice;
    bool m_bInSubframe = false;
    bool m_bFrameset = false; // The page consists of frames and has no text of its own.
    bool m_bHandlingKey = false;
    QString m_strPendingFontSize; // For the next typed text, as CSS; empty for none.
};
