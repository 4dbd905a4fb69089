#pragma once

#include <QPoint>
#include <QRect>
#include <QVariantMap>

class CEditWebView;

// Commands on the selection of an edited page. Each is a function of ours in scripts/*.js that
// changes the document; nothing of the page runs. Its changes are recorded node by node, and are
// one step in the page's own undo stack, beside the web view's steps.
//
// The web view's insertHTML is of no use for this: it cuts paragraphs in two, writes styles into
// them, and leaves empty ones.
//
// GUI thread only. A page whose frame holds the caret, or that consists of frames, refuses.

// Runs commands.NAME with the arguments (JSON values). False if the document did not change; then
// there is no step either. A change is signalled by the page's contentsChanged().
bool runPageCommand(CEditWebView *pPage, const QString &strName,
                    const QVariantMap &arguments = QVariantMap());

// Deletes the selection and runs the command, as one step.
bool runInsteadOfSelection(CEditWebView *pPage, const QString &strName,
                           const QVariantMap &arguments = QVariantMap());

// Replaces the selection by edits.NAME, which uses the web view's own editing, as one step.
void editPage(CEditWebView *pPage, const QString &strName, const QVariantMap &arguments);

// Replaces the selection by text, with a paragraph for each line, as one step.
void pastePlainText(CEditWebView *pPage, const QString &strText);

// The answer of queries.NAME; null if there is none. Changes nothing.
QVariant askPage(const CEditWebView *pPage, const QString &strName,
                 const QVariantMap &arguments = QVariantMap());

// True while the page's own file is edited, so that addresses leading from it may be written.
bool isOwnPageEdited(const CEditWebView *pPage);

// Converts a point of the view to the arguments "x" and "y" of the scripts.
QVariantMap pagePoint(const CEditWebView *pPage, const QPoint &point);
// Converts a script's box in the document (left, top, width, height) to a rectangle of the view;
// null for none.
QRect viewRect(const CEditWebView *pPage, const QVariant &varBox);
