#pragma once

#include <QMenu>
#include <QTabWidget>

// The open documents, one tab each. Adds to the standard widget: closing with the middle button, a
// context menu whose choice comes back as its text, double clicks beside the tabs, a panel that
// is shown while there is no tab, and a header above the page.
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

    // Puts another widget into the place of one; the tab stays as it is, the current one is the
    // same as before, and the keyboard goes along.
    void replaceWidget(QWidget *pOld, QWidget *pNew);

    // A child of this widget, over its area while there is no tab. A corner widget is shown while
    // there is one.
    void setEmptyPanel(QWidget *pPanel);
    QWidget *emptyPanel() const { return m_pEmptyPanel; }

    // A child of this widget, above the page of the current tab or the empty panel while it is not
    // hidden. It takes its room from them.
    void setHeader(QWidget *pHeader);

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
    void resizeEvent(QResizeEvent *pEvent) override;
    void tabInserted(int nIndex) override;
    void tabRemoved(int nIndex) override;
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    void showEmptyPanel();
    void placeHeader();

    QMenu m_menu;
    QWidget *m_pHeader = nullptr;
    QWidget *m_pPages = nullptr; // The standard widget's own, once there is a header.
    QRect m_pagesArea; // As the standard widget gives it to the pages.
    bool m_bPlacing = false;
    QRect m_placedArea; // What the header leaves of it.
    QWidget *m_pEmptyPanel = nullptr;
    bool m_bReplacing = false;
};
