#pragma once

#include <QMenu>
#include <QTabWidget>

// The open documents, one tab each. Adds to the standard widget: closing with the middle button, a
// context menu whose choice comes back as its text, and double clicks beside the tabs.
class CTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit CTabWidget(QWidget *pParent = nullptr);

    // Appends one context-menu entry per text.
    void addMenuActions(const QStringList &lstTexts);
    const QMenu &menu() const { return m_menu; }

    // Shows text on a tab as it is: an "&" in it is no mnemonic, markup in the tip no markup.
    void setPlainTabText(int nIndex, const QString &strText);
    void setPlainTabToolTip(int nIndex, const QString &strText);

    // Puts another widget into the place of one; the tab stays as it is.
    void replaceWidget(QWidget *pOld, QWidget *pNew);

signals:
    // The tab under the pointer, -1 for none.
    void emitMidButtonRelease(int nIndex);
    void clickAction(QString strText);

public slots:
    void onClickAction();

protected:
    void mouseReleaseEvent(QMouseEvent *pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent *pEvent) override;
    void contextMenuEvent(QContextMenuEvent *pEvent) override;

private:
    QMenu m_menu;
};
