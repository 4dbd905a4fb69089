#pragma once

#include "document/cdocument.h"

#include <QPointer>

#include <optional>

// A text or source file in a code editor.
class CEditorDocument : public CDocument
{
    Q_OBJECT

public:
    // The view becomes a child of pViewParent until a tab takes it.
    explicit CEditorDocument(QWidget *pViewParent);
    ~CEditorDocument() override;

    Kind kind() const override { return Kind::Text; }
    QWidget *widget() const override;
    CHighlightEdit *editor() const override;
    QString path() const override;
    QString title() const override;
    bool isModified() const override;
    bool canSave() const override { return !isReadOnly(); }
    bool isArriving() const override;
    bool isReadOnly() const override;
    bool stopArriving() override;
    void dismissNotice() override;
    bool isCodecSure() const override;
    QString codecName() const override;

    // Shows the file in that codec. An unchanged text is decoded from the file's bytes, a changed
    // one from the bytes that it has in its old codec.
    CResult setCodec(const QString &strName) override;

    // Shows a large file piece by piece while the event loop runs. Ends with loaded() or
    // arrivalFailed().
    void loadInBackground(const QString &strPath);

    // While the text arrives, this is the place to which the view will go.
    SPlace place() const override;
    void goToPlace(const SPlace &place) override;

protected:
    QByteArray bytesToSave(const QString &strPath) const override;
    void setPath(const QString &strPath) override;
    void markSaved() override;
    CResult showContent(const QString &strPath, const SFileContent &content) override;
    CResult showAgain(const SFileContent &content) override;
    bool reloadInBackground() override;
    bool isContentWhole(const SFileContent &content) const override;
    void fillDraft(SDraft *pDraft) const override;
    void showDraft(const SDraft &draft) override;

private:
    void connectArrival();
    void onArrived(const SFileContent &content);
    void onArrivalFailed(const SFileContent &content, bool bPartial);
    bool showInCodecInBackground(const QString &strCodec);
    void askAboutLongLine(int nLength);
    void answerAboutLongLine(bool bWhole);
    void tellOfPieces();

    bool m_bFirstTime = false; // The arriving text is the first of this document.
    QString m_strArriving; // The path that is being read.
    bool m_bAsking = false; // The notice asks whether to show a long line whole.
    bool m_bKeepsPlace = false; // The arriving text keeps the place of the old one.
    std::optional<SPlace> m_goal; // Where to go in the arriving text.
    QPointer<CHighlightEdit> m_pEditor;
};
