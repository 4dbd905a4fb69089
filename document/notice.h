#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// A message to the user about a document or the program that does not interrupt the work.
struct SNotice
{
    struct SChoice
    {
        QString strText;
        std::function<void()> chosen; // Called for all of the items.
        // Called with the numbers of the chosen items of lstItems. Needed if there are items.
        std::function<void(const QList<int> &)> chosenOf = {};
    };

    QString strText; // Empty if there is no notice.
    QList<SChoice> lstChoices;
    QStringList lstItems = {}; // Items of which the user may choose some; may be empty.
};
