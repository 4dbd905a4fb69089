#pragma once

#include <QHash>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QUrl>
#include <QVector>

class CPageReply;
struct SFileContent;

// Decides what a shown page may fetch. A page of this disk gets files of its own site (see
// localresources.h) and data URLs, and no network at all: neither images that tell a server that
// the page was opened, nor frames that show other files. Of a file it gets only what is harmless
// (see pageresources.h, dataaddresses.h), and as many style sheets as a page can need. A page of
// the network, to which the user followed a link, gets what the network has and no file.
class CPageNetwork : public QNetworkAccessManager
{
    Q_OBJECT

public:
    explicit CPageNetwork(QObject *pParent = nullptr);

    // Sets the address of the document that asks from now on, which may be fetched itself.
    void setDocument(const QUrl &url);
    QUrl document() const { return m_urlDocument; }
    bool isAllowed(const QUrl &url) const;
    // Expects the frame's next request for that address to be for a document and not for a picture.
    void expectFrame(const QObject *pFrame, const QUrl &url);
    // The same for a file that was read already; these bytes are the answer. Does nothing if the
    // file could not be read.
    void expectFrame(const QObject *pFrame, const QUrl &url, const SFileContent &content);

signals:
    void refused(const QUrl &url);

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *pData) override;

private:
    bool isFileAllowed(const QUrl &url) const;
    bool mayLoadSheet(const QNetworkRequest &request);
    struct SFrame
    {
        QUrl url; // What it is about to show.
        // True if the bytes were read already; otherwise they are still in the file.
        bool bRead = false;
        bool bReadable = false;
        QByteArray bytes;
    };
    SFrame takeFrame(const QNetworkRequest &request);
    CPageReply *answerFromFile(Operation operation, const QNetworkRequest &request);
    void tellLater(CPageReply *pReply);
    void tellAll();

    QVector<QPointer<CPageReply>> m_arrUntold; // Replies that the page has not been told of yet.
    QUrl m_urlDocument;
    QHash<const QObject *, SFrame> m_hashFrames;
    QHash<QString, int> m_hashSheets; // How often each style sheet was asked for.
    int m_nSheets = 0;
};
