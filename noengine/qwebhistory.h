#pragma once

// A history that is always empty.
class QWebHistory
{
public:
    bool canGoBack() const { return false; }
    bool canGoForward() const { return false; }
    void clear() { }
};
