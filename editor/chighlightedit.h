#pragma once

#include "editor/caretblock.h"
#include "editor/cbackgroundjob.h"
#include "editor/cbracketpair.h"
#include "editor/ccarethistory.h"
#include "editor/ccarets.h"
#include "editor/cstandins.h"
#include "editor/longlines.h"

#include <QColor>
#include <QMenu>
#include <QPlainTextEdit>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>

class CCompletionList;
class CEditWebView;
class CLineNumberArea;
class CReplaceAll;
class CSuggestionMenu;
class CTextArrival;
class CTextDocument;
class CTextLines;
class CThreadHighlighter;
class QTextCodec;
struct SFileContent;
struct SCommentMarkers;
struct SCommentToggle;
struct SDocumentMatch;
struct SArrivedText;
struct SCommand;
struct STextRequest;
struct STypedWord;

// The source editor of a text tab and of a page's source. It shows line numbers and a band behind
// the cursor's line, highlights on a thread of its own, reads and writes text files, searches, and
// has several carets, completion, spelling marks and other aids.
//
// Needs g_pSettings. GUI thread only. Each concern has a file: chighlightedit.cpp, _brackets,
// _caretkeys, _carets, _commands, _comment, _completion, _file, _gutter, _keys, _loading, _mouse,
// _paint, _repaint, _search, _spelling, _verify.
class CHighlightEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CHighlightEdit(QWidget *pParent = nullptr);
    // Waits for the highlighter's thread.
    ~CHighlightEdit() override;

    // The file name or "Untitled", with "*" after it when modified.
    QString getTitle() const;
    QString pathFileName() const { return m_strPathFileName; }
    // Reads nothing. The owner then has to choose the language again (see isPathChanged()).
    void setPathFileName(const QString &strPathFileName);
    // The suffix of the file name in lower case, without the dot.
    QString suffix() const { return m_strSuffix; }
    bool isPathChanged() const { return m_bPathChanged; }
    void setPathChanged(bool bChanged) { m_bPathChanged = bChanged; }

    bool isModified() const;
    void setModified(bool bModified);
    void setLineWrap(bool bWrap);
    // A locked editor keeps its font size.
    void setFontSizeLocked(bool bLocked) { m_bLockFontSize = bLocked; }
    // For the status bar. Rows count from 1, columns from 0.
    QString getStatusText() const;

    // Sets the language. An empty map means none.
    void setDefinition(const QVariantMap &mapDefinition);
    // Whether this definition was set last.
    bool hasDefinition(const QVariantMap &mapDefinition) const
    {
        return m_definition == mapDefinition;
    }
    QString languageName() const;
    CThreadHighlighter *highlighter() const { return m_pHighlighter; }
    CTextDocument *textDocument() const { return m_pDocument; }

    // The page whose source this is, or null for a text tab. Only stored, not owned.
    CEditWebView *pageEditor() const { return m_pPageEditor; }
    void setPageEditor(CEditWebView *pPageEditor) { m_pPageEditor = pPageEditor; }

    // Shows the bytes of a file. Detects the codec and the style of line ends, and clears undo.
    // bKeepModified restores the modified flag after 10 ms in the event loop.
    void setTextData(const QByteArray &arrData, bool bKeepModified);
    // Reads the file again with the editor's codec. The cursor's line and the scroll position stay.
    // Shows a box if reading fails.
    void reload();
    // Shows the bytes of the file as reload() does.
    void reloadData(const QByteArray &arrData);
    // Encodes the text in its codec and decodes these bytes in another one. The old codec may lack
    // characters that were typed; then textReplacing() comes first. An unknown name does nothing.
    void setCodecName(const QString &strName);
    // Shows the file's own bytes in another codec. The text counts as read, not as typed.
    void readIn(const QString &strCodec, const QByteArray &arrData);
    // Shows a text that was kept elsewhere, such as a draft, with all of its characters. The
    // document is then modified.
    void setRestoredText(const QString &strText, const QString &strCodec);

    // Loads pathFileName() in slices: another thread reads the file, and the event loop then shows
    // it piece by piece. Meanwhile the editor is read-only and not modified. At the end its state
    // is the same as after setTextData() or reloadData(). The old text stays until the new one is
    // read. bKeepPlace restores the cursor's line and the scroll position.
    void loadInSlices(LongLines longLines, bool bKeepPlace);
    // The same for readIn(). The cursor's line and the scroll position stay.
    void loadInSlicesIn(const QString &strCodec);
    bool isLoading() const { return m_pArrival; }
    // Whether the new text has begun to replace the old one.
    bool isTextPartial() const { return m_bPartial; }
    // Stops loading. A partial text stays read-only until the owner closes or reloads it.
    void stopLoading();
    // Whether lines were cut into pieces to be shown. Such a text differs from the file and is
    // read-only.
    bool isInPieces() const { return m_bInPieces; }
    // Calls go once the text has arrived up to a position (UTF-16 units) and a line (from 1), or at
    // once if nothing is loading. The call is dropped if the user moves the cursor or scrolls
    // before, and if another one is asked for.
    void whenArrived(int nPosition, int nLine, const std::function<void()> &go);

    // The name of the codec. Empty if the next load has to detect it.
    QString codecName() const { return m_strCodecName; }
    // False if some of the bytes read last cannot be shown. Saving would lose them.
    bool isWhole() const { return m_bWhole; }
    // False if the codec is a guess that neither the bytes nor the user have confirmed.
    bool isCodecSure() const { return m_bCodecSure; }
    // Notes that the file was saved as UTF-8, in whatever codec it was read.
    void markSavedAsUtf8();
    // See ReturnFormat.
    int returnFormat() const { return m_nReturnFormat; }
    void setReturnFormat(int nReturnFormat) { m_nReturnFormat = nReturnFormat; }
    // The text to save: every character that was opened or typed, with the chosen line ends.
    QString getText() const;
    // The same text with LF for every line end.
    QString rawText() const;
    // Returns a function that gives the present rawText(). It can be called later and on any
    // thread.
    std::function<QString()> rawTextLater() const;

    int lineNumberAreaWidth() const;
    void lineNumberAreaPaintEvent(QPaintEvent *pEvent);

    bool canToggleComment() const;

    // Searches with the options of g_pSettings. Works on pCursor and leaves the view alone; null
    // means the editor's own cursor. bFromEnd starts at the document's start, or at its end when
    // searching up, instead of at the selection. Signals tell if the search reached an end or found
    // nothing. A search that wraps works on the editor's own cursor.
    bool find(const QString &text, bool bFromEnd, QTextCursor *pCursor);
    // Searches once from the selection, against the direction in g_pSettings.
    bool findPrevious(const QString &text);
    // Replaces the selection if it is a match, and selects the next match.
    bool replace(const QString &findText, const QString &replaceText, QTextCursor *pCursor);
    // Replaces in the whole document as one step of undo, without wrapping. True if there was a
    // match.
    bool replaceAll(const QString &findText, const QString &replaceText);
    // The same, but long work goes on in pieces in the event loop; see replaceAllJob(). Does
    // nothing while an earlier one is running.
    void startReplaceAll(const QString &strFind, const QString &strReplace);
    // The Replace All that is running, or null. Code that needs the whole text calls its finish()
    // first.
    CReplaceAll *replaceAllJob() const { return m_pReplaceAll; }
    void finishReplaceAll();
    // Lines count from 1. False if there is no such line; a signal then names the last one.
    bool goToLine(int nLine);
    // Counts UTF-16 units from the text's start. A position after the end means the end.
    void goToPosition(int nPosition);

    bool canVerifyValid() const;
    bool canFormatting() const;
    // If the content does not parse, the cursor goes to the error and a box tells of it. The box
    // for JSON names no place, so statusMessage() does.
    bool verifyValid();
    bool formatting();

    // All carets. The main one is the cursor of the base class; usually there is no other. If
    // anything but the commands for carets moves the cursor or changes the text, only the main
    // caret remains.
    CCarets carets() const;
    void setCarets(const CCarets &carets);
    bool hasSeveralCarets() const { return !m_carets.isSingle(); }

