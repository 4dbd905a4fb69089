#pragma once

#include <QObject>
#include <QString>

class QLabel;
class QStatusBar;

// The message and the four indicators of the status bar, which owns the labels.
class CStatusLabels : public QObject
{
    Q_OBJECT

public:
    explicit CStatusLabels(QStatusBar *pStatusBar);

    void setMessage(const QString &strText);
    QString message() const;
    void setCursorText(const QString &strText);
    void setLanguage(const QString &strText);
    void setReturnFormat(const QString &strText);
    void setTextCodec(const QString &strText);

public slots:
    // nVal is the code editors' font size in pixels, which the labels follow.
    void onTextFontSize(int nVal);

private:
    void fitCursorLabel();
    void add(QLabel *pLabel, const QString &strName, const QString &strToolTip);

    QStatusBar *m_pStatusBar; // The labels' owner.
    QLabel *m_pMessage;
    QLabel *m_pCursor;
    QLabel *m_pLanguage;
    QLabel *m_pReturnFormat;
    QLabel *m_pTextCodec;
    // The length of the texts for which the label of the cursor's place has room.
    int m_nFitted = 0;
};
