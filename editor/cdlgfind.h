#pragma once

#include <QDialog>
#include <memory>

class QCheckBox;
class QComboBox;
class QSlider;

namespace Ui {
class CDlgFind;
}

// The find and replace dialog. It is modeless and serves all editors. Its owner acts on the emit...
// signals and passes the outcome to the slots named after it.
//
// Needs g_pSettings: the options are written there, and to the disk, as they change. The dialog is
// translucent while it is not the active window.
class CDlgFind : public QDialog
{
    Q_OBJECT

public:
    explicit CDlgFind(QWidget *pParent = nullptr);
    ~CDlgFind() override;

    // The text of the Find tab's box, whichever tab is shown.
    QString getFindText() const;
    QString getReplaceText() const;
    void setFindText(const QString &strText);

    // Show the dialog with one of its tabs and give the focus to the find box there.
    void showFind();
    void showReplace();

    // Moves the dialog away if it covers the spot (in screen coordinates).
    void uncover(const QRect &spot);

    // Shows plain text in the message line, in green, or in red for an error.
    void showInfo(const QString &strText, bool bError);
    void clearInfo();

    // A text such as "3 of 17".
    static QString countText(int nIndex, int nCount);

signals:
    // The dialog was closed or hidden.
    void emitClosed();
    void emitFindNext();
    void emitReplace();
    void emitReplaceAll();

public slots:
    void onFindToTop();
    void onFindToBottom();
    void onCannotFound();
    void onReplaceNum(int nVal);
    // Adds the count to the message about the same search.
    void onFindCounted(int nIndex, int nCount);

private slots:
    void on_checkBox_match_whole_word_stateChanged(int arg1);
    void on_checkBox_match_case_stateChanged(int arg1);
    void on_checkBox_search_up_stateChanged(int arg1);
    void on_checkBox_wrap_search_stateChanged(int arg1);
    void on_checkBox_auto_close_after_stateChanged(int arg1);
    void on_checkBox_use_regular_exp_stateChanged(int arg1);
    void on_checkBox_use_regular_exp_2_stateChanged(int arg1);
    void on_tabWidget_currentChanged(int index);
    void on_checkBox_match_whole_word_2_stateChanged(int arg1);
    void on_checkBox_match_case_2_stateChanged(int arg1);
    void on_slider_transparent_valueChanged(int value);
    void on_slider_transparent_2_valueChanged(int value);
    void onFind();
    void onReplace();
    void onReplaceAll();

protected:
    void changeEvent(QEvent *pEvent) override;
    void hideEvent(QHideEvent *pEvent) override;

private:
    void loadOptions();
    void connectButtons();
    void prepareBoxes();
    void storeOption(bool *pOption, int nState, QCheckBox *pTwin = nullptr);
    void storeTransparency(int nValue, QSlider *pTwin);
    void addToHistory(const QString &strText);
    void focusBox(QComboBox *pBox);
    void present(int nTab);

    QString m_strInfo; // The text of the message line.
    std::unique_ptr<Ui::CDlgFind> m_pUi;
    bool m_bUpdating =
        false; // True while a control follows its twin or the settings, which stores nothing.
};
