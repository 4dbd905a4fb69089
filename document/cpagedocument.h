#pragma once

#include "document/cdocument.h"

#include <QPointer>

#include <functional>

struct SPageSource;

// An HTML page: the page editor and, in its place, its source editor.
class CPageDocument : public CDocument
{
    Q_OBJECT

public:
    explicit CPageDocument(QWidget *pViewParent);
    ~CPageDocument() override;

    Kind kind() const override { return m_bSource ? Kind::Source : Kind::Page; }
    QWidget *widget() const override;
    CHighlightEdit *editor() const override;
    CEditWebView *page() const override;
    QString path() const override;
    QString title() const override;
    bool isModified() const override;
    bool canSave() const override;
    QString codecName() const override;

    // The first load, with a source that was decoded already.
    CResult loadDecoded(const QString &strPath, const SPageSource &source);
    // Switches between the page and its source; widgetChanged() tells when the other one can be
    // shown.
    void showSource(bool bSource);

    SPlace place() const override;
    void goToPlace(const SPlace &place) override;

    // These commands work on the source while it is shown, else on the page.
    CResult undo() override;
    CResult redo() override;
    CResult cut() override;
    CResult copy() override;
    CResult paste() override;
    CResult selectAll() override;
    CResult find(const QString &strText, bool bBackward) override;
    CResult replace(const QString &strFind, const QString &strReplacement) override;
    CResult replaceAll(const QString &strFind, const QString &strReplacement) override;
    QString selectedText() const override;
    // Works while the source is shown, as for a text. If nothing was typed, the page is read again.
    CResult setCodec(const QString &strName) override;
    CResult format(int nWebAction) override;
    void setLineWrap(bool bWrap) override;

protected:
    QByteArray bytesToSave(const QString &strPath) const override;
    void setPath(const QString &strPath) override;
    void markSaved() override;
    CResult showContent(const QString &strPath, const SFileContent &content) override;
    CResult showAgain(const SFileContent &content) override;
    bool isContentWhole(const SFileContent &content) const override;
    void fillDraft(SDraft *pDraft) const override;
    void showDraft(const SDraft &draft) override;

private:
    void onPageChanged();
    void notePagePlace(SPlace *pPlace) const;
    void goToLoadedPlace(const SPlace &place);
    CResult run(int nWebAction);

    QPointer<CEditWebView> m_pPage;
    const SPageSource *m_pDecoded = nullptr; // While loadDecoded() runs.
    QString m_strDropped; // While it is signalled: a text that is no longer in the page.
    bool m_bSource = false; // Shown in the page's place.
};
