#pragma once

#include <QObject>

class CDocument;
class CHighlightMgt;
class CStatusLabels;
class MainWindow;

namespace Ui {
class MainWindow;
}

// Makes the entries of the menus "Language", "Text Codec" and "Return Format", and shows a
// document's choices in the menus and in the status bar.
class CFormatMenus : public QObject
{
    Q_OBJECT

public:
    // The window owns all arguments, and they outlive this object.
    CFormatMenus(Ui::MainWindow *pUi, const CHighlightMgt *pLanguages, CStatusLabels *pStatus,
                 MainWindow *pWindow);

    void show(const CDocument &document);

private:
    void addLanguages(MainWindow *pWindow);
    void addCodecs(MainWindow *pWindow);
    void showReturnFormat(const CDocument &document);
    void showLanguage(const CDocument &document);
    void showCodec(const CDocument &document);

    Ui::MainWindow *m_pUi;
    const CHighlightMgt *m_pLanguages;
    CStatusLabels *m_pStatus;
};
