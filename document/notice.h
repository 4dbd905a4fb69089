#pragma once

#include <QList>
#include <QString>

#include <functional>

// One thing to tell the user about a document, or about the program, without stopping the work.
struct SNotice
{
    struct SChoice
    {
        QString strText;
        std::function<void()> chosen;
    };

    QString strText; // Empty: nothing to tell.
    QList<SChoice> lstChoices;
};
