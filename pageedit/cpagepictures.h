#pragma once

#include <QObject>
#include <QStringList>

class CDlgPicture;
class CEditWebView;
class QMimeData;
class QPoint;
struct SPicture;

// Pictures of a page that is edited: inserted from files, drops and the clipboard. What the mouse
// does with them is CPictureMouse's. Each change is one step of undo. Files are written beside the
// page only, never over others. A page without a file takes none, as no address leads from it; the
// status bar says so. A child of the view. GUI thread only.
class CPagePictures : public QObject
{
    Q_OBJECT

public:
    explicit CPagePictures(CEditWebView *pView);

    // Those of a view; null for a view without.
    static CPagePictures *of(const QObject *pView);

    // Asks for the selected picture's properties, or for a picture to insert.
    void ask();
    // True for what goes into the page when it is dropped or pasted: nothing but files of pictures,
    // or a picture without any text beside it.
    bool takesDrop(const QMimeData *pData) const;
    bool takesPaste(const QMimeData *pData) const;
    // Asks about one after the other.
    void insertFiles(const QStringList &lstFiles);
    // Stored beside the page as "page-1.png". False when the clipboard holds no picture.
    bool paste(const QMimeData *pData);

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    bool hasFile() const;
    bool run(CDlgPicture *pDialog, SPicture *pPicture);
    void insert(const SPicture &picture);
    void drop(const QStringList &lstFiles, const QPoint &point);

    CEditWebView *m_pView;
};
