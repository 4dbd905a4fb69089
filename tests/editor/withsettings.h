#pragma once

#include "app/csettings.h"

// The settings that every editor asks for, fresh for each test that makes one of these.
class WithSettings
{
public:
    WithSettings()
    {
        m_settings.clear();
        m_settings.read();
        g_pSettings = &m_settings;
    }
    ~WithSettings() { g_pSettings = nullptr; }
    WithSettings(const WithSettings &) = delete;
    WithSettings &operator=(const WithSettings &) = delete;

    CSettings *operator->() { return &m_settings; }
    CSettings *get() { return &m_settings; }

private:
    CSettings m_settings {QStringLiteral("Tavrel Software"), QStringLiteral("editortest")};
};
