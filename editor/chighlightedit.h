#pragma once

#include "editor/caretblock.h"
#include "editor/cbackgroundjob.h"
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

class CBracketFinder;
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

// The source editor of every text tab: line numbers, a band behind the cursor's line, highlighting
// from a thread of its own, reading and writing of text files, search, editing aids.
//
// Needs g_pSettings. GUI thread only. The concerns lie in files of their own: chighlightedit.cpp,
// _brackets, _caretkeys, _carets, _commands, _comment, _completion, _file, _gutter, _keys,
// _loading, _mouse, _paint, _repaint, _search, _spelling, _verify.
class CHighlightEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CHighlightEdit(QWidget *pParent = nullptr);
    // Waits for the highlighter's thread.
    ~CHighlightEdit() override;

    // File name or "Untitled", with "*" behind it when modified.
    QString getTitle() const;
    QString pathFileName() const { return m_strPathFileName; }
    // Reads nothing; the owner has to choose the language again (see isPathChanged()).
    void setPathFileName(const QString &strPathFileName);
    // Lower case.
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

    // The language; an empty map for none.
    void setDefinition(const QVariantMap &mapDefinition);
    // Is this the one that was set last?
    bool hasDefinition(const QVariantMap &mapDefinition) const
    {
        return m_definition == mapDefinition;
    }
    QString languageName() const;
    CThreadHighlighter *highlighter() const { return m_pHighlighter; }
    CTextDocument *textDocument() const { return m_pDocument; }

    // The page whose source this is; only stored, not owned. Null for a text tab.
    CEditWebView *pageEditor() const { return m_pPageEditor; }
    void setPageEditor(CEditWebView *pPageEditor) { m_pPageEditor = pPageEditor; }

    // Loads the bytes of a file: codec and line-ending style are detected, undo starts again.
    // bKeepModified: the modified flag comes back once the event loop has run for 10 ms.
    void setTextData(const QByteArray &arrData, bool bKeepModified);
    // Reads the file again with the editor's codec; cursor line and scroll position stay. Shows a
    // box when that fails.
    void reload();
    // Shows the bytes of the file as reload() does.
    void reloadData(const QByteArray &arrData);
    // Reads the same bytes in another codec; nothing happens for an unknown one. The bytes are
    // those that the text has in its codec, which may not hold all that was typed: see
    // textReplacing().
    void setCodecName(const QString &strName);
    // Shows the file's own bytes in another codec. The text counts as read, not as typed.
    void readIn(const QString &strCodec, const QByteArray &arrData);
    // Shows a text that was kept elsewhere, with every character it has. Modified.
    void setRestoredText(const QString &strText, const QString &strCodec);

    // A large file comes in slices while the event loop runs: read on another thread, then shown
    // piece by piece. Meanwhile the editor is read-only and counts as not modified; at the end all
    // is as after setTextData() or reloadData().
    // Of pathFileName(). Until the new text is read, the old one stays; bKeepPlace: cursor line and
    // scroll position come back with it.
    void loadInSlices(LongLines longLines, bool bKeepPlace);
    // The same for readIn(). Keeps the place.
    void loadInSlicesIn(const QString &strCodec);
    bool isLoading() const { return m_pArrival; }
    // Has the new text begun to take the old one's place?
    bool isTextPartial() const { return m_bPartial; }
    // Forgets the rest. A partial text stays read-only: it is for the owner to close or to fill.
    void stopLoading();
    // Lines were cut to be shown at all: the text is not the file's, and read-only.
    bool isInPieces() const { return m_bInPieces; }
    // Calls go once the text has arrived as far as that position (UTF-16 units) and line (from 1);
    // at once when nothing is loading. Forgotten when the user goes elsewhere before, or when
    // another call follows.
    void whenArrived(int nPosition, int nLine, const std::function<void()> &go);

    // Empty: detected on the next load.
    QString codecName() const { return m_strCodecName; }
    // False when some of the bytes last read could not be shown: what is written loses them.
    bool isWhole() const { return m_bWhole; }
    // False when the codec is a guess that nothing confirmed, neither the bytes nor the user.
    bool isCodecSure() const { return m_bCodecSure; }
    // What lies on the disk is UTF-8 now, whatever it was read as.
    void markSavedAsUtf8();
    // See ReturnFormat.
    int returnFormat() const { return m_nReturnFormat; }
    void setReturnFormat(int nReturnFormat) { m_nReturnFormat = nReturnFormat; }
    // The text to write: every character that was opened or typed, line ends in the chosen style.
    QString getText() const;
    // The same with LF for every line end.
    QString rawText() const;
    // Gives, whenever it is called and on whatever thread, what rawText() would give now.
    std::function<QString()> rawTextLater() const;

    int lineNumberAreaWidth() const;
    void lineNumberAreaPaintEvent(QPaintEvent *pEvent);

    bool canToggleComment() const;

    // pCursor null: works on the editor's own cursor; else on that cursor and leaves the view
    // alone. bFromEnd: starts at the document's start (searching up, end) instead of at the
    // selection.
    // The options are those of g_pSettings. Reaching an end, finding nothing and the number of
    // replacements are signalled; a wrapped search works on the editor's own cursor.
    bool find(const QString &text, bool bFromEnd, QTextCursor *pCursor);
    // Searches once from the selection on, against the direction of the settings.
    bool findPrevious(const QString &text);
    // Replaces the selection if it is a match; selects the next match in any case.
    bool replace(const QString &findText, const QString &replaceText, QTextCursor *pCursor);
    // Replaces in the whole document, without wrapping, as one step of undo. True if anything was
    // found.
    bool replaceAll(const QString &findText, const QString &replaceText);
    // The same; what takes long goes on in pieces, see replaceAllJob(). Nothing happens while an
    // earlier one goes on.
    void startReplaceAll(const QString &strFind, const QString &strReplace);
    // Null when none goes on. Whatever needs the whole text calls its finish() first.
    CReplaceAll *replaceAllJob() const { return m_pReplaceAll; }
    void finishReplaceAll();
    // Lines count from 1; false when there is no such line, and the last one is told.
    bool goToLine(int nLine);
    // The position counts UTF-16 units from the text's start; one beyond the end means the end.
    void goToPosition(int nPosition);

    bool canVerifyValid() const;
    bool canFormatting() const;
    // When the content does not parse, the cursor goes to the place told, and a box shows. For
    // JSON, whose box names no place, statusMessage() does.
    bool verifyValid();
    bool formatting();

    // All carets; most of the time there is one, the cursor of the base class, which is the main
    // one of several. Whatever else moves the cursor or changes the text leaves the main one alone.
    CCarets carets() const;
    void setCarets(const CCarets &carets);
    bool hasSeveralCarets() const { return !m_carets.isSingle(); }

