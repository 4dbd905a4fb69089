#pragma once

#include "app/cdraftstore.h"
#include "app/cresult.h"
#include "app/filereader.h"
#include "app/filestate.h"
#include "document/notice.h"
#include "document/place.h"

#include <QMap>
#include <QObject>

class CEditWebView;
class CHighlightEdit;
class CImageWidget;
class QWidget;

// An open document: its views, its file as it was last seen, what must be asked before it is saved,
// and the commands that every kind of document answers. Text, page and picture are subclasses. This
// class itself is the document of a window that has none: it refuses every command.
//
// Ownership: a document owns its views, also while a tab shows them. CDocuments owns the documents.
// GUI thread only.
class CDocument : public QObject
{
    Q_OBJECT

public:
    // What the tab shows.
    enum class Kind {
        None,
        Text, // A code editor of its own.
        Page, // The page editor.
        Source, // The source editor of a page, standing in the page editor's tab.
        Image,
    };

    // Notices, the most urgent first: only one of a document's notices is shown.
    enum class Topic { Question, Changed, Dropped, Loading };

    explicit CDocument(QObject *pParent = nullptr) : QObject(pParent) { }

    virtual Kind kind() const { return Kind::None; }
    virtual QWidget *widget() const { return nullptr; }
    // The code editor that the tab shows: of a text or of a page's source; else null.
    virtual CHighlightEdit *editor() const { return nullptr; }
    // The page editor, also while its source stands in the tab; else null.
    virtual CEditWebView *page() const { return nullptr; }
    virtual CImageWidget *image() const { return nullptr; }

    virtual QString path() const { return QString(); } // Empty for an untitled document.
    virtual QString title() const { return QString(); } // Ends with "*" while modified.
    virtual bool isModified() const { return false; }
    // False for pictures, and for a page that shows another address than its file's.
    virtual bool canSave() const { return false; }
    // True while the document is created or filled; for a large text, until all of it has arrived.
    bool isLoading() const { return m_bLoading || isArriving(); }
    // A large text on its way: it can be read and copied, and nothing else. It is not modified.
    virtual bool isArriving() const { return false; }
    // True when the document can be neither changed nor saved: it is still arriving, or it is not
    // shown as the file has it.
    virtual bool isReadOnly() const { return isArriving(); }
    // Ends the arrival. False when only a part of the text is there: then close the document.
    virtual bool stopArriving() { return true; }
    bool isSaving() const { return m_bSaving; }

    // The file: each refusal leaves the document as it was.
    // All of a file for a document. Pass on only what isLoadable().
    static SFileContent read(const QString &strPath);
    // True for a file so large that the user is asked before it is read.
    static bool isAboveCeiling(const QString &strPath);
    // The size in bytes above which a file is refused. Tests lower it.
    static void setCeiling(qint64 nBytes);
    static bool isLoadable(const SFileContent &content);
    // Shows what was read from the path.
    CResult load(const QString &strPath, const SFileContent &content);
    // Reads the file again; what was typed since is dropped without a draft: ask first.
    CResult reload();
    // Refused without a text when the notice bar asks the user first; see saveWanted().
    CResult save();
    CResult saveAnyway();
    // Under a new path, whatever lies there. Asks in the bar, too, when the text is not all of the
    // file; see saveAsWanted().
    CResult saveAs(const QString &strPath);
    CResult saveAsAnyway(const QString &strPath);

    // The file has another name now, and nothing else about it is new.
    void fileRenamed(const QString &strPath);

    // The file as it was when it was last read or written here.
    const SFileState &fileState() const { return m_state; }
    // False when saving would lose what could not be shown.
    bool isWhole() const { return m_bWhole; }
    // False when the text was read in a codec that is a guess.
    virtual bool isCodecSure() const { return true; }
    // The encoding that the text was read in; empty where there is no text.
    virtual QString codecName() const { return QString(); }
    // Looks whether the file is still as it was last seen, and raises a notice when it is not.
    void checkFile();
    // The same, when another tab has just written it.
    void checkFileAfterSaveElsewhere();

