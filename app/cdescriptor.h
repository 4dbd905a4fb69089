#pragma once

#include "app/platformfiles.h"

#include <utility>

// Owns an open file; closes it at the end of its life.
class CDescriptor
{
public:
    explicit CDescriptor(int nHandle = -1) : m_nHandle(nHandle) { }
    ~CDescriptor() { close(); }
    CDescriptor(CDescriptor &&other) noexcept : m_nHandle(other.m_nHandle) { other.m_nHandle = -1; }
    CDescriptor &operator=(CDescriptor &&other) noexcept
    {
        std::swap(m_nHandle, other.m_nHandle);
        return *this;
    }
    CDescriptor(const CDescriptor &) = delete;
    CDescriptor &operator=(const CDescriptor &) = delete;

    bool isOpen() const { return m_nHandle >= 0; }
    int handle() const { return m_nHandle; }

    // Closes the file in any case. False when the system reports only now that written bytes are
    // lost.
    bool close()
    {
        const int nHandle = m_nHandle;
        m_nHandle = -1;
        return nHandle < 0 || Platform::closeFile(nHandle);
    }

private:
    int m_nHandle;
};
