#pragma once

#include <QStringList>
#include <QVariant>
#include <QVector>

// Never an element, because without the engine the content of a page is unknown.
class QWebElement
{
public:
    bool isNull() const { return true; }
    bool operator==(const QWebElement &) const { return true; }
    bool operator!=(const QWebElement &) const { return false; }
    QString tagName() const { return QString(); }
    QString attribute(const QString &, const QString &strDefault = QString()) const
    {
        return strDefault;
    }
    bool hasAttribute(const QString &) const { return false; }
    void setAttribute(const QString &, const QString &) { }
    void removeAttribute(const QString &) { }
    QWebElement firstChild() const { return QWebElement(); }
    QVariant evaluateJavaScript(const QString &) const { return QVariant(); }
};

using QWebElementCollection = QVector<QWebElement>;
