#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QList>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <utility>

// What a message box said.
struct SBox
{
    QMessageBox::Icon icon;
    QString strTitle;
    QString strText;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton;
    Qt::TextFormat format;
};

// Answers every message box that opens while the object lives with the next of the given buttons
// (the last one again and again) and keeps what each said.
class CBoxAnswer
{
public:
    // fnMeanwhile: what happens while the first box stands, before it is answered.
    explicit CBoxAnswer(QList<QMessageBox::StandardButton> lstAnswers = {QMessageBox::Ok},
                        std::function<void()> fnMeanwhile = {})
        : m_lstAnswers(std::move(lstAnswers)), m_fnMeanwhile(std::move(fnMeanwhile))
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(5);
    }

    const QList<SBox> &boxes() const { return m_lstBoxes; }

private:
    void answer()
    {
        auto *pBox = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!pBox || !pBox->isVisible())
            return;
        const auto defaultButton = pBox->defaultButton()
            ? pBox->standardButton(pBox->defaultButton())
            : QMessageBox::NoButton;
        m_lstBoxes.append({pBox->icon(), pBox->windowTitle(), pBox->text(), pBox->standardButtons(),
                           defaultButton, pBox->textFormat()});
        if (const auto fnMeanwhile = std::exchange(m_fnMeanwhile, nullptr))
            fnMeanwhile();
        const int nAnswer = qMin(m_lstBoxes.size(), m_lstAnswers.size()) - 1;
        pBox->button(m_lstAnswers.at(nAnswer))->click();
    }

    QList<QMessageBox::StandardButton> m_lstAnswers;
    std::function<void()> m_fnMeanwhile;
    QList<SBox> m_lstBoxes;
    QTimer m_timer;
};

// Chooses files in the file dialogs that open while the object lives; an empty list cancels.
class CFileDialogAnswer
{
public:
    explicit CFileDialogAnswer(QStringList lstFiles) : m_lstFiles(std::move(lstFiles))
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(5);
    }

    QString caption() const { return m_strCaption; }
    QString directory() const { return m_strDirectory; }
    QStringList nameFilters() const { return m_lstFilters; }

private:
    void answer()
    {
        auto *pDialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!pDialog || !pDialog->isVisible())
            return;
        m_strCaption = pDialog->windowTitle();
        m_strDirectory = pDialog->directory().absolutePath();
        m_lstFilters = pDialog->nameFilters();
        if (m_lstFiles.isEmpty()) {
            pDialog->reject();
            return;
        }
        QStringList lstQuoted;
        for (const QString &strFile : m_lstFiles)
            lstQuoted.append(QString(QLatin1Char('"') + strFile + QLatin1Char('"')));
        auto *pEdit = pDialog->findChild<QWidget *>(QStringLiteral("fileNameEdit"));
        pEdit->setProperty("text",
                           m_lstFiles.size() == 1 ? m_lstFiles.constFirst()
                                                  : lstQuoted.join(QLatin1Char(' ')));
        QMetaObject::invokeMethod(pDialog, "accept");
    }

    QStringList m_lstFiles;
    QString m_strCaption;
    QString m_strDirectory;
    QStringList m_lstFilters;
    QTimer m_timer;
};
