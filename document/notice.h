#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// One thing to tell the user about a document, or about the program, without stopping the work.
struct SNotice
{
    struct SChoice
    {
        QString strText;
        std::function<void()> chosen; // For all of the items.
        // For the chosen ones of lstItems, by their numbers. Needed where there are items.
        std::function<void(const QList<int> &)> chosenOf = {};
    };

    QString strText; // Empty: nothing to tell.
    QList<SChoice> lstChoices;
    QStringList lstItems = {}; // Of which the user may choose some; empty for none.
};
