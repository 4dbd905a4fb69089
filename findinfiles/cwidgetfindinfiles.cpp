#include "findinfiles/cwidgetfindinfiles.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "findinfiles/cfindresultdelegate.h"
#include "findinfiles/cfindresults.h"
#include "findinfiles/findquery.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTreeView>

CWidgetFindInFiles::CWidgetFindInFiles(QWidget *pParent) : QWidget(pParent)
{
    createFields();
    createTree();
    m_pProgress = new QProgressBar(this);
    m_pProgress->setRange(0, 0); // Nobody knows how many files there are.
    m_pProgress->setMaximumSize(80, 12);
    m_pProgress->setTextVisible(false);
    m_pProgress->setAccessibleName(tr("Searching"));
    m_pState = new QLabel(this);
    m_pState->setTextFormat(Qt::PlainText);
    // However narrow the dock is.
    m_pState->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *pSplitter = new QSplitter(Qt::Vertical, this);
    pSplitter->setChildrenCollapsible(false);
    pSplitter->addWidget(createForm());
    pSplitter->addWidget(createResults());
    pSplitter->setStretchFactor(1, 1);
    auto *pLayout = new QVBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pSplitter);
    orderTabs();
    setFocusProxy(m_pEditText);
    connectAll();
    onReplacementChanged();
    updateButtons();
}

// It scrolls if the dock has no room for it, so that the window may be as small as the user likes.
QWidget *CWidgetFindInFiles::createForm()
{
    auto *pForm =
        // It must never be a window, or its fields would leave the order of the Tab key.
        new QWidget(this);
    auto *pLayout = new QVBoxLayout(pForm);
    pLayout->setContentsMargins(4, 4, 4, 0);
    pLayout->setSpacing(3);
    pLayout->addLayout(createGrid());
    pLayout->addLayout(createOptions());
    pLayout->addStretch();
    auto *pArea = new QScrollArea(this);
    pArea->setFrameShape(QFrame::NoFrame);
    pArea->setFocusPolicy(Qt::NoFocus);
    pArea->setWidgetResizable(true);
    pArea->setWidget(pForm);
    pArea->setMinimumHeight(m_pBtnFind->sizeHint().height() + 6);
    return pArea;
}

QWidget *CWidgetFindInFiles::createResults()
{
    auto *pState = new QHBoxLayout;
    pState->addWidget(m_pProgress);
    pState->addWidget(m_pState, 1);
    auto *pResults = new QWidget(this);
    auto *pLayout = new QVBoxLayout(pResults);
    pLayout->setContentsMargins(4, 0, 4, 0);
    pLayout->setSpacing(3);
    pLayout->addLayout(pState);
    pLayout->addWidget(m_pTree, 1);
    return pResults;
}

QLineEdit *CWidgetFindInFiles::createField(const QString &strName, const QString &strObject)
{
    auto *pEdit = new QLineEdit(this);
    pEdit->setObjectName(strObject);
    pEdit->setAccessibleName(strName);
    pEdit->setMinimumWidth(60);
    connect(pEdit, &QLineEdit::returnPressed, this, &CWidgetFindInFiles::onFind);
    return pEdit;
}

void CWidgetFindInFiles::createFields()
{
    m_pEditText = createField(tr("Find what"), QStringLiteral("editText"));
    m_pEditReplace = createField(tr("Replace with"), QStringLiteral("editReplace"));
    m_pEditFolder = createField(tr("Folder"), QStringLiteral("editFolder"));
    m_pEditNames = createField(tr("File names"), QStringLiteral("editNames"));
    m_pEditNames->setPlaceholderText(QStringLiteral("*.cpp; *.h; !test*"));
    m_pEditNames->setToolTip(tr("Patterns separated by semicolons; with ! before it, a pattern "
                                "leaves files out. Empty: all files."));
    m_pCheckReplace = new QCheckBox(tr("Replace with:"), this);
    m_pCheckCase = new QCheckBox(tr("Match case"), this);
    m_pCheckWord = new QCheckBox(tr("Match whole word only"), this);
    m_pCheckRegExp = new QCheckBox(tr("Use regular expression"), this);
    m_pBtnFind = new QPushButton(tr("Find"), this);
    m_pBtnCancel = new QPushButton(tr("Cancel"), this);
    m_pBtnReplace = new QPushButton(tr("Replace"), this);
    m_pBtnBrowse = new QPushButton(tr("Browse..."), this);
    m_pBtnFind->setObjectName(QStringLiteral("btnFind"));
    m_pBtnCancel->setObjectName(QStringLiteral("btnCancel"));
    m_pBtnReplace->setObjectName(QStringLiteral("btnReplace"));
    m_pCheckReplace->setObjectName(QStringLiteral("checkReplace"));
    m_pCheckCase->setObjectName(QStringLiteral("checkCase"));
    m_pCheckWord->setObjectName(QStringLiteral("checkWord"));
    m_pCheckRegExp->setObjectName(QStringLiteral("checkRegExp"));
}