signals:
    void focusIn();
    void findToTop();
    void findToBottom();
    void cannotFound();
    void replaceNum(int nVal);
    // An unsaved text is about to be replaced, and undo will not restore it.
    void textReplacing();
    // The editor itself has read its file again.
    void fileRead(const SFileContent &content);
    // Loading in slices has begun or ended, successfully or not.
    void loadingChanged();
    void loadProgressed(qint64 nDone, qint64 nAll);
    // The first lines are shown; the rest may take a while.
    void firstTextShown();
    // The whole text has arrived. The content has no bytes.
    void loadFinished(const SFileContent &content);
    // Loading failed. The old text is still there, or with bPartial a part of the new one, which
    // stays read-only.
    void loadFailed(const SFileContent &content, bool bPartial);
    // Loading waits because of a line that Qt can only show with long pauses. The owner asks the
    // user and passes the answer to loadInSlices().
    void longLineFound(int nLength);
    // Tells the number of the match that find() has selected, and how many there are. Comes some
    // time after find(), and not at all if a key is pressed before.
    void findCounted(int nIndex, int nCount);
    // Tells for the status bar what a command did, or why it did nothing. An empty text clears it.
    void statusMessage(const QString &strText);

public slots:
    void updateLineNumberAreaWidth(int nBlockCount = 0);
    void onTextFontSize(int nVal); // Pixels.
    void onSelectionChanged();
    void updateLineNumberArea(QRect rect, int dy);
    void highlightCurrentLine();
    void onTimeoutKeepModified();
    void onRefresh();
    void onOpenFilePosition();
    // False without a selection or a highlighter.
    bool toggleComment();

    // These hide the slots of the base class. They know several carets, and undo restores carets
    // and selections.
    void undo();
    void redo();
    void cut();
    void copy();

    // The commands of keys. If one can do nothing, it says so by statusMessage().
    void addCaretAbove();
    void addCaretBelow();
    void selectOccurrences();
    void offerWords();
    // Offers corrections for the misspelt word at the cursor, or else for the next one after it.
    void suggestSpelling();
    // Turns the marks of misspelt words on or off in all editors.
    void markSpelling();
    void goToBracket();
    void selectToBracket();
    void extendBlockLeft();
    void extendBlockRight();
    void extendBlockUp();
    void extendBlockDown();

