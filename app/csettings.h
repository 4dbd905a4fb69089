#pragma once

#include <QByteArray>
#include <QColor>
#include <QSettings>
#include <QString>
#include <QStringList>

// The one persistent store of preferences and remembered state: native format, user scope. The
// program calls dropStreamedValues() before it makes one, because a damaged file could end it here.
//
// Every key is mirrored in a plain member. All are read at construction; setters change the member
// only, and nothing reaches the disk before write() or save(), which the destructor calls once
// more; on a full disk the file stays as it is. A stored value that cannot be read as its type
// counts as absent. GUI thread only.
class CSettings : public QSettings
{
    Q_OBJECT

public:
    CSettings(const QString &strOrganization, const QString &strApplication,
              QObject *pParent = nullptr);
    ~CSettings() override;

    QByteArray m_arrFrameState;
    QString m_strLastPathFileName;
    QStringList m_lstFavorFolders;
    QColor m_clrTextColor;
    QColor m_clrBackColor; // Stored without alpha: "transparent" comes back as opaque black.
    int m_nTextFontSize = 0; // Pixels.
    bool m_bLineWrap = false;
    QStringList m_lstRecentFiles;
    bool m_bIsHtmlText = false;
    // Whether misspelt words are marked in pages, and in text editors.
    bool m_bPageSpelling = false;
    bool m_bTextSpelling = false;
    bool m_bFindMatchWholeWord = false;
    bool m_bFindMatchCase = false;
    bool m_bFindSearchUp = false;
    bool m_bFindWrapSearch = false;
    bool m_bFindCloseAfterFindNext = false;
    bool m_bFindUseRegularExpression = false;
    int m_nFindTransparent = 0; // Opacity in per cent.

public slots:
    void read();
    void write();
    void save();

    QByteArray getFrameState() const { return m_arrFrameState; }
    void setFrameState(const QByteArray &arrState) { m_arrFrameState = arrState; }
    QString getLastPathFileName() const { return m_strLastPathFileName; }
    void setLastPathFileName(const QString &strPath) { m_strLastPathFileName = strPath; }
    QStringList getFavorFolders() const { return m_lstFavorFolders; }
    void setFavorFolders(const QStringList &lstFolders) { m_lstFavorFolders = lstFolders; }
    QColor getTextColor() const { return m_clrTextColor; }
    void setTextColor(const QColor &clr) { m_clrTextColor = clr; }
    QColor getBackColor() const { return m_clrBackColor; }
    void setBackColor(const QColor &clr) { m_clrBackColor = clr; }
    int getTextFontSize() const { return m_nTextFontSize; }
    // Signals textFontSizeChanged() even when the value is the old one.
    void setTextFontSize(int nVal);
    QStringList getRecentFileList() const { return m_lstRecentFiles; }
    void setRecentFileList(const QStringList &lstFiles) { m_lstRecentFiles = lstFiles; }
    bool getIsHtmlText() const { return m_bIsHtmlText; }
    void setIsHtmlText(bool bVal) { m_bIsHtmlText = bVal; }
    bool getLineWrap() const { return m_bLineWrap; }
    void setLineWrap(bool bVal) { m_bLineWrap = bVal; }

    // The lower-case system locale name, e.g. "zh_cn". In memory only.
    QString getLoc() const { return m_strLoc; }
    void setLoc(const QString &strLoc) { m_strLoc = strLoc; }

signals:
    void textFontSizeChanged(int nVal);

private:
    bool hasRoomOnDisk() const;

    QString m_strLoc;
};

// Set in main.cpp only.
extern CSettings *g_pSettings;
