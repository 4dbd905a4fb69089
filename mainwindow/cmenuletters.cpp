#include "mainwindow/cmenuletters.h"

#include "editor/menukeys.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QShortcut>

CMenuLetters::CMenuLetters(QMainWindow *pWindow) : QObject(pWindow), m_pBar(pWindow->menuBar())
{
    const QLatin1String strPrefix("menu"); // Menus are named in the form as "menuFile".
    QSet<QChar> letters;
    const QList<QAction *> lstActions = m_pBar->actions();
    for (const QAction *pAction : lstActions) {
        if (!pAction->menu())
            continue;
        pAction->menu()->installEventFilter(this);
        const QString strName = pAction->menu()->objectName();
        for (const QString &strText : {pAction->menu()->title(), strName.mid(strPrefix.size())})
            if (!strText.isEmpty() && strText.at(0).unicode() < 0x80 && strText.at(0).isLetter())
                letters.insert(strText.at(0).toUpper());
    }
    for (const QChar cLetter : qAsConst(letters))
        addLetter(pWindow, cLetter);
}

void CMenuLetters::addLetter(QMainWindow *pWindow, QChar cLetter)
{
    auto *pShortcut = new QShortcut(QKeySequence(int(Qt::ALT) | cLetter.unicode()), pWindow);
    connect(pShortcut, &QShortcut::activated, this,
            [this, cLetter] { openMenuOfLetter(m_pBar, cLetter); });
}

// Qt closes an open menu when Alt is pressed, so that the letter would find none open. Here the
// menu closes when Alt is released, unless a letter came in between.
bool CMenuLetters::eventFilter(QObject *pObject, QEvent *pEvent)
{
    if (pEvent->type() != QEvent::KeyPress && pEvent->type() != QEvent::KeyRelease)
        return false;
    const auto *pKey = static_cast<QKeyEvent *>(pEvent);
    const bool bPress = pEvent->type() == QEvent::KeyPress;
    if (pKey->key() == Qt::Key_Alt) {
        if (!bPress && m_bAltAlone)
            static_cast<QMenu *>(pObject)->close();
        m_bAltAlone = bPress;
        return true;
    }
    m_bAltAlone = false;
    const bool bLetter = pKey->key() >= Qt::Key_A && pKey->key() <= Qt::Key_Z;
    return bPress && bLetter && pKey->modifiers() == Qt::AltModifier
        && openMenuOfLetter(m_pBar, QChar(ushort(pKey->key())));
}