protected:
    void keyPressEvent(QKeyEvent *pEvent) override;
    bool event(QEvent *pEvent) override;
    void contextMenuEvent(QContextMenuEvent *pEvent) override;
    void paintEvent(QPaintEvent *pEvent) override;
    void wheelEvent(QWheelEvent *pEvent) override;
    void focusInEvent(QFocusEvent *pEvent) override;
    void resizeEvent(QResizeEvent *pEvent) override;
    void inputMethodEvent(QInputMethodEvent *pEvent) override;
    void mousePressEvent(QMouseEvent *pEvent) override;
    void mouseMoveEvent(QMouseEvent *pEvent) override;
    void mouseReleaseEvent(QMouseEvent *pEvent) override;
    bool canInsertFromMimeData(const QMimeData *pSource) const override;
    QMimeData *createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData *pSource) override;

private:
    using LineCommand = SCommand (*)(const CTextLines &, const CCarets &);
    void setReadablePalette();
    void setFixedFont();
    void connectSignals();
    void buildMenu();
    QFont gutterFont() const;
    void detectCodecOf(const QByteArray &arrData);
    void showBytes(const QTextCodec *pCodec, const QByteArray &arrData);
    void changeFontSize(int nWanted);
    bool zoomByKey(const QKeyEvent *pEvent);
    void showText(const QString &strText);
    void warnOfReplacing();
    void goBackTo(int nLine, int nScroll);
    STextRequest textRequest() const;
    void refreshInSlices();
    void startArrival(const STextRequest &request);
    void keepPlace();
    void setFixed(bool bFixed);
    void beginSlices();
    void appendSlice(const QString &strSlice);
    void onLinesKnown(int nLines);
    void onArrived(const SArrivedText &text);
    void forgetArrival();
    void endArrival();
    void goWhereArrived(bool bAll);
    bool isSeveralLinesSelected() const;
    void indentSelection(bool bOutdent);
    void indentNewLine();
    bool typePair(const QString &strTyped);
    bool moveInRows(const QKeyEvent *pEvent);
    void applyToggle(const SCommentToggle &toggle, const SCommentMarkers &markers);
    void selectRange(int nStart, int nEnd, bool bCursorAtStart);
    void selectLines(const QTextBlock &first, const QTextBlock &last, bool bCursorAtStart);
    void showMatch(const QString &strText, const SDocumentMatch &match);
    bool findWrapped(const QString &strText, bool bAllSearched);
    int replaceMatches(const QString &strFind, const QString &strReplace, QTextCursor *pCursor);
    void goToBlock(int nBlock);
    void goToPlace(int nLine, int nColumn);

    bool runKeyCommand(QKeyEvent *pEvent);
    void runLineCommand(LineCommand pCommand, const char *szNothing);
    void apply(const SCommand &command);
    void applyTyped(const SCommand &command);
    void recordCarets(const std::function<void()> &change);
    void stepHistory(bool bUndo);
    void tell(const QString &strText);
    bool keyAtCarets(QKeyEvent *pEvent);
    bool moveCarets(QKeyEvent *pEvent);
    bool eraseAtCarets(QKeyEvent *pEvent);
    bool typeAtCarets(QKeyEvent *pEvent);
    void indentAtCarets(bool bOutdent);
    void addCaret(bool bUp);
    STypedWord typedWord() const;
    void completeWord(const QString &strBeginning, const QString &strWord);
    bool isForCompletion(const QKeyEvent *pEvent) const;
    void followCompletion();
    const SBracketPair &currentPair();
    void followBrackets();
    QTextBlock lastVisibleBlock() const;
    // A range of blocks, both ends included.
    struct SLines
    {
        int nFirst = -1;
        int nLast = -1;
        bool contains(int nLine) const { return nLine >= nFirst && nLine <= nLast; }
        bool operator==(const SLines &other) const
        {
            return nFirst == other.nFirst && nLast == other.nLast;
        }
    };
    SLines markedLines() const;
    void followMarkedLines();
    void followVisibleLines();
    using BlockVisitor = std::function<void(int nBlock, const QRect &strip)>;
    void forVisibleBlocks(const BlockVisitor &visit) const;
    void repaintLines(const QVector<int> &lstLines);
    void goToPartner(bool bSelect);
    void onBracketFound();
    void paintBrackets(QPainter *pPainter);
    void watchCarets();
    void leaveCarets();
    using CaretPainter = std::function<void(const SCaret &, const QTextBlock &, const QPointF &)>;
    void forVisible(const QVector<SCaret> &lst, const CaretPainter &paint) const;
    void forVisibleCarets(const CaretPainter &paint) const;
    void paintSelections(QPainter *pPainter) const;
    void paintCarets(QPainter *pPainter) const;
    QVector<int> linesOfCarets() const;
    void repaintCarets();
    QVector<QRectF> rectsOf(const QVector<SCaret> &lst) const;
    bool prepareSpelling();
    bool hasLanguage() const;
    void offerSuggestions();
    void paintSpelling(QPainter *pPainter) const;
    void extendBlock(int nLines, int nColumns);
    SCaretBlock blockAt(const QPoint &point) const;
    void showBlock(const SCaretBlock &block);

    bool m_bLockFontSize = false;
    bool m_bKeepModified = false;
    bool m_bPathChanged = false;
    bool m_bWhole = true;
    bool m_bCodecSure = true;
    bool m_bInPieces = false;
    bool m_bPartial = false; // The text is the beginning of one that is being loaded.
    bool m_bFixed = false; // Read-only because it is loading, partial or in pieces.
    QString m_strPathFileName;
    QString m_strSuffix;
    QString m_strCodecName;
    CTextDocument *m_pDocument = nullptr;
    CThreadHighlighter *m_pHighlighter = nullptr;
    CLineNumberArea *m_pLineNumberArea = nullptr;
    QString m_strFontFamily; // The gutter's.
    QMenu m_menu;
    QColor m_clrCurrentLine;
    QAction *m_pActCopy = nullptr;
    QAction *m_pActCut = nullptr;
    QAction *m_pActPaste = nullptr;
    QAction *m_pActToggleComment = nullptr;
    QAction *m_pActRefresh = nullptr;
    int m_nReturnFormat;
    int m_nLinesToCome = 0; // The number of lines of the text that is about to be set.
    CStandIns m_standIns;
    CTextArrival *m_pArrival = nullptr; // Only while loading. A child.
    struct SGoal
    {
        int nPosition = 0;
        int nLine = 0;
        std::function<void()> go; // Empty if there is no goal.
        QPoint from; // The cursor's position and the scroll bar's value when the goal was set.
    };
    SGoal m_goal;
    std::unique_ptr<CBackgroundJob> m_pCounter; // Created by the first search.
    CReplaceAll *m_pReplaceAll = nullptr; // Only while it is running.
    CCarets m_carets; // Meaningless while there is only one.
    CCompletionList *m_pCompletion = nullptr; // Created for the first word that is offered.
    CSuggestionMenu *m_pSuggestions = nullptr; // Created for the first misspelt word.
    CBracketPair *m_pBrackets = nullptr;
    std::optional<QVariantMap> m_definition;
    int m_nNumberedLines = 0; // The number of lines that the gutter's width is made for.
    // What was painted last.
    int m_nBandLine = 0;
    QVector<int> m_lstShownCarets; // The lines of all carets but the main one.
    SLines m_shownMarked;
    SBracketPair m_shownPair;
    // The visible part that the highlighter was told last.
    int m_nFirstSeen = -1;
    int m_nHeightSeen = 0;
    int m_nBlocksSeen = 0;
    // The cursor jumps when the partner that is searched for is found. True selects on the way.
    std::optional<bool> m_jump;
    int m_nJumpFrom = 0; // The cursor's position when the jump was asked for.
    std::optional<SCaretBlock> m_block; // The block selection that the carets make up.
    CCaretHistory m_history;
    QVector<QMetaObject::Connection> m_lstWatches; // Only while there are several carets.
    bool m_bApplying = false; // A command that sets the carets itself is changing the text.
    bool m_bTyping = false; // The last command was typing at several carets.
    bool m_bDraggingBlock = false;
    bool m_bTold = false; // The status bar shows a statusMessage() of this editor.
    CEditWebView *m_pPageEditor = nullptr;
};
