#include "app/datetimedialog.h"
#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "support/testhome.h"

#include <QComboBox>
#include <QPushButton>
#include <QtTest>

// The date and time settings dialog: it shows what the settings hold, offers what was
// written there by hand, and writes back only on Ok.
class TestDateTimeDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { DateTimeSettings::instance()->invalidate(); }
    void showsAndStores_data();
    void showsAndStores();
    void cancelWritesNothing();
};

namespace
{
struct Written {
    bool ampm;
    bool monday;
    QString separator;
    int shortOrder;
    int longOrder;
};

void write(const Written &settings)
{
    Config qpe(QStringLiteral("qpe"));
    qpe.setGroup(QStringLiteral("Time"));
    qpe.writeEntry(QStringLiteral("AMPM"), settings.ampm);
    qpe.writeEntry(QStringLiteral("MONDAY"), settings.monday);
    qpe.setGroup(QStringLiteral("Date"));
    qpe.writeEntry(QStringLiteral("Separator"), settings.separator);
    qpe.writeEntry(QStringLiteral("ShortOrder"), settings.shortOrder);
    qpe.writeEntry(QStringLiteral("LongOrder"), settings.longOrder);
}

Written read()
{
    Config qpe(QStringLiteral("qpe"));
    qpe.setGroup(QStringLiteral("Time"));
    Written settings { qpe.readBoolEntry(QStringLiteral("AMPM")),
        qpe.readBoolEntry(QStringLiteral("MONDAY")), QString(), 0, 0 };
    qpe.setGroup(QStringLiteral("Date"));
    settings.separator = qpe.readEntry(QStringLiteral("Separator"));
    settings.shortOrder = qpe.readNumEntry(QStringLiteral("ShortOrder"));
    settings.longOrder = qpe.readNumEntry(QStringLiteral("LongOrder"));
    return settings;
}

QComboBox *combo(const DateTimeDialog &dialog, const char *name)
{
    return dialog.findChild<QComboBox *>(QString::fromLatin1(name));
}

QStringList shown(const DateTimeDialog &dialog)
{
    QStringList texts;
    for (const char *name : { "clock", "week", "order", "separator" })
        texts << combo(dialog, name)->currentText();
    return texts;
}
} // namespace

Q_DECLARE_METATYPE(Written)

void TestDateTimeDialog::showsAndStores_data()
{
    QTest::addColumn<bool>("preset"); // false: no settings file yet
    QTest::addColumn<Written>("before");
    QTest::addColumn<QStringList>("shownTexts");
    QTest::addColumn<QList<int>>("chosen"); // clock, week, order, separator; -1 leaves it
    QTest::addColumn<Written>("after");

    QTest::newRow("defaults, all changed")
        << false << Written {} << QStringList { "12 hour (AM/PM)", "Sunday", "Day Month Year", "/" }
        << QList<int> { 0, 1, 2, 1 } << Written { false, true, ".", 84, 84 };
    QTest::newRow("a long order set apart stays")
        << true << Written { false, true, "-", 0412, 0124 }
        << QStringList { "24 hour", "Monday", "Month Day Year", "-" } << QList<int> { 1, 0, -1, -1 }
        << Written { true, false, "-", 0412, 0124 };
    QTest::newRow("a new order goes to both")
        << true << Written { false, false, "/", 0412, 0124 }
        << QStringList { "24 hour", "Sunday", "Month Day Year", "/" }
        << QList<int> { -1, -1, 0, -1 } << Written { false, false, "/", 0421, 0421 };
    QTest::newRow("hand-written values are offered and kept")
        << true << Written { true, false, "|", 0214, 0214 }
        << QStringList { "12 hour (AM/PM)", "Sunday", "Year Day Month", "|" }
        << QList<int> { -1, -1, -1, -1 } << Written { true, false, "|", 0214, 0214 };
    QTest::newRow("a negative order ends its name")
        << true << Written { true, false, "/", -5, -5 }
        << QStringList { "12 hour (AM/PM)", "Sunday", "-5", "/" } << QList<int> { -1, -1, -1, -1 }
        << Written { true, false, "/", -5, -5 };
}

void TestDateTimeDialog::showsAndStores()
{
    QFETCH(bool, preset);
    QFETCH(Written, before);
    QFETCH(QList<int>, chosen);
    QFETCH(Written, after);
    TestHome home;
    if (preset)
        write(before);

    DateTimeDialog dialog;
    QTEST(shown(dialog), "shownTexts");
    const char *names[] = { "clock", "week", "order", "separator" };
    for (int i = 0; i < 4; ++i) {
        if (chosen.at(i) >= 0)
            combo(dialog, names[i])->setCurrentIndex(chosen.at(i));
    }
    QSignalSpy changed(DateTimeSettings::instance(), &DateTimeSettings::changed);
    dialog.findChild<QPushButton *>(QStringLiteral("btnOk"))->click();

    const Written stored = read();
    QCOMPARE(stored.ampm, after.ampm);
    QCOMPARE(stored.monday, after.monday);
    QCOMPARE(stored.separator, after.separator);
    QCOMPARE(stored.shortOrder, after.shortOrder);
    QCOMPARE(stored.longOrder, after.longOrder);
    // The program follows at once, without waiting for the file to be noticed.
    QCOMPARE(DateTimeSettings::instance()->shortOrder(), after.shortOrder);
    QCOMPARE(DateTimeSettings::instance()->ampm(), after.ampm);
    const bool untouched = preset && chosen == QList<int>(4, -1);
    QCOMPARE(changed.count(), untouched ? 0 : 1);
}

void TestDateTimeDialog::cancelWritesNothing()
{
    TestHome home;
    DateTimeDialog dialog;
    combo(dialog, "clock")->setCurrentIndex(0);
    dialog.findChild<QPushButton *>(QStringLiteral("btnCancel"))->click();
    QVERIFY(!QFile::exists(home.path() + QStringLiteral("/settings/qpe.conf")));
    QVERIFY(DateTimeSettings::instance()->ampm());
}

QTEST_MAIN(TestDateTimeDialog)
#include "testdatetimedialog.moc"
