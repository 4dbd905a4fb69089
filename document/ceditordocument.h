#pragma once

#include "document/cdocument.h"

#include <QPointer>

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
    bool canSave() const override { return true; }
    bool isCodecSure() const override;

    // Shows the file in that codec: from its own bytes while nothing was typed, else from the bytes
    // that the text has in the codec it was read in.
    Result setCodec(const QString &strName) override;

    SPlace place() const override;
    void goToPlace(const SPlace &place) override;

protected:
    QByteArray bytesToSave(const QString &strPath) const override;
    void setPath(const QString &strPath) override;
    void markSaved() override;
    Result showContent(const QString &strPath, const SFileContent &content) override;
    Result showAgain(const SFileContent &content) override;
    QString codecName() const override;
    bool isContentWhole(const SFileContent &content) const override;
    void fillDraft(SDraft *pDraft) const override;
    void showDraft(const SDraft &draft) override;

private:
    QPointer<CHighlightEdit> m_pEditor;
};
