#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

// Replaces the desktop's programs while it lives.
class CUrlCatcher : public QObject
{
    Q_OBJECT

public:
    CUrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~CUrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    QList<QUrl> m_lstUrls;

public slots:
    void open(const QUrl &url) { m_lstUrls.append(url); }
};
