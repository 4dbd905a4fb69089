#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class CDlgGo;
}

// Asks for a line number. Modeless; hides itself, and is kept by its owner.
class CDlgGo : public QDialog
{
    Q_OBJECT

public:
    explicit CDlgGo(QWidget *pParent = nullptr);
    ~CDlgGo() override;

    // Call before the dialog is shown again: what was typed last is selected and has the focus.
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
