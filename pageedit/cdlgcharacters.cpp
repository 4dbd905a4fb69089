#include "pageedit/cdlgcharacters.h"

#include "pageedit/specialcharacters.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const int g_nColumns = 14;
const int g_nRows = 8;

} // namespace

CDlgCharacters::CDlgCharacters(QWidget *pParent)
    : QDialog(pParent),
      m_pSearch(new QLineEdit(this)),
      m_pList(new QListWidget(this)),
      m_pName(new QLabel(this))
{
    setObjectName(QStringLiteral("dlgCharacters"));
    setWindowTitle(tr("Special Characters"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pSearch->setPlaceholderText(tr("Search by name or number"));
    m_pSearch->setAccessibleName(tr("Search by name or number"));
    m_pSearch->setClearButtonEnabled(true);
    m_pSearch->installEventFilter(this);

    QFont font = m_pList->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    m_pList->setFont(font);
    m_pList->setAccessibleName(tr("Characters"));
    m_pList->setViewMode(QListView::IconMode);
    m_pList->setMovement(QListView::Static);
    m_pList->setResizeMode(QListView::Adjust);
    m_pList->setUniformItemSizes(true);
    const int nCell = QFontMetrics(font).height() * 3 / 2;
    m_pList->setGridSize({nCell, nCell});
    m_pList->setMinimumSize(nCell * g_nColumns + 2 * m_pList->frameWidth() + 24, nCell * g_nRows);
    m_pName->setTextFormat(Qt::PlainText);

    auto *pButtons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *pInsert = pButtons->addButton(tr("Insert"), QDialogButtonBox::ActionRole);
    pInsert->setDefault(true);
    auto *pLayout = new QVBoxLayout(this);
    for (QWidget *pWidget : {static_cast<QWidget *>(m_pSearch), static_cast<QWidget *>(m_pList),
                             static_cast<QWidget *>(m_pName), static_cast<QWidget *>(pButtons)})
        pLayout->addWidget(pWidget);

    connect(pInsert, &QPushButton::clicked, this, &CDlgCharacters::insert);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_pList, &QListWidget::itemDoubleClicked, this, &CDlgCharacters::insert);
    connect(m_pList, &QListWidget::currentRowChanged, this, &CDlgCharacters::showName);
    connect(m_pSearch, &QLineEdit::textChanged, this, &CDlgCharacters::fill);
    fill();
}

void CDlgCharacters::fill()
{
    m_pList->clear();
    for (const SSpecialCharacter &character : findCharacters(m_pSearch->text())) {
        auto *pItem = new QListWidgetItem(character.shown(), m_pList);
        pItem->setTextAlignment(Qt::AlignCenter);
        pItem->setData(Qt::UserRole, character.text());
        pItem->setData(Qt::AccessibleTextRole, character.strName);
        pItem->setToolTip(
            QStringLiteral("%1 (U+%2)")
                .arg(character.strName,
                     QString::number(character.nCode, 16).toUpper().rightJustified(4, '0')));
    }
    m_pList->setCurrentRow(0);
    showName();
}

void CDlgCharacters::showName()
{
    const QListWidgetItem *pItem = m_pList->currentItem();
    m_pName->setText(pItem ? pItem->toolTip() : tr("No character has this name."));
}

void CDlgCharacters::insert()
{
    if (const QListWidgetItem *pItem = m_pList->currentItem())
        emit characterChosen(pItem->data(Qt::UserRole).toString());
}

bool CDlgCharacters::eventFilter(QObject *pObject, QEvent *pEvent)
{
    if (pObject == m_pSearch && pEvent->type() == QEvent::KeyPress) {
        const int nKey = static_cast<QKeyEvent *>(pEvent)->key();
        if (nKey == Qt::Key_Up || nKey == Qt::Key_Down)
            return QCoreApplication::sendEvent(m_pList, pEvent);
    }
    return QDialog::eventFilter(pObject, pEvent);
}
