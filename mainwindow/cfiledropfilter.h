#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class QMimeData;
class QWidget;

// Takes drags of local files for a whole window. Its children would otherwise take them first: a
// text editor inserts their URLs as text, a page goes there. Drags of text are left alone.
class CFileDropFilter : public QObject
{
    Q_OBJECT

public:
    explicit CFileDropFilter(QWidget *pWindow);

    // The local files among the URLs, in order.
    static QStringList localFiles(const QMimeData *pData);

    // A drag that a widget handles itself is left alone, too.
    using Exception = std::function<bool(const QWidget *, const QMimeData *)>;
    void setException(const Exception &isTaken) { m_isTaken = isTaken; }

signals:
    void filesDropped(QStringList lstFiles);

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    QWidget *m_pWindow; // Not owned.
    Exception m_isTaken;
};
