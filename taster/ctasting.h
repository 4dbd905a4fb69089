#pragma once

#include <QObject>
#include <QSize>

class CSafePage;
class QWebView;

// Shows one page or drawing after the other as the preview would, to nobody.
class CTasting : public QObject
{
    Q_OBJECT

public:
    explicit CTasting(QObject *pParent = nullptr);
    ~CTasting() override;

    // Emits shown() once all of it was laid out and painted. Does not return, or never emits, where
    // that is what the file is made for.
    void taste(const QString &strPath, const QSize &size);

signals:
    void shown();

private:
    void onLoaded();

    QWebView *m_pView;
    CSafePage *m_pPage;
    bool m_bTasting = false;
};
