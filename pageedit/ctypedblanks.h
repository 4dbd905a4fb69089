#pragma once

#include <QObject>
#include <QTimer>

class CEditWebView;

// Handles the blanks that a user types into a page. The web view types a blank as a non-breaking
// space where it would be invisible otherwise, and leaves it so after links and pictures and at the
// end of the text. Here it becomes a blank as soon as something follows or the caret moves away.
// Non-breaking spaces that the page had before stay, even beside typed text, where the web view
// would change them. GUI thread only.
class CTypedBlanks : public QObject
{
    Q_OBJECT

public:
    explicit CTypedBlanks(CEditWebView *pPage);

    // Something is about to be typed into the page,
    void type(const QString &strText);
    // or a key is about to do something else there,
    void press(int nKey);
    // or the caret is about to go elsewhere,
    void leave();
    // or the page is about to be used as it is; the blank that was typed last may be followed yet.
    void finish();

private:
    enum class State { None, Typed, Followed }; // Followed: by one piece of text.

    void note();
    void settle();
    bool edit(const QString &strArguments);
    void onUndoIndexChanged(int nIndex);

    CEditWebView *m_pPage;
    State m_state = State::None;
    int m_nBehind = 0; // Characters from the blank to the caret.
    bool m_bNoted = false; // The typed text is beside a non-breaking space of the page.
    int m_nUndoIndex = 0;
    QTimer m_timerSettle;
};
