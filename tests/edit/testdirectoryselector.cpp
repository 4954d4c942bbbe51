#include "edit/directoryselector.h"

#include "platform/platformpaths.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

// The folder selector: its places, a typed path and a chosen place.
class TestDirectorySelector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void places();
    void setPathIsNoChange();
    void typedPathReportsChanged();
    void chosenPlaceReportsChanged();
};

void TestDirectorySelector::places()
{
    TestHome home;
    const QList<DirectorySelector::Place> places = DirectorySelector::places();
    QStringList labels;
    for (const DirectorySelector::Place &place : places)
        labels << place.label + QLatin1Char('=') + place.icon;
    QStringList expected{QStringLiteral("Documents=std/c07"), QStringLiteral("Home Dir=std/c13"),
        QStringLiteral("Applications Data=std/exec")};
    if (QFileInfo(QStringLiteral("/mnt/cf")).isDir())
        expected << QStringLiteral("Compact Flash=std/a01");
    if (QFileInfo(QStringLiteral("/mnt/card")).isDir())
        expected << QStringLiteral("SD Card=std/a03");
    QCOMPARE(labels, expected);
    QCOMPARE(places.at(0).path, PlatformPaths::documentsDir());
    QCOMPARE(places.at(1).path, home.path());
    QCOMPARE(places.at(2).path, PlatformPaths::dataDir());
}

void TestDirectorySelector::setPathIsNoChange()
{
    DirectorySelector selector;
    QSignalSpy changed(&selector, &DirectorySelector::changed);
    selector.setPath(QStringLiteral("/tmp"));
    QCOMPARE(selector.path(), QStringLiteral("/tmp"));
    QCOMPARE(changed.count(), 0);
}

void TestDirectorySelector::typedPathReportsChanged()
{
    DirectorySelector selector;
    selector.setPath(QStringLiteral("/tmp"));
    QSignalSpy changed(&selector, &DirectorySelector::changed);
    auto *edit = selector.findChild<QLineEdit *>(QStringLiteral("path"));
    selector.show();
    edit->setFocus();
    QTest::keyClicks(edit, QStringLiteral("/x"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(selector.path(), QStringLiteral("/tmp/x"));
    // Finishing again without typing is no new change.
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(changed.count(), 1);
}

void TestDirectorySelector::chosenPlaceReportsChanged()
{
    TestHome home;
    DirectorySelector selector;
    selector.setPath(QStringLiteral("/tmp"));
    QSignalSpy changed(&selector, &DirectorySelector::changed);
    QStringList offered;
    whenShown<QMenu>([&offered](QMenu *menu) {
        for (const QAction *action : menu->actions())
            offered << action->text();
        menu->actions().at(0)->trigger();
        menu->close();
    });
    selector.show();
    selector.findChild<QToolButton *>(QStringLiteral("btnPlaces"))->click();
    QCOMPARE(offered.first(), QStringLiteral("Documents"));
    QCOMPARE(offered.last(), QStringLiteral("Other Folder ..."));
    QCOMPARE(selector.path(), PlatformPaths::documentsDir());
    QCOMPARE(changed.count(), 1);
}

QTEST_MAIN(TestDirectorySelector)
#include "testdirectoryselector.moc"
