#pragma once

#include <QObject>
#include <QSize>

class CSafePage;
class QWebView;

// Shows one page or drawing after the other like the preview, but invisibly.
class CTasting : public QObject
{
    Q_OBJECT

public:
    explicit CTasting(QObject *pParent = nullptr);
    ~CTasting() override;

    // Emits shown() once all of it was laid out and painted. A harmful file may keep it from
    // returning or from emitting.
    void taste(const QString &strPath, const QSize &size);

signals:
    void shown();

private:
    void onLoaded();

    QWebView *m_pView;
    CSafePage *m_pPage;
    bool m_bTasting = false;
};