signals:
    void focusIn();
    void findToTop();
    void findToBottom();
    void cannotFound();
    void replaceNum(int nVal);
    // Something else is about to take the place of a text that was not saved, and undo will not
    // bring it back.
    void textReplacing();
    // The editor has read its file again by itself.
    void fileRead(const SFileContent &content);
    // loadInSlices() has begun or ended, however.
    void loadingChanged();
    void loadProgressed(qint64 nDone, qint64 nAll);
    // The first lines stand there; they may be all for a while.
    void firstTextShown();
    // The whole text has arrived; content without its bytes.
    void loadFinished(const SFileContent &content);
    // The text is as it was before, or part of the new one, and then stays read-only.
    void loadFailed(const SFileContent &content, bool bPartial);
    // Loading stands still, because of a line that Qt shows only with long pauses. The user is to
    // be asked; loadInSlices() takes the answer.
    void longLineFound(int nLength);
    // Some time after find() has selected a match: which one it is, and of how many. Not when a key
    // came before.
    void findCounted(int nIndex, int nCount);
    // For the status bar: why a command did nothing, or what it did. Empty: no longer of interest.
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

    // These stand before the base class's: they know of several carets, and of the carets and
    // selections that undo brings back.
    void undo();
    void redo();
    void cut();
    void copy();

    // The commands of keys. Those that can do nothing say so by statusMessage().
    void addCaretAbove();
    void addCaretBelow();
    void selectOccurrences();
    void offerWords();
    // The misspelt word at the cursor, else the next one behind it, with words to take for it.
    void suggestSpelling();
    // Turns the marks of misspelt words on or off, in all editors.
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
    // The bracket beside the cursor and its partner, as places of the document; -1 for none.
    struct SBracketPair
    {
        int nBracket = -1;
        int nPartner = -1; // -1, too, while it is looked for.
        int nLine = -1; // The blocks that the two stand in.
        int nPartnerLine = -1;
        bool bSearching = false;
        bool operator!=(const SBracketPair &other) const
        {
            return nBracket != other.nBracket || nPartner != other.nPartner;
        }
    };
    // What a pair was looked for with.
    struct SPairKey
    {
        uint nVersion;
        uint nLook;
        int nPosition;
        int nFirstVisible;
        int nHeight;
        bool operator==(const SPairKey &other) const
        {
            return nVersion == other.nVersion && nLook == other.nLook
                && nPosition == other.nPosition && nFirstVisible == other.nFirstVisible
                && nHeight == other.nHeight;
        }
    };
    SBracketPair bracketPair();
    const SBracketPair &currentPair();
    void followBrackets();
    SBracketPair pairOf(const QTextBlock &block, int nInBlock);
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
    bool m_bPartial = false; // The text is the beginning of one that is loaded.
    bool m_bFixed = false; // Read-only because of either.
    QString m_strPathFileName;
    QString m_strSuffix;
    QString m_strCodecName;
    CTextDocument *m_pDocument = nullptr;
    CThreadHighlighter *m_pHighlighter = nullptr;
    CLineNumberArea *m_pLineNumberArea = nullptr;
    QString m_strFontFamily; // Of the gutter.
    QMenu m_menu;
    QColor m_clrCurrentLine;
    QAction *m_pActCopy = nullptr;
    QAction *m_pActCut = nullptr;
    QAction *m_pActPaste = nullptr;
    QAction *m_pActToggleComment = nullptr;
    QAction *m_pActRefresh = nullptr;
    int m_nReturnFormat;
    int m_nLinesToCome = 0; // Of the text about to be set.
    CStandIns m_standIns;
    CTextArrival *m_pArrival = nullptr; // While loading; a child.
    struct SGoal
    {
        int nPosition = 0;
        int nLine = 0;
        std::function<void()> go; // Empty: no goal.
        QPoint from; // The cursor's position and the scroll bar's value when it was set.
    };
    SGoal m_goal;
    std::unique_ptr<CBackgroundJob> m_pCounter; // From the first search on.
    CReplaceAll *m_pReplaceAll = nullptr; // While it goes on.
    CCarets m_carets; // When there are several; else one, of no meaning.
    CCompletionList *m_pCompletion = nullptr; // From the first word offered on.
    CSuggestionMenu *m_pSuggestions = nullptr; // From the first misspelt word on.
    CBracketFinder *m_pBrackets = nullptr; // From the first far partner on.
    std::optional<QVariantMap> m_definition;
    int m_nNumberedLines = 0; // In the gutter.
    int m_nBandLine = 0; // As it was last painted, like the next three.
    QVector<int> m_lstShownCarets; // Lines of further carets.
    SLines m_shownMarked;
    int m_nFirstSeen = -1; // The first block, the height and the number of all blocks.
    int m_nHeightSeen = 0;
    int m_nBlocksSeen = 0;
    SBracketPair m_shownPair;
    SBracketPair m_pair; // As it was last looked for.
    std::optional<SPairKey> m_pairKey;
    std::optional<bool> m_jump; // To the partner that is looked for; true: selecting.
    int m_nJumpFrom = 0; // The cursor's place then.
    std::optional<SCaretBlock> m_block; // What the carets are the lines of.
    CCaretHistory m_history;
    QVector<QMetaObject::Connection> m_lstWatches; // While there are several carets.
    bool m_bApplying = false; // Text and cursor change by a command that sets the carets.
    bool m_bTyping = false; // The last command was typing at several carets.
    bool m_bDraggingBlock = false;
    bool m_bTold = false; // A statusMessage() stands.
    CEditWebView *m_pPageEditor = nullptr;
};
