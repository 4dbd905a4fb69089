#pragma once

#include <QIODevice>

// A device that fails like a broken disk: at opening, after so many bytes, in pieces, or only when
// written bytes are flushed or committed.
class CFailingDevice : public QIODevice
{
    Q_OBJECT

public:
    enum class Fault {
        AtOpen,
        AfterBytes, // Takes so many bytes, then reports a failure.
        Full, // Takes so many bytes, then none, without reporting a failure.
        None,
    };

    explicit CFailingDevice(Fault fault, qint64 nBytes = 0) : m_fault(fault), m_nLeft(nBytes) { }

    // At most so many bytes per call, as pipes and sockets do it.
    void setPieces(qint64 nBytes) { m_nPiece = nBytes; }
    const QByteArray &written() const { return m_written; }

    bool open(OpenMode mode) override
    {
        if (m_fault == Fault::AtOpen) {
            setErrorString(QStringLiteral("no such device"));
            return false;
        }
        return QIODevice::open(mode | Unbuffered);
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }

    qint64 writeData(const char *pData, qint64 nSize) override
    {
        qint64 nTaken = qMin(nSize, m_nPiece);
        if (m_fault != Fault::None)
            nTaken = qMin(nTaken, m_nLeft);
        if (nTaken == 0 && nSize > 0 && m_fault == Fault::AfterBytes) {
            setErrorString(QStringLiteral("input/output error"));
            return -1;
        }
        m_written.append(pData, int(nTaken));
        m_nLeft -= nTaken;
        return nTaken;
    }

private:
    Fault m_fault;
    qint64 m_nLeft;
    qint64 m_nPiece = 0x7fffffff;
    QByteArray m_written;
};
