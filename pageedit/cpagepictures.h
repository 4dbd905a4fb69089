#pragma once

#include <QObject>
#include <QStringList>

class CDlgPicture;
class CEditWebView;
class QMimeData;
class QPoint;
struct SPicture;

// Inserts pictures into an edited page, from files, drops and the clipboard. CPictureMouse handles
// the mouse. Each change is one step of undo. Files are written only beside the page, and never
// over others. A page without a file takes no pictures, because no address leads from it; the
// status bar says so. A child of the view. GUI thread only.
class CPagePictures : public QObject
{
    Q_OBJECT

public:
    explicit CPagePictures(CEditWebView *pView);

    // The object of a view; null if it has none.
    static CPagePictures *of(const QObject *pView);

    // Asks for the selected picture's properties, or for a picture to insert.
    void ask();
    // True for data that goes into the page when it is dropped or pasted: only files of pictures,
    // or a picture without any text.
    bool takesDrop(const QMimeData *pData) const;
    bool takesPaste(const QMimeData *pData) const;
    // Asks about each picture in turn.
    void insertFiles(const QStringList &lstFiles);
    // Stores the picture beside the page as "page-1.png". False if the clipboard holds no picture.
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
