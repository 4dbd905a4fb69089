#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QList>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <utility>

// Hands every modal dialog of one kind that stands while the object lives to a function, which
// answers it.
template<class Dialog> class CModalAnswer
{
public:
    explicit CModalAnswer(std::function<void(Dialog *)> fnAnswer)
    {
        QObject::connect(&m_timer, &QTimer::timeout, [fnAnswer = std::move(fnAnswer)] {
            auto *pDialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            if (pDialog && pDialog->isVisible())
                fnAnswer(pDialog);
        });
        m_timer.start(5);
    }

private:
    QTimer m_timer;
};

// The texts of a message box.
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
// (the last one again and again) and keeps what each said. All tests answer boxes with it.
class CBoxAnswer
{
public:
    // fnMeanwhile runs while the first box is open, before it is answered.
    explicit CBoxAnswer(QList<QMessageBox::StandardButton> lstAnswers = {QMessageBox::Ok},
                        std::function<void()> fnMeanwhile = {})
        : m_lstAnswers(std::move(lstAnswers)), m_fnMeanwhile(std::move(fnMeanwhile))
    {
    }

    const QList<SBox> &boxes() const { return m_lstBoxes; }

private:
    void answer(QMessageBox *pBox)
    {
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
    CModalAnswer<QMessageBox> m_modal {[this](QMessageBox *pBox) { answer(pBox); }};
};

// Chooses files in the file dialogs that open while the object lives; an empty list cancels.
class CFileDialogAnswer
{
public:
    explicit CFileDialogAnswer(QStringList lstFiles) : m_lstFiles(std::move(lstFiles))
    {
        // Those of Windows are no widgets, which could be answered.
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    QString caption() const { return m_strCaption; }
    QString directory() const { return m_strDirectory; }
    QStringList nameFilters() const { return m_lstFilters; }

private:
    void answer(QFileDialog *pDialog)
    {
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
    CModalAnswer<QFileDialog> m_modal {[this](QFileDialog *pDialog) { answer(pDialog); }};
};
