#include "pageedit/pagestate.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

SPageState pageState(const CEditWebView *pPage)
{
    SPageState state;
    if (!pPage->isBodyEdited())
        return state;
    const QVariantMap answer = askPage(pPage, QStringLiteral("state")).toMap();
    state.bEditable = answer.value(QStringLiteral("editable")).toBool();
    state.strStyle = answer.value(QStringLiteral("style")).toString();
    return state;
}
