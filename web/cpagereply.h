#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

// The answer to a request of a page, from memory: bytes, or a refusal. It emits nothing before
// tell() is called.
class CPageReply : public QNetworkReply
{
    Q_OBJECT

public:
    // Refuses.
    CPageReply(QNetworkAccessManager::Operation operation, const QNetworkRequest &request,
               NetworkError error, QObject *pParent);
    // Answers with the bytes.
    CPageReply(QNetworkAccessManager::Operation operation, const QNetworkRequest &request,
               const QByteArray &data, QObject *pParent);

    // Emits the signals that a page waits for. The page may delete the reply meanwhile.
    void tell();

    void abort() override { }
    qint64 bytesAvailable() const override;
    bool isSequential() const override { return true; }
    qint64 size() const override { return m_data.size(); }

protected:
    qint64 readData(char *pTo, qint64 nMost) override;

private:
    QByteArray m_data;
    int m_nRead = 0;
};
