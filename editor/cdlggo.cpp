#include "editor/cdlggo.h"

#include "ui_cdlggo.h"

#include <QIntValidator>

CDlgGo::CDlgGo(QWidget *pParent) : QDialog(pParent), m_pUi(new Ui::CDlgGo)
{
    m_pUi->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pUi->lineEdit->setValidator(new QIntValidator(m_pUi->lineEdit));
}

CDlgGo::~CDlgGo() = default;

void CDlgGo::prepare()
{
    m_pUi->lineEdit->selectAll();
    m_pUi->lineEdit->setFocus();
}

void CDlgGo::on_btnGo_clicked()
{
    emit goToLine(m_pUi->lineEdit->text().toInt());
    hide();
}

void CDlgGo::on_btnClose_clicked()
{
    hide();
}
