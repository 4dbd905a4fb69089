#pragma once

#include <QObject>
#include <QSet>
#include <QString>

#include <functional>

class CDocument;
class CEditorDocument;
class CPageDocument;
class CTabWidget;
class CTaster;
class MainWindow;
struct SDraft;
struct SFileContent;

// Makes documents and their tabs, for new documents and for files, with the right kind of view. A
// file that cannot be read gets the specified box and no tab.
class COpener : public QObject
{
    Q_OBJECT

public:
    // pLoading is the window's flag, which is true while a document is created or loaded. pTaster
    // is told of pages and pictures that crashed the program. All arguments outlive this object.
    COpener(MainWindow *pWindow, CTabWidget *pTabs, CTaster *pTaster, bool *pLoading);

    // Closes a document as the user would; false when it stays.
    void setClose(std::function<bool(CDocument *)> close) { m_close = std::move(close); }

    void newText();
    void newPage();
    // Opens the file, or selects the tab that shows this very path.
    void open(const QString &strPath);
    void recover(const SDraft &draft);
    void showFailure(const QString &strPath, const QString &strReason);

signals:
    // A document has got a tab, which is current. It has no content yet.
    void added(CDocument *pDocument);
    // One line for the status bar.
    void message(QString strText);

private:
    void addDocument(CDocument *pDocument, const QString &strTitle, const QString &strIcon);
    CEditorDocument *addTextDocument();
    CEditorDocument *addTextOfFile();
    CPageDocument *addPageDocument();
    bool isAskedFirst(const QString &strPath);
    bool read(const QString &strPath, SFileContent *pContent);
    void openText(const QString &strPath);
    void openPage(const QString &strPath);
    void openImage(const QString &strPath);
    void showText(const QString &strPath, const SFileContent &content);
    void showTextInBackground(const QString &strPath);
    void tellOfText(const CDocument &document);
    void chooseLanguage(const CDocument &document);
    QString refusalOf(const QString &strPath, const QString &strHtml) const;
    void openSourceOf(const QString &strPath, const SFileContent &content, const QString &strWhy);
    bool mayOpenImage(const QString &strPath);
    void nameTab(const CDocument &document);

    MainWindow *m_pWindow;
    CTabWidget *m_pTabs;
    CTaster *m_pTaster;
    bool *m_pLoading;
    std::function<bool(CDocument *)> m_close;
    QSet<QString> m_setLargeWanted; // Files that the user wants to open, however large they are.
    QSet<QString> m_setShownAnyway; // Pages that the user wants to see, whatever they contain.
};
