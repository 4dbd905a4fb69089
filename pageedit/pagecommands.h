#pragma once

#include <QPoint>
#include <QRect>
#include <QVariantMap>

class CEditWebView;

// Commands on the selection of a page that is edited. Each is a function of ours in scripts/*.js
// that changes the document by itself; nothing of the page runs. What it changed is recorded node
// by node and is one step in the page's own undo stack, between the web view's steps.
//
// The web view's insertHTML is of no use for this: it cuts paragraphs in two, writes styles into
// them, and leaves empty ones.
//
// GUI thread only. A page whose frame holds the caret, or that consists of frames, refuses.

// Runs commands.NAME with the arguments (JSON values). False when the document stayed as it was;
// then there is no step either. Tells of the change by the page's contentsChanged().
bool runPageCommand(CEditWebView *pPage, const QString &strName,
                    const QVariantMap &arguments = QVariantMap());

// The same as one step together with the deletion of what is selected.
bool runInsteadOfSelection(CEditWebView *pPage, const QString &strName,
                           const QVariantMap &arguments = QVariantMap());

// Runs edits.NAME, which uses the web view's own editing, instead of what is selected: one step.
void editPage(CEditWebView *pPage, const QString &strName, const QVariantMap &arguments);

// Text instead of what is selected, each line a paragraph: one step.
void pastePlainText(CEditWebView *pPage, const QString &strText);

// The answer of queries.NAME; null where there is none. Changes nothing.
QVariant askPage(const CEditWebView *pPage, const QString &strName,
                 const QVariantMap &arguments = QVariantMap());

// True while the page's own file is edited, so that addresses leading from it may be written.
bool isOwnPageEdited(const CEditWebView *pPage);

// A point of the view as the scripts count, as arguments "x" and "y".
QVariantMap pagePoint(const CEditWebView *pPage, const QPoint &point);
// A script's box in the document (left, top, width, height) as it lies in the view; null for none.
QRect viewRect(const CEditWebView *pPage, const QVariant &varBox);
