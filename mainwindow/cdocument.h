#pragma once

#include <QByteArray>
#include <QString>

class CEditWebView;
class CHighlightEdit;
class CImageWidget;
class QObject;
class QWidget;

// One open document, made from the widget in its tab (null: no document). A value: copy freely,
// do not keep beyond the tab. The one place that tells the kinds of document apart.
class CDocument
{
public:
    enum class Kind {
        None,
        Text, // A code editor of its own.
        Page, // The page editor.
        Source, // The source editor of a page, standing in the page editor's tab.
        Image,
    };

    explicit CDocument(QWidget *pWidget);

    Kind kind() const { return m_kind; }
    QWidget *widget() const { return m_pWidget; }
    // The code editor in the tab: of a text or of a page's source; else null.
    CHighlightEdit *editor() const { return m_pEditor; }
    // The page editor, also while its source stands in the tab; else null.
    CEditWebView *page() const { return m_pPage; }
    CImageWidget *image() const { return m_pImage; }

    // What stays the same while the tab changes from page to source and back; null without one.
    QObject *key() const;

    QString path() const; // Empty for an untitled document.
    QString title() const; // Ends with "*" while the document is modified.
    bool isModified() const;
    bool canSave() const; // False for images, and for a page that shows another address.

    // What a save writes, UTF-8.
    QByteArray bytesToSave() const;
    void setPath(const QString &strPath) const;
    // After the bytes have reached the disk.
    void markSaved() const;

    // Reads the document from its file again. False, and the document as it was, on failure.
    bool reload() const;

    // Deletes the widget, which takes its tab with it, and what belongs to it.
    void destroy() const;

private:
    QWidget *m_pWidget;
    CHighlightEdit *m_pEditor;
    CEditWebView *m_pPage;
    CImageWidget *m_pImage;
    Kind m_kind = Kind::None;
};
