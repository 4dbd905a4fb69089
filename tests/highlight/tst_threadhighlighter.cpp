#include "highlight/cthreadhighlighter.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

namespace {

// Connects a document with its highlighter as an editor does.
struct Editor
{
    CTextDocument document;
    CThreadHighlighter *pHighlighter = new CThreadHighlighter(&document);

    Editor()
    {
        QObject::connect(&document, &QTextDocument::contentsChange, pHighlighter,
                         &CThreadHighlighter::stopThread, Qt::QueuedConnection);
        QObject::connect(&document, &QTextDocument::contentsChanged, pHighlighter,
                         &CThreadHighlighter::rehighlight, Qt::QueuedConnection);
    }
};

} // namespace

class tst_ThreadHighlighter : public QObject
{
    Q_OBJECT
private slots:
    void newText_isColoured();
};

void tst_ThreadHighlighter::newText_isColoured()
{
    Editor editor;
    QSignalSpy spy(editor.pHighlighter, &CThreadHighlighter::blockFormatChanged);
    editor.document.setPlainText(QStringLiteral("int a = 1;\n\nb // c"));
    QTRY_COMPARE(spy.count(), 3);
    QCOMPARE(editor.document.firstBlock().layout()->formats().size(), 2);
}

QTEST_MAIN(tst_ThreadHighlighter)
#include "tst_threadhighlighter.moc"
