#pragma once

#include <QMenu>

// The list beside the caret: words to take for a misspelt one, and "Add to dictionary". GUI thread
// only.
class CSuggestionMenu : public QMenu
{
    Q_OBJECT

public:
    explicit CSuggestionMenu(QWidget *pParent);

    // Opens below a place of the screen, with the first suggestion selected.
    void offer(const QString &strWord, const QStringList &lstSuggestions, const QPoint &point);

signals:
    void chosen(const QString &strSuggestion);
    void added(const QString &strWord);
};
