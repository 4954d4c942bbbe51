#ifndef MLTABWIDGET_H
#define MLTABWIDGET_H

#include <QTabWidget>

// A tab widget whose tabs carry the program's pictures. When the labels of all tabs don't
// fit across, only the current tab keeps its label and the others show their picture alone,
// with the label as tool tip.
class MLTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit MLTabWidget(QWidget *parent = nullptr);

    // Adds page with the picture of that name; the index of the new tab.
    int addTab(QWidget *page, const QString &iconName, const QString &label);
    // Takes the page's tab away; the page itself stays and is not deleted.
    void removePage(QWidget *page);
    // Makes page current, if it is one of the tabs.
    void showPage(QWidget *page);

    // The label of tab index, also while it shows its picture alone.
    QString tabLabel(int index) const;
    bool isCompact() const { return m_compact; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void tabInserted(int index) override;

private:
    void updateLabels();
    // The width the tab bar needs with every label shown.
    int fullWidth() const;

    bool m_compact = false;
};

#endif
