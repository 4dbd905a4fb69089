#pragma once

#include <QString>

// Keeps the encoding for pages that declare none. All other settings have no effect.
class QWebSettings
{
public:
    enum WebAttribute {
        AutoLoadImages,
        DnsPrefetchEnabled,
        ErrorPageEnabled,
        HyperlinkAuditingEnabled,
        JavaEnabled,
        JavascriptCanAccessClipboard,
        JavascriptCanOpenWindows,
        JavascriptEnabled,
        LocalContentCanAccessRemoteUrls,
        LocalStorageEnabled,
        MediaEnabled,
        OfflineStorageDatabaseEnabled,
        OfflineWebApplicationCacheEnabled,
        PluginsEnabled,
        PrivateBrowsingEnabled,
    };
    enum FontFamily { StandardFont };
    enum FontSize { DefaultFontSize };

    void setAttribute(WebAttribute, bool) { }
    void setDefaultTextEncoding(const QString &strName) { m_strEncoding = strName; }
    QString defaultTextEncoding() const { return m_strEncoding; }
    QString fontFamily(FontFamily family) const;
    int fontSize(FontSize size) const; // Pixels.
    static void clearMemoryCaches() { }
    static void setMaximumPagesInCache(int) { }

private:
    QString m_strEncoding;
};
