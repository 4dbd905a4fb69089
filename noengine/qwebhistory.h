#pragma once

// Nothing was ever visited.
class QWebHistory
{
public:
    bool canGoBack() const { return false; }
    bool canGoForward() const { return false; }
    void clear() { }
};
