#pragma once

#include <QString>

class QWebPage;

// Reads a source as the page editor does, without showing it: it runs, loads and lays out nothing.
// GUI thread only.
class CPageReader
{
public:
    CPageReader();
    ~CPageReader();
    Q_DISABLE_COPY(CPageReader)

    // The serialisation of the page that the source makes, as CEditWebView::toHtml() gives it.
    QString serialised(const QString &strSource);

private:
    QWebPage *m_pPage;
};
