#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class CDlgGo;
}

// Asks for a line number. The dialog is modeless and hides itself; its owner keeps it.
class CDlgGo : public QDialog
{
    Q_OBJECT

public:
    explicit CDlgGo(QWidget *pParent = nullptr);
    ~CDlgGo() override;

    // Call it before the dialog is shown again. It selects the last typed text and gives it the
    // focus.
    void prepare();

signals:
    // Counts from 1, but any number may come; 0 for no number.
    void goToLine(int nLine);

private slots:
    void on_btnGo_clicked();
    void on_btnClose_clicked();

private:
    std::unique_ptr<Ui::CDlgGo> m_pUi;
};
