#include "editor/chighlightedit.h"

#include "app/commonhelpers.h"
#include "app/csettings.h"
#include "app/plaintext.h"
#include "app/platform.h"
#include "editor/caretedits.h"
#include "editor/cbracketpair.h"
#include "editor/clinenumberarea.h"
#include "editor/ctextlines.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include <algorithm>

namespace {

const int g_nLargeText = 1000 * 1000; // Characters.
const char g_szSelectionColor[] = "#90da90";

bool carriesLocalFiles(const QMimeData *pSource)
{
    const QList<QUrl> lstUrls = pSource->urls();
    return std::any_of(lstUrls.cbegin(), lstUrls.cend(),
                       [](const QUrl &url) { return url.isLocalFile(); });
}

} // namespace

CHighlightEdit::CHighlightEdit(QWidget *pParent)
    : QPlainTextEdit(pParent), m_nReturnFormat(Platform::defaultReturnFormat())
{
    setStyleSheet(QStringLiteral("QPlainTextEdit{selection-background-color: %1}")
                      .arg(QLatin1String(g_szSelectionColor)));
    setReadablePalette();
    setFixedFont();
    setAccessibleName(tr("Text editor"));
    m_pDocument = new CTextDocument(this);
    setDocument(m_pDocument);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    m_pHighlighter = new CThreadHighlighter(m_pDocument);
    m_pBrackets = new CBracketPair(m_pDocument, this);
    m_strFontFamily = QStringLiteral("Courier New");
    m_pLineNumberArea = new CLineNumberArea(this);
    m_clrCurrentLine = QColor(QStringLiteral("#F9F9F9"));
    updateLineNumberAreaWidth(0);
    viewport()->update();
    onTextFontSize(g_pSettings->getTextFontSize());
    connectSignals();
    buildMenu();
}

CHighlightEdit::~CHighlightEdit()
{
    // The highlighter goes before the document, its parent, because its thread reads the document's
    // lines.
    delete m_pHighlighter;
    // Queued until the document has gone as well.
    if (m_pDocument->characterCount() > g_nLargeText && QCoreApplication::instance())
        QTimer::singleShot(0, QCoreApplication::instance(), Platform::returnFreedMemory);
}

// Band, gutter, selection and language colours are fixed and light; the desktop's palette may be
// dark. Text stays dark on light whatever it is.
void CHighlightEdit::setReadablePalette()
{
    QPalette pal = palette();
    pal.setColor(QPalette::Base, Qt::white);
    pal.setColor(QPalette::Text, Qt::black);
    pal.setColor(QPalette::Highlight, QColor(QLatin1String(g_szSelectionColor)));
    pal.setColor(QPalette::HighlightedText, Qt::black);
    setPalette(pal);
}

void CHighlightEdit::setFixedFont()
{
    QFont fnt = font();
    fnt.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    setFont(fnt);
}

void CHighlightEdit::connectSignals()
{
    connect(this, &QPlainTextEdit::blockCountChanged, this,
            &CHighlightEdit::updateLineNumberAreaWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &CHighlightEdit::updateLineNumberArea);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this,
            &CHighlightEdit::highlightCurrentLine);
    connect(this, &QPlainTextEdit::selectionChanged, this, &CHighlightEdit::onSelectionChanged);
    connect(m_pDocument, &QTextDocument::contentsChange, m_pHighlighter,
            &CThreadHighlighter::stopThread, Qt::QueuedConnection);
    connect(m_pDocument, &QTextDocument::contentsChanged, m_pHighlighter,
            &CThreadHighlighter::rehighlight, Qt::QueuedConnection);
    connect(m_pDocument, &QTextDocument::undoCommandAdded, this,
            [this] { m_history.forgetFrom(m_pDocument->availableUndoSteps()); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &CHighlightEdit::followMarkedLines);
    connect(this, &QPlainTextEdit::selectionChanged, this, &CHighlightEdit::followMarkedLines);
    connect(m_pBrackets, &CBracketPair::found, this, &CHighlightEdit::onBracketFound);
}

void CHighlightEdit::buildMenu()
{
    m_pActCopy = m_menu.addAction(tr("Copy"), this, &CHighlightEdit::copy);
    m_pActCut = m_menu.addAction(tr("Cut"), this, &CHighlightEdit::cut);
    m_pActPaste = m_menu.addAction(tr("Paste"), this, &QPlainTextEdit::paste);
    m_menu.addSeparator();
    m_pActToggleComment = m_menu.addAction(tr("Toggle Comment"));
    m_pActToggleComment->setShortcut(QKeySequence(QStringLiteral("Ctrl+/")));
    m_pActToggleComment->setShortcutVisibleInContextMenu(true);
    connect(m_pActToggleComment, &QAction::triggered, this, &CHighlightEdit::toggleComment);
    m_menu.addSeparator();
    m_pActRefresh = m_menu.addAction(tr("Refresh"), this, &CHighlightEdit::onRefresh);
    m_menu.addSeparator();
    m_menu.addAction(tr("Open file position"), this, &CHighlightEdit::onOpenFilePosition);
}

QString CHighlightEdit::getTitle() const
{
    const QString strName = m_strPathFileName.isEmpty()
        ? tr("Untitled")
        : visibleName(QFileInfo(m_strPathFileName).fileName());
    return isModified() ? QString(strName + QLatin1Char('*')) : strName;
}

void CHighlightEdit::setPathFileName(const QString &strPathFileName)
{
    m_strPathFileName = strPathFileName;
    m_strSuffix = QFileInfo(strPathFileName).suffix().toLower();
    m_bPathChanged = true;
}