QGridLayout *CWidgetFindInFiles::createGrid()
{
    const auto label = [this](const QString &strText, QLineEdit *pEdit) {
        auto *pLabel = new QLabel(strText, this);
        pLabel->setBuddy(pEdit);
        return pLabel;
    };
    auto *pGrid = new QGridLayout;
    pGrid->setSpacing(3);
    pGrid->addWidget(label(tr("Find what:"), m_pEditText), 0, 0);
    pGrid->addWidget(m_pEditText, 0, 1);
    pGrid->addWidget(m_pBtnFind, 0, 2);
    pGrid->addWidget(m_pBtnCancel, 0, 3);
    pGrid->addWidget(m_pCheckReplace, 1, 0);
    pGrid->addWidget(m_pEditReplace, 1, 1);
    pGrid->addWidget(m_pBtnReplace, 1, 2, 1, 2);
    pGrid->addWidget(label(tr("Folder:"), m_pEditFolder), 2, 0);
    pGrid->addWidget(m_pEditFolder, 2, 1);
    pGrid->addWidget(m_pBtnBrowse, 2, 2, 1, 2);
    pGrid->setColumnStretch(1, 1);
    return pGrid;
}

QBoxLayout *CWidgetFindInFiles::createOptions()
{
    auto *pNames = new QLabel(tr("File names:"), this);
    pNames->setBuddy(m_pEditNames);
    auto *pOptions = new QHBoxLayout;
    pOptions->setSpacing(6);
    pOptions->addWidget(pNames);
    pOptions->addWidget(m_pEditNames, 1);
    pOptions->addWidget(m_pCheckCase);
    pOptions->addWidget(m_pCheckWord);
    pOptions->addWidget(m_pCheckRegExp);
    return pOptions;
}

// The fields come first, line by line.
void CWidgetFindInFiles::orderTabs()
{
    QWidget *pBefore = m_pEditText;
    for (QWidget *pWidget : std::initializer_list<QWidget *> {
             m_pCheckReplace, m_pEditReplace, m_pEditFolder, m_pBtnBrowse, m_pEditNames,
             m_pCheckCase, m_pCheckWord, m_pCheckRegExp, m_pBtnFind, m_pBtnCancel, m_pBtnReplace,
             m_pTree}) {
        setTabOrder(pBefore, pWidget);
        pBefore = pWidget;
    }
}

void CWidgetFindInFiles::createTree()
{
    m_pTree = new QTreeView(this);
    m_pTree->setAccessibleName(tr("Matches"));
    m_pTree->setHeaderHidden(true);
    m_pTree->setUniformRowHeights(true);
    m_pTree->setMinimumHeight(50);
    m_pTree->setItemDelegate(new CFindResultDelegate(m_pTree));
    m_pResults = new CFindResults(this);
    m_pTree->setModel(m_pResults);
}

void CWidgetFindInFiles::connectAll()
{
    connect(m_pBtnFind, &QPushButton::clicked, this, &CWidgetFindInFiles::onFind);
    connect(m_pBtnCancel, &QPushButton::clicked, this, &CWidgetFindInFiles::onCancel);
    connect(m_pBtnReplace, &QPushButton::clicked, this, &CWidgetFindInFiles::onReplace);
    connect(m_pBtnBrowse, &QPushButton::clicked, this, &CWidgetFindInFiles::onFolderBrowse);
    connect(m_pEditFolder, &QLineEdit::textEdited, this, [this] { m_bFolderTyped = true; });
    connect(m_pCheckReplace, &QCheckBox::toggled, this, &CWidgetFindInFiles::onReplacementChanged);
    connect(m_pEditReplace, &QLineEdit::textChanged, this,
            &CWidgetFindInFiles::onReplacementChanged);
    connect(m_pTree, &QAbstractItemView::pressed, this, &CWidgetFindInFiles::onPressed);
    connect(m_pTree, &QAbstractItemView::clicked, this, &CWidgetFindInFiles::onClicked);
    connect(m_pTree, &QAbstractItemView::activated, this, &CWidgetFindInFiles::onActivated);
    connect(&m_search, &CFindInFiles::found, this, &CWidgetFindInFiles::onFound);
    connect(&m_search, &CFindInFiles::progress, this,
            [this](const SFindCounts &counts) { m_pState->setText(textOf(counts)); });
    connect(&m_search, &CFindInFiles::finished, this, &CWidgetFindInFiles::onFinished);
    connect(&m_replace, &CReplaceInFiles::fileDone, this, &CWidgetFindInFiles::onFileDone);
    connect(&m_replace, &CReplaceInFiles::finished, this, &CWidgetFindInFiles::onReplaced);
}

void CWidgetFindInFiles::setFolder(const QString &strFolder)
{
    if (!m_bFolderTyped && !strFolder.isEmpty())
        m_pEditFolder->setText(strFolder);
}

void CWidgetFindInFiles::prepare(const QString &strText)
{
    if (!strText.isEmpty())
        m_pEditText->setText(strText);
    m_pCheckCase->setChecked(g_pSettings->m_bFindMatchCase);
    m_pCheckWord->setChecked(g_pSettings->m_bFindMatchWholeWord);
    m_pCheckRegExp->setChecked(g_pSettings->m_bFindUseRegularExpression);
    m_pEditText->selectAll();
    m_pEditText->setFocus(Qt::ShortcutFocusReason);
}

void CWidgetFindInFiles::showState(const QString &strText)
{
    m_pState->setText(strText);
    m_pState->setToolTip(plainToolTip(strText));
    emit statusMessage(strText);
}
