#include "pageedit/pagestate.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

namespace {

SPageState::Mark markOf(const QString &strMark)
{
    if (strMark == QLatin1String("on"))
        return SPageState::Mark::On;
    return strMark == QLatin1String("mixed") ? SPageState::Mark::Mixed : SPageState::Mark::Off;
}

} // namespace

SPageState pageState(const CEditWebView *pPage)
{
    SPageState state;
    if (!pPage->isBodyEdited())
        return state;
    const QVariantMap answer = askPage(pPage, QStringLiteral("state")).toMap();
    state.bEditable = answer.value(QStringLiteral("editable")).toBool();
    state.bCaret = answer.value(QStringLiteral("caret")).toBool();
    state.bLink = answer.value(QStringLiteral("link")).toBool();
    state.bIndent = answer.value(QStringLiteral("indent")).toBool();
    state.bOutdent = answer.value(QStringLiteral("outdent")).toBool();
    state.strStyle = answer.value(QStringLiteral("style")).toString();
    state.strList = answer.value(QStringLiteral("list")).toString();
    state.strAlign = answer.value(QStringLiteral("align")).toString();
    const QVariantMap marks = answer.value(QStringLiteral("marks")).toMap();
    for (auto it = marks.cbegin(); it != marks.cend(); ++it)
        state.marks.insert(it.key(), markOf(it.value().toString()));
    return state;
}