    // Caret and scroll position of the user.
    virtual SPlace place() const;
    // Goes back there. For a document that has just been loaded; a page goes when its load ends.
    virtual void goToPlace(const SPlace &) { }

    // What a draft must hold to bring the document back.
    SDraft draft() const;
    // The same state of the text, which need not be worked out on this thread.
    SDraft draftWithTextLater() const;
    // Takes over what a draft holds: modified, and beginning from the file that the draft began
    // from.
    void restore(const SDraft &draft);

    // Editing commands. They answer whether they could do anything.
    virtual CResult undo();
    virtual CResult redo();
    virtual CResult cut();
    virtual CResult copy();
    virtual CResult paste();
    virtual CResult selectAll();
    // The next match; bBackward: against the direction that the settings give.
    virtual CResult find(const QString &strText, bool bBackward);
    virtual CResult replace(const QString &strFind, const QString &strReplacement);
    virtual CResult replaceAll(const QString &strFind, const QString &strReplacement);
    virtual QString selectedText() const;
    // Runs a QWebPage::WebAction, such as bold, on a page that is shown.
    virtual CResult format(int nWebAction);

    // Only where the text is one: see CEditorDocument.
    virtual CResult setCodec(const QString &strName);
    CResult setReturnFormat(int nFormat);
    virtual void setLineWrap(bool bWrap);

    // What is to be told about this document now.
    SNotice notice() const;
    void setNotice(Topic topic, const SNotice &notice);
    void clearNotice(Topic topic) { setNotice(topic, SNotice()); }
    // The user closed the bar.
    virtual void dismissNotice();

signals:
    // The text or the picture changed, or may have.
    void contentsChanged();
    void modifiedChanged(bool bModified);
    // Another widget stands for the document now.
    void widgetChanged(QWidget *pOld, QWidget *pNew);
    void loaded(); // For the first time.
    // A large text: began or ended; how far; its first lines stand there.
    void arrivingChanged();
    void arrivalProgressed(qint64 nDone, qint64 nAll);
    void firstTextShown();
    // It could not be read to its end. bPartial: only a part is there, close the document.
    void arrivalFailed(const QString &strReason, bool bPartial);
    void reloaded();
    void saved();
    void renamed(); // The file, by this program.
    // The user answered that the document shall be saved all the same.
    void saveWanted();
    void saveAsWanted(QString strPath);
    void refreshWanted();
    void noticeChanged();
    // A step is about to drop text that was not saved and that nobody asked about. The text stands
    // still in the document.
    void textDropping(SDraft::Reason reason);
    // The document goes: its text is saved or may be lost.
    void closed();

protected:
    // strPath: where they will lie.
    virtual QByteArray bytesToSave(const QString &strPath) const;
    virtual void setPath(const QString &) { }
    // Called after the bytes have reached the disk.
    virtual void markSaved() { }
    virtual CResult showContent(const QString &strPath, const SFileContent &content);
    virtual CResult showAgain(const SFileContent &content);
    // True when the file is large and is read in the background from now on.
    virtual bool reloadInBackground() { return false; }
    virtual bool isContentWhole(const SFileContent &) const { return true; }
    virtual void fillDraft(SDraft *) const { }
    virtual void showDraft(const SDraft &) { }

    // The views have read the file anew by themselves.
    void onFileRead(const SFileContent &content);
    void dropText(SDraft::Reason reason);
    // The document stands on the file as it is in that state.
    void noteState(const SFileState &state, bool bWhole);
    void setWhole(bool bWhole) { m_bWhole = bWhole; }

private:
    CResult write(const QString &strPath);
    CResult refusedAsReadOnly() const;
    SNotice saveQuestion();
    SNotice lossQuestion() const;
    SNotice changedNotice();

    SFileState m_state;
    QMap<Topic, SNotice> m_mapNotices;
    bool m_bWhole = true;
    bool m_bLoading = false;
    bool m_bSaving = false;
    bool m_bChangeTold = false;
    bool m_bSavedElsewhere = false; // By another tab of this window.
};
