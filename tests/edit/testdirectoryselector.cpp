#include "edit/directoryselector.h"

#include "platform/platformpaths.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

// The folder selector: a typed path and a chosen place are changes.
class TestDirectorySelector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedPathReportsChanged();
    void chosenPlaceReportsChanged();
};

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
