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
        Source, // The source editor of a page, in the page editor's tab.
        Image,
    };

    // Notices, the most urgent first: only one of a document's notices is shown.
    enum class Topic { Question, Changed, Dropped, Loading };

    explicit CDocument(QObject *pParent = nullptr) : QObject(pParent) { }

    virtual Kind kind() const { return Kind::None; }
    virtual QWidget *widget() const { return nullptr; }
    // The code editor that the tab shows: of a text or of a page's source; else null.
    virtual CHighlightEdit *editor() const { return nullptr; }
    // The page editor, also while the tab shows its source; else null.
    virtual CEditWebView *page() const { return nullptr; }

    virtual QString path() const { return QString(); } // Empty for an untitled document.
    virtual QString title() const { return QString(); } // Ends with "*" while modified.
    virtual bool isModified() const { return false; }
    // False for pictures, and for a page that shows another address than its file's.
    virtual bool canSave() const { return false; }
    // True while a reload or a draft replaces the contents. For a large text it lasts until all of
    // the text has arrived.
    bool isLoading() const { return m_bLoading || isArriving(); }
    // True while a large text arrives: it can be read and copied, and nothing else. It is not
    // modified.
    virtual bool isArriving() const { return false; }
    // True when the document can be neither changed nor saved: it is still arriving, or it is not
    // shown exactly as in the file.
    virtual bool isReadOnly() const { return isArriving(); }
    // Ends the arrival. False when only a part of the text is there: then close the document.
    virtual bool stopArriving() { return true; }
    bool isSaving() const { return m_bSaving; }

    // The file: each refusal leaves the document as it was. Reads all of a file for a document. Use
    // the result only if it isLoadable().
    static SFileContent read(const QString &strPath);
    // True for a file so large that the user is asked before it is read.
    static bool isAboveCeiling(const QString &strPath);
    // The size in bytes above which a file is refused. Tests lower it.
    static void setCeiling(qint64 nBytes);
    static bool isLoadable(const SFileContent &content);
    // Shows what was read from the path.
    CResult load(const QString &strPath, const SFileContent &content);
    // Reads the file again. Ask the user first: text typed since is dropped without a draft.
    CResult reload();
    // If the notice bar has to ask the user first, the result is a refusal without a text; see
    // saveWanted().
    CResult save();
    CResult saveAnyway();
    // Saves under a new path and replaces any file there. Also asks in the bar if the text is not
    // all of the file; see saveAsWanted().
    CResult saveAs(const QString &strPath);
    CResult saveAsAnyway(const QString &strPath);

    // The file was renamed and is otherwise unchanged.
    void fileRenamed(const QString &strPath);

    // The state of the file when it was last read or written here.
    const SFileState &fileState() const { return m_state; }
    // False when saving would lose what could not be shown.
    bool isWhole() const { return m_bWhole; }
    // False when the text was read in a codec that is a guess.
    virtual bool isCodecSure() const { return true; }
    // The encoding that the text was read in; empty where there is no text.
    virtual QString codecName() const { return QString(); }
    // Checks whether the file is still as it was last seen, and raises a notice if it is not.
    void checkFile();
    // The same, after another tab has written the file.
    void checkFileAfterSaveElsewhere();

    // Caret and scroll position of the user.
    virtual SPlace place() const;
    // Goes to that place in a document that was just loaded; in a page when its load ends.
    virtual void goToPlace(const SPlace &) { }

    // A draft from which the document can be restored.
    SDraft draft() const;
    // The same, but another thread may make the text later.
    SDraft draftWithTextLater() const;
    // Takes over a draft. The document is then modified, and based on the file from which the draft
    // began.
    void restore(const SDraft &draft);

    // Editing commands. The result tells whether they could do anything.
    virtual CResult undo();
    virtual CResult redo();
    virtual CResult cut();
    virtual CResult copy();
    virtual CResult paste();
    virtual CResult selectAll();
    // Goes to the next match; bBackward reverses the direction of the settings.
    virtual CResult find(const QString &strText, bool bBackward);
    virtual CResult replace(const QString &strFind, const QString &strReplacement);
    virtual CResult replaceAll(const QString &strFind, const QString &strReplacement);
    virtual QString selectedText() const;
    // Runs a QWebPage::WebAction, such as bold, on a page that is shown.
    virtual CResult format(int nWebAction);

    // Only for documents with a text: see CEditorDocument.
    virtual CResult setCodec(const QString &strName);
    CResult setReturnFormat(int nFormat);
    virtual void setLineWrap(bool bWrap);

    // The present notice about this document.
    SNotice notice() const;
    void setNotice(Topic topic, const SNotice &notice);
    void clearNotice(Topic topic) { setNotice(topic, SNotice()); }
    // The user closed the bar.
    virtual void dismissNotice();

signals:
    // The text or the picture changed, or may have.
    void contentsChanged();
    void modifiedChanged(bool bModified);
    // The document is now shown by another widget.
    void widgetChanged(QWidget *pOld, QWidget *pNew);
    void loaded(); // For the first time.
    // For a large text: its arrival began or ended; its progress; its first lines are shown.
    void arrivingChanged();
    void arrivalProgressed(qint64 nDone, qint64 nAll);
    void firstTextShown();
    // It could not be read to its end. With bPartial only a part is there: close the document.
    void arrivalFailed(const QString &strReason, bool bPartial);
    void reloaded();
    void saved();
    void renamed(); // This program renamed the file.
    // The user answered that the document shall be saved all the same.
    void saveWanted();
    void saveAsWanted(QString strPath);
    void refreshWanted();
    void noticeChanged();
    // A step is about to drop unsaved text without asking. The document still has the text.
    void textDropping(SDraft::Reason reason);
    // The document is being closed; its text is saved or may be lost.
    void closed();

protected:
    // strPath is the path of the file that will be written.
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

    // The views have read the file again by themselves.
    void onFileRead(const SFileContent &content);
    void dropText(SDraft::Reason reason);
    // The document is now based on the file in that state.
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
    bool m_bSavedElsewhere = false; // Another tab of this window has saved the file.
};
