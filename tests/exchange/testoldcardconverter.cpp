#include "card/datamanager.h"
#include "card/datarecord.h"
#include "exchange/datamanager2.h"
#include "exchange/oldcardconverter.h"
#include "platform/global.h"
#include "reminders/reminder.h"
#include "store/dbmanager.h"
#include "store/mrlpim.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QTest>

// Cards of the older text layout become .card files once, with their fields, values,
// filters and a password only if it was not crypted.
class TestOldCardConverter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void freshInstallation();
    void convertsOnce();
    void filters_data();
    void filters();
};

namespace
{
void writeText(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
}

// An old card list entry: fields as "type:title" pairs, numbered from 0.
QString oldEntry(const QString &path, const QString &password, const QStringList &fields)
{
    QString text = QStringLiteral("TITLE=Old\nICON=5\nDESC=first|second\nPWD=%1\nPATH=%2\n")
                       .arg(password, path);
    for (int i = 0; i < fields.size(); ++i) {
        text += QStringLiteral("PROP=v%1=%2\nPROP=t%1=%3\nPROP=c%1=L%1\n")
                    .arg(i)
                    .arg(fields.at(i).section(':', 0, 0), fields.at(i).section(':', 1));
    }
    return text + QStringLiteral("END\n");
}

QString storePath()
{
    return Global::applicationFileName(MRLPIM::applicationName(), QStringLiteral("db"));
}

const QStringList oldFields = { "0:Name", "1:Count", "2:Price", "3:Day", "5:Moment", "7:Notes",
    "8:Alarm", "12:Picture", "13:Tags", "99:Odd" };
} // namespace

void TestOldCardConverter::freshInstallation()
{
    TestHome home;
    QCOMPARE(OldCardConverter::run(), 0);
    QFile store(storePath());
    QVERIFY(store.open(QIODevice::ReadOnly));
    QVERIFY(store.readAll().contains("converted=2"));
    DBManager list(false);
    list.load();
    QCOMPARE(list.count(), 0);
}

void TestOldCardConverter::convertsOnce()
{
    TestHome home;
    const QString first = home.file("a/cards.txt");
    const QString second = home.file("b/cards.txt");
    QDir().mkpath(home.file("a"));
    writeText(first,
        "FOLDER\nFILTERS=1 4 Open 1 1 2 2 42 \nCFILTER=0\nEND\n"
        "PROP=0=Ann\nPROP=1=42\nPROP=2=2.5\nPROP=3=3 4 2005\nPROP=4=7 3 2004 18 5 9\n"
        "PROP=8=red|blue\nPROP=9=x\nM=memo|two\nIMG=pics/a.png\nR\nDATETIME=2 1 2006 3 4 "
        "5\nSOUND=1\n"
        "REMINDER_END\nEND\n");
    writeText(storePath(),
        oldEntry(first, "$1$salt$hash", oldFields) + oldEntry(second, "plain", { "0:Only" }));

    QCOMPARE(OldCardConverter::run(), 2);
    QCOMPARE(OldCardConverter::run(), 0);
    QVERIFY(QFile::exists(first));

    DBManager list(false);
    list.load();
    QCOMPARE(list.count(), 2);
    const QString copy = QDir(home.documents()).filePath("cards_Copy_1.card");
    QVERIFY(list.findByPath(copy));
    DataManager plain(copy);
    QVERIFY(plain.load());
    QCOMPARE(plain.password(), QStringLiteral("plain"));

    DataManager card(QDir(home.documents()).filePath("cards.card"));
    QVERIFY(card.load());
    QCOMPARE(card.password(), QString());
    QCOMPARE(card.icon(), QStringLiteral("5"));
    QCOMPARE(card.description(), QStringLiteral("first\nsecond"));
    QCOMPARE(card.fieldCount(), oldFields.size());
    QCOMPARE(card.field(1).label, QStringLiteral("L1"));
    QCOMPARE(card.field(9).type, int(FieldDef::String));
    QCOMPARE(card.filters().size(), 1);
    QCOMPARE(card.filters().first().title, QStringLiteral("Open"));
    QCOMPARE(card.filters().first().conditions.first().number, 42);
    QCOMPARE(card.currentFilter(), 0);
    QCOMPARE(card.count(), 1);
    const auto *record = static_cast<const DataRecord *>(card.records().first());
    QCOMPARE(record->stringValue(0), QStringLiteral("Ann"));
    QCOMPARE(record->intValue(1), 42);
    QCOMPARE(record->doubleValue(2), 2.5);
    QCOMPARE(record->dateValue(3), QDate(2005, 4, 3));
    QCOMPARE(record->dateTimeValue(4), QDateTime(QDate(2004, 3, 7), QTime(18, 5, 9)));
    QCOMPARE(record->memo(), QStringLiteral("memo\ntwo"));
    QVERIFY(record->hasReminder());
    QCOMPARE(record->reminder()->dateTime, QDateTime(QDate(2006, 1, 2), QTime(3, 4, 5)));
    QCOMPARE(record->image(), QStringLiteral("pics/a.png"));
    QCOMPARE(record->stringValue(8), QStringLiteral("red\nblue"));
}

void TestOldCardConverter::filters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QString>("firstText"); // text of the first condition, if any

    QTest::newRow("two filters") << "2 1 A 1 0 0 2 xy 1 B 0 " << QStringList { "A", "B" } << "xy";
    QTest::newRow("value with blanks") << "1 1 A 1 -1 0 3 a b " << QStringList { "A" } << "a b";
    QTest::newRow("ends early drops the filter under way")
        << "2 1 A 0 1 B 1 0 0 5 ab" << QStringList { "A" } << "";
    QTest::newRow("huge count bounded by the text")
        << "999999999 1 A 0 " << QStringList { "A" } << "";
    QTest::newRow("length past the text") << "1 99 A 0 " << QStringList() << "";
    QTest::newRow("not a number") << "x" << QStringList() << "";
    QTest::newRow("empty") << "" << QStringList() << "";
}

void TestOldCardConverter::filters()
{
    QFETCH(QString, text);
    QFETCH(QStringList, titles);
    QFETCH(QString, firstText);

    FieldDef field;
    const QList<FilterDef> filters = DataManager2::parseFilters(text, { field });
    QStringList got;
    for (const FilterDef &filter : filters)
        got << filter.title;
    QCOMPARE(got, titles);
    if (!firstText.isEmpty())
        QCOMPARE(filters.first().conditions.first().text, firstText);
}

QTEST_GUILESS_MAIN(TestOldCardConverter)
#include "testoldcardconverter.moc"
