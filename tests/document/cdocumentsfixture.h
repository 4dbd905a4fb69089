#pragma once

#include "app/csettings.h"
#include "document/cdocument.h"
#include "document/cdocuments.h"
#include "document/ceditordocument.h"
#include "document/notice.h"
#include "editor/chighlightedit.h"

#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// Open documents without a window, with their own settings, files and drafts.
class CDocumentsFixture
{
public:
    CDocumentsFixture()
        : m_settings(QStringLiteral("Tavrel Software"), QStringLiteral("quillan-test"))
    {
        g_pSettings = &m_settings;
        start();
    }

    ~CDocumentsFixture()
    {
        m_pDocuments.reset();
        g_pSettings = nullptr;
    }

    CDocuments &documents() { return *m_pDocuments; }

    // Simulates an end and a new start of the program.
    void start()
    {
        m_pDocuments.reset();
        m_pDocuments = std::make_unique<CDocuments>(m_folder.path(), nullptr);
    }

    QString path(const QString &strName) const { return m_folder.filePath(strName); }

    static void write(const QString &strPath, const QByteArray &data)
    {
        QFile file(strPath);
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot make %s", qPrintable(strPath));
    }

    static QByteArray content(const QString &strPath)
    {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }

    QString file(const QString &strName, const QByteArray &data) const
    {
        write(path(strName), data);
        return path(strName);
    }

    // Opens a text file.
    CDocument *open(const QString &strPath)
    {
        auto *pDocument = new CEditorDocument(nullptr);
        m_pDocuments->add(pDocument);
        const CResult result = pDocument->load(strPath, CDocument::read(strPath));
        if (!result.isDone())
            qFatal("cannot open %s", qPrintable(strPath));
        return pDocument;
    }

    static void type(CDocument *pDocument, const QString &strText)
    {
        pDocument->editor()->insertPlainText(strText);
    }

private:
    QTemporaryDir m_folder;
    CSettings m_settings;
    std::unique_ptr<CDocuments> m_pDocuments;
};

// Presses the notice's button.
inline bool choose(const SNotice &notice, const QString &strChoice)
{
    for (const SNotice::SChoice &choice : notice.lstChoices) {
        if (choice.strText == strChoice) {
            choice.chosen();
            return true;
        }
    }
    return false;
}
