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

    // Shows texts on a tab literally: an "&" is no mnemonic, and markup in the tip is no markup.
    void setPlainTabText(int nIndex, const QString &strText);
    void setPlainTabToolTip(int nIndex, const QString &strText);

    // Replaces a widget by another one. The tab stays as it is, the current tab is the same, and
    // the focus moves to the new widget.
    void replaceWidget(QWidget *pOld, QWidget *pNew);

    // Sets a child that covers this widget while there is no tab. A corner widget is shown while
    // there is one.
    void setEmptyPanel(QWidget *pPanel);
    QWidget *emptyPanel() const { return m_pEmptyPanel; }

    // Sets a child that is shown above the page of the current tab or the empty panel, and takes
    // its room from them, unless it is hidden.
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
    // The child of the standard widget that holds the pages, once there is a header.
    QWidget *m_pPages = nullptr;
    QRect m_pagesArea; // The rectangle that the standard widget gives to the pages.
    bool m_bPlacing = false;
    QRect m_placedArea; // The part of it that the header leaves.
    QWidget *m_pEmptyPanel = nullptr;
    bool m_bReplacing = false;
};
