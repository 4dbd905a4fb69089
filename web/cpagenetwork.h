#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QUrl>
#include <QVector>

// All that a shown page may fetch. A page of this disk gets files of its own site (see
// localresources.h) and data URLs, and no network at all: neither images that tell a server that
// the page was opened, nor frames that show other files. A page of the network, to which the
// user followed a link, gets what the network has and no file.
class CPageNetwork : public QNetworkAccessManager
{
    Q_OBJECT

public:
    explicit CPageNetwork(QObject *pParent = nullptr);

    // The address of the document that asks from now on; it may itself be fetched.
    void setDocument(const QUrl &url) { m_urlDocument = url; }
    QUrl document() const { return m_urlDocument; }
    bool isAllowed(const QUrl &url) const;

signals:
    void refused(const QUrl &url);

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *pData) override;

private:
    bool isFileAllowed(const QUrl &url) const;
    void refuse(QNetworkReply *pRefusal);
    void finishRefusals();

    QVector<QPointer<QNetworkReply>> m_arrRefusals; // Of which the page does not know yet.
    QUrl m_urlDocument;
};
