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

    // Shows the file in that codec. While nothing was typed, it decodes the file's bytes, else the
    // bytes of the text in its old codec.
    CResult setCodec(const QString &strName) override;

    // A large file: shows it piece by piece while the event loop runs. Ends with loaded() or
    // arrivalFailed().
    void loadInBackground(const QString &strPath);

    // The place to go to when the text has arrived.
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

    bool m_bFirstTime = false; // Nothing was shown before the text that arrives.
    QString m_strArriving; // The path that is read.
    bool m_bAsking = false; // Whether a long line is to be shown whole.
    bool m_bKeepsPlace = false; // The file is read again.
    std::optional<SPlace> m_goal; // Of a text that arrives.
    QPointer<CHighlightEdit> m_pEditor;
};
