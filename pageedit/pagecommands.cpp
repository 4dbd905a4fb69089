#include "pageedit/pagecommands.h"

#include "pageedit/cpagestep.h"
#include "pageedit/pagelibrary.h"
#include "web/ceditwebview.h"
#include "web/markup.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUndoStack>
#include <QWebFrame>

namespace {

QString asScript(const QVariantMap &arguments)
{
    const QByteArray json =
        QJsonDocument(QJsonObject::fromVariantMap(arguments)).toJson(QJsonDocument::Compact);
    return QStringLiteral("JSON.parse(%1)").arg(scriptString(QString::fromUtf8(json)));
}

} // namespace

bool runPageCommand(CEditWebView *pPage, const QString &strName, const QVariantMap &arguments)
{
    if (!pPage->isBodyEdited())
        return false;
    static int s_nLastId = 0; // A number is never used again, even after a page is reloaded.
    const int nId = ++s_nLastId;
    pPage->endStep();
    const QString strArguments =
        QStringLiteral("%1, %2, %3")
            .arg(QString::number(nId), scriptString(strName), asScript(arguments));
    if (!callPageLibrary(pPage, QStringLiteral("run"), strArguments).toBool())
        return false;
    pPage->page()->undoStack()->push(new CPageStep(pPage, nId));
    emit pPage->page()->contentsChanged();
    return true;
}

bool runInsteadOfSelection(CEditWebView *pPage, const QString &strName,
                           const QVariantMap &arguments)
{
    if (!pPage->isBodyEdited())
        return false;
    // The web view counts a caret as a selection.
    const QVariantMap answer = askPage(pPage, QStringLiteral("selected")).toMap();
    if (!answer.value(QStringLiteral("selected")).toBool())
        return runPageCommand(pPage, strName, arguments);
    pPage->page()->undoStack()->beginMacro(QString());
    pPage->insertHtml(QString());
    const bool bChanged = runPageCommand(pPage, strName, arguments);
    pPage->page()->undoStack()->endMacro();
    return bChanged;
}

void editPage(CEditWebView *pPage, const QString &strName, const QVariantMap &arguments)
{
    if (!pPage->isBodyEdited())
        return;
    pPage->endStep();
    pPage->page()->undoStack()->beginMacro(QString());
    pPage->runEditable([&] {
        callPageLibrary(pPage, QStringLiteral("edit"),
                        QStringLiteral("%1, %2").arg(scriptString(strName), asScript(arguments)));
    });
    pPage->page()->undoStack()->endMacro();
    pPage->endStep();
}

void pastePlainText(CEditWebView *pPage, const QString &strText)
{
    pPage->page()->undoStack()->beginMacro(QString());
    editPage(pPage, QStringLiteral("pastePlain"), {{QStringLiteral("text"), strText}});
    runPageCommand(pPage, QStringLiteral("linePasted"));
    pPage->page()->undoStack()->endMacro();
}

QVariant askPage(const CEditWebView *pPage, const QString &strName, const QVariantMap &arguments)
{
    const QString strArguments =
        QStringLiteral("%1, %2").arg(scriptString(strName), asScript(arguments));
    const QVariant varAnswer = callPageLibrary(pPage, QStringLiteral("ask"), strArguments);
    return QJsonDocument::fromJson(varAnswer.toString().toUtf8()).toVariant();
}

bool isOwnPageEdited(const CEditWebView *pPage)
{
    return pPage->isBodyEdited() && pPage->showsOwnFile() && !pPage->isSourceShown();
}

QVariantMap pagePoint(const CEditWebView *pPage, const QPoint &point)
{
    const qreal dZoom = pPage->zoomFactor();
    return {{QStringLiteral("x"), point.x() / dZoom}, {QStringLiteral("y"), point.y() / dZoom}};
}

QRect viewRect(const CEditWebView *pPage, const QVariant &varBox)
{
    const QVariantList lstBox = varBox.toList();
    if (lstBox.size() != 4)
        return QRect();
    const qreal dZoom = pPage->zoomFactor();
    const QRectF box(lstBox.at(0).toReal() * dZoom, lstBox.at(1).toReal() * dZoom,
                     lstBox.at(2).toReal() * dZoom, lstBox.at(3).toReal() * dZoom);
    return box.toRect().translated(-pPage->page()->mainFrame()->scrollPosition());
}
