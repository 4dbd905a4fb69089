#pragma once

#include <QObject>
#include <QVariantMap>

// A small table of extra translations beside the message catalogues: locale tag -> English text ->
// translation. Loaded on the first turn of the event loop. GUI thread only.
class CLangMgt : public QObject
{
    Q_OBJECT

public:
    explicit CLangMgt(QObject *pParent);

    // The locale tag ("zh_cn") whose translations translate() gives; empty at first.
    void setLocale(const QString &strLocale) { m_strLocale = strLocale; }
    const QVariantMap &table() const { return m_table; }

    // The translation for the current locale, or the text itself.
    QString translate(const QString &strText);

    // Reads the table from the bytes of a resource, which hold a JSON object without its outer
    // braces. Empty for anything else.
    static QVariantMap parseTable(const QByteArray &data);

public slots:
    void init();

private:
    QString m_strLocale;
    QVariantMap m_table;
};

// Set in main.cpp only.
extern CLangMgt *g_pLangMgt;
