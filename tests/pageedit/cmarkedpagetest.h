#pragma once

#include "pagecases.h"
#include "pageedit/cpagetyping.h"
#include "pageedit/pagecommands.h"
#include "web/webtest.h"

// Tests of pages that are written with the marks of pagecases.h for their selection.
class CMarkedPageTest : public CPageTest
{
protected:
    // Shows a page with that body, its selection and the focus.
    void show(const QString &strMarked, const QString &strHead = QString())
    {
        set(QStringLiteral("<!DOCTYPE html><html><head>%1</head><body>%2</body></html>")
                .arg(strHead, strMarked));
        selectPlaces(m_pView, takeMarks(m_pView));
        m_pView->setFocus();
    }

    // The same, with the keys of an edited page.
    void open(const QString &strMarked, const QString &strHead = QString())
    {
        show(strMarked, strHead);
        CPageTyping::of(m_pView);
        askPage(m_pView, QStringLiteral("state")); // As the tool bar does.
    }
};
