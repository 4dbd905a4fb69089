#include "spelling/csuggestionmenu.h"

#include "app/plaintext.h"

CSuggestionMenu::CSuggestionMenu(QWidget *pParent) : QMenu(pParent)
{
    setObjectName(QStringLiteral("suggestionMenu"));
}

void CSuggestionMenu::offer(const QString &strWord, const QStringList &lstSuggestions,
                            const QPoint &point)
{
    clear();
    setAccessibleName(tr("Suggestions for \"%1\"").arg(strWord));
    for (const QString &strSuggestion : lstSuggestions)
        addAction(withoutMnemonic(strSuggestion), this, [=] { emit chosen(strSuggestion); });
    if (lstSuggestions.isEmpty())
        addAction(tr("No suggestions"))->setEnabled(false);
    addSeparator();
    addAction(tr("Add to dictionary"), this, [=] { emit added(strWord); });
    popup(point);
    if (!lstSuggestions.isEmpty())
        setActiveAction(actions().constFirst());
}
