#include "lib/qt/mltabwidget.h"

#include <QIcon>
#include <QPixmap>
#include <QTabBar>
#include <QtTest>

// The tab widget: labels kept through compact mode, pages taken away and shown.
class TestMLTabWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void narrowShowsOnlyTheCurrentLabel();
    void removeAndShowPages();

private:
    // Three tabs with a picture each, as pictures of the program would give.
    static void fill(MLTabWidget &tabs, QWidget *pages[3]);
};

void TestMLTabWidget::fill(MLTabWidget &tabs, QWidget *pages[3])
{
    QPixmap square(16, 16);
    square.fill(Qt::red);
    const QStringList labels { QStringLiteral("Record"), QStringLiteral("Memo"),
        QStringLiteral("Reminder") };
    for (int i = 0; i < 3; ++i) {
        pages[i] = new QWidget;
        tabs.addTab(pages[i], QStringLiteral("no-such-picture"), labels.at(i));
        tabs.setTabIcon(i, QIcon(square));
    }
}

void TestMLTabWidget::narrowShowsOnlyTheCurrentLabel()
{
    MLTabWidget tabs;
    QWidget *pages[3];
    fill(tabs, pages);
    tabs.resize(60, 300);
    tabs.show();
    QVERIFY(tabs.isCompact());
    QCOMPARE(tabs.tabText(0), QStringLiteral("Record"));
    QVERIFY(tabs.tabText(1).isEmpty());
    QCOMPARE(tabs.tabLabel(1), QStringLiteral("Memo"));
    QCOMPARE(tabs.tabBar()->tabToolTip(1), QStringLiteral("Memo"));

    tabs.setCurrentIndex(2);
    QVERIFY(tabs.tabText(0).isEmpty());
    QCOMPARE(tabs.tabText(2), QStringLiteral("Reminder"));

    tabs.resize(800, 300);
    QVERIFY(!tabs.isCompact());
    QCOMPARE(tabs.tabText(0), QStringLiteral("Record"));
}

void TestMLTabWidget::removeAndShowPages()
{
    MLTabWidget tabs;
    QWidget *pages[3];
    fill(tabs, pages);
    tabs.removePage(pages[0]);
    QCOMPARE(tabs.count(), 2);
    QCOMPARE(tabs.tabLabel(0), QStringLiteral("Memo"));
    tabs.showPage(pages[2]);
    QCOMPARE(tabs.currentWidget(), pages[2]);
    // A page no longer among the tabs can't be shown; the one shown stays.
    tabs.showPage(pages[0]);
    QCOMPARE(tabs.currentWidget(), pages[2]);
    delete pages[0];
}

QTEST_MAIN(TestMLTabWidget)
#include "testmltabwidget.moc"