bool CHighlightEdit::isModified() const
{
    return document()->isModified() && !isLoading();
}

void CHighlightEdit::setModified(bool bModified)
{
    document()->setModified(bModified);
}

void CHighlightEdit::setLineWrap(bool bWrap)
{
    setLineWrapMode(bWrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}

QString CHighlightEdit::getStatusText() const
{
    const QTextCursor cursor = textCursor();
    return tr("row: %1, col: %2, sel: %3")
        .arg(cursor.blockNumber() + 1)
        .arg(cursor.positionInBlock())
        .arg(cursor.selectionEnd() - cursor.selectionStart());
}

void CHighlightEdit::setDefinition(const QVariantMap &mapDefinition)
{
    m_pHighlighter->setDefinition(mapDefinition);
    m_definition = mapDefinition;
    m_pBrackets->setDefinition(mapDefinition);
}

QString CHighlightEdit::languageName() const
{
    return m_pHighlighter->languageName();
}

bool CHighlightEdit::canToggleComment() const
{
    return m_pHighlighter && !isReadOnly() && textCursor().hasSelection()
        && (!m_pHighlighter->singleLineComment().isEmpty()
            || !m_pHighlighter->multiLineCommentStart().isEmpty());
}

void CHighlightEdit::onTextFontSize(int nVal)
{
    if (m_bLockFontSize)
        return;
    QFont fnt = font();
    fnt.setPixelSize(nVal);
    setFont(fnt);
    setTabStopDistance(4 * QFontMetrics(fnt).horizontalAdvance(QLatin1Char('X')));
    updateLineNumberAreaWidth(0);
}

void CHighlightEdit::onSelectionChanged()
{
    if (!m_pHighlighter)
        return;
    const QTextCursor cursor = textCursor();
    // A selection of several lines occurs in no line; copying it would cost more the longer it is.
    const bool bOneLine = document()->findBlock(cursor.selectionStart())
        == document()->findBlock(cursor.selectionEnd());
    m_pHighlighter->setSelectedWord(bOneLine ? cursor.selectedText() : QString());
}

void CHighlightEdit::onOpenFilePosition()
{
    if (!m_strPathFileName.isEmpty())
        openFilePosition(m_strPathFileName);
}

bool CHighlightEdit::event(QEvent *pEvent)
{
    if (pEvent->type() != QEvent::KeyPress)
        return QPlainTextEdit::event(pEvent);
    // Shift+Enter would put a line separator into the line, which ends no line in a file.
    const auto *pKey = static_cast<QKeyEvent *>(pEvent);
    if (m_pCompletion && isForCompletion(pKey)) {
        pEvent->ignore();
        return true;
    }
    if (!pKey->matches(QKeySequence::InsertLineSeparator)) {
        const bool bHandled = QPlainTextEdit::event(pEvent);
        if (m_pCompletion)
            followCompletion();
        return bHandled;
    }
    QKeyEvent enter(QEvent::KeyPress, pKey->key(), pKey->modifiers() & ~Qt::ShiftModifier,
                    pKey->text(), pKey->isAutoRepeat(), ushort(pKey->count()));
    const bool bDone = QPlainTextEdit::event(&enter);
    pEvent->setAccepted(enter.isAccepted());
    return bDone;
}

void CHighlightEdit::contextMenuEvent(QContextMenuEvent *pEvent)
{
    const bool bSelection = textCursor().hasSelection();
    const QMimeData *pClipboard = QGuiApplication::clipboard()->mimeData();
    m_pActCopy->setEnabled(bSelection);
    m_pActCut->setEnabled(bSelection && !isReadOnly());
    m_pActPaste->setEnabled(pClipboard && pClipboard->hasText() && !isReadOnly());
    m_pActToggleComment->setEnabled(canToggleComment());
    m_pActRefresh->setEnabled(!isLoading());
    m_menu.popup(pEvent->globalPos());
}

void CHighlightEdit::wheelEvent(QWheelEvent *pEvent)
{
    if (!pEvent->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(pEvent);
        return;
    }
    changeFontSize(font().pixelSize() + pEvent->angleDelta().y() / 30);
    pEvent->accept();
}

// For this editor and all others. In pixels.
void CHighlightEdit::changeFontSize(int nWanted)
{
    const int nSize = std::clamp(nWanted, 3, 100);
    onTextFontSize(nSize);
    g_pSettings->setTextFontSize(nSize); // The other editors follow.
    updateLineNumberAreaWidth(0); // It depends on the stored size.
    g_pSettings->save();
}

void CHighlightEdit::focusInEvent(QFocusEvent *pEvent)
{
    QPlainTextEdit::focusInEvent(pEvent);
    emit focusIn();
}

bool CHighlightEdit::canInsertFromMimeData(const QMimeData *pSource) const
{
    // Files dropped here are for the window to open, not text to insert.
    return !carriesLocalFiles(pSource) && QPlainTextEdit::canInsertFromMimeData(pSource);
}

QMimeData *CHighlightEdit::createMimeDataFromSelection() const
{
    // The base class would turn no-break spaces into blanks.
    QString strText = hasSeveralCarets()
        ? selectedTexts(CDocumentLines(document()), m_carets).join(QLatin1Char('\n'))
        : textCursor().selectedText();
    strText.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    auto *pMimeData = new QMimeData;
    pMimeData->setText(m_standIns.restore(strText));
    return pMimeData;
}
