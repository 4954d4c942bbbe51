#include "app/mrlapplication.h"
#include "platform/config.h"
#include "platform/datetimesettings.h"
#include "platform/platformpaths.h"
#include "platform/qcopchannel.h"
#include "support/testhome.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStyle>
#include <QTemporaryDir>
#include <QtTest>

// The application object: its date and clock getters, their change signal, the screen
// class and the style library. The object is made once in main(), with a share folder
// that holds a style library and a home without any "mrl" settings.
class TestMRLApplication : public QObject
{
    Q_OBJECT

public:
    explicit TestMRLApplication(const QString &share)
        : m_share(share)
    {
    }

private Q_SLOTS:
    void init();
    void otherMessagesLeaveTheLibraryAlone();
    void aChangeIsSignalledOnce_data();
    void aChangeIsSignalledOnce();
    void missingLibraryLeavesTheStyle();
    void applyMRLStyleLoadsTheLibrary();

private:
    static void writeDateSettings(const QString &separator, bool ampm);
    QString libraryFile() const { return m_share + QStringLiteral("/lib/libmrlstyle.so"); }

    QString m_share;
};

namespace
{
MRLApplication *app()
{
    return MRLApplication::instance();
}
} // namespace

void TestMRLApplication::init()
{
    DateTimeSettings::instance()->invalidate();
}

void TestMRLApplication::writeDateSettings(const QString &separator, bool ampm)
{
    Config qpe(QStringLiteral("qpe"));
    qpe.setGroup(QStringLiteral("Time"));
    qpe.writeEntry(QStringLiteral("AMPM"), ampm);
    qpe.writeEntry(QStringLiteral("MONDAY"), true);
    qpe.setGroup(QStringLiteral("Date"));
    qpe.writeEntry(QStringLiteral("Separator"), separator);
    qpe.writeEntry(QStringLiteral("ShortOrder"), 100);
    qpe.writeEntry(QStringLiteral("LongOrder"), 200);
}

// Neither the start without a style entry nor a message other than the style's own loads it.
void TestMRLApplication::otherMessagesLeaveTheLibraryAlone()
{
    QVERIFY(QFile::exists(libraryFile()));
    QVERIFY(!app()->isStyleLibraryLoaded());
    QVERIFY(app()->style()->objectName() != QLatin1String("xp"));
    app()->mrlAppReceive("setDocument(QString)", QByteArray());
    app()->mrlAppReceive("applyMRLStyle", QByteArray());
    QVERIFY(!app()->isStyleLibraryLoaded());
}

void TestMRLApplication::aChangeIsSignalledOnce_data()
{
    QTest::addColumn<QString>("separator");
    QTest::addColumn<bool>("ampm");
    QTest::addColumn<QString>("via"); // a platform signal, or "update" for a direct look
    QTest::addColumn<int>("emitted");

    QTest::newRow("separator changed") << "." << false << "update" << 1;
    QTest::newRow("clock changed") << "-" << true << "update" << 1;
    QTest::newRow("nothing changed") << "-" << false << "update" << 0;
    QTest::newRow("platform clock signal") << "/" << false << "clock" << 1;
    QTest::newRow("platform date format signal") << "/" << false << "date format" << 1;
    QTest::newRow("platform week signal") << "/" << false << "week" << 1;
}

void TestMRLApplication::aChangeIsSignalledOnce()
{
    QFETCH(QString, separator);
    QFETCH(bool, ampm);
    QFETCH(QString, via);
    QFETCH(int, emitted);

    TestHome home;
    writeDateSettings(QStringLiteral("-"), false);
    app()->updateDateTimeFormats();
    QSignalSpy spy(app(), &MRLApplication::dateTimeSettingChanged);

    writeDateSettings(separator, ampm);
    if (via == QLatin1String("clock"))
        Q_EMIT app()->clockChanged(false);
    else if (via == QLatin1String("date format"))
        Q_EMIT app()->dateFormatChanged(DateFormat());
    else if (via == QLatin1String("week"))
        Q_EMIT app()->weekChanged(true);
    else
        app()->updateDateTimeFormats();
    QCOMPARE(spy.count(), emitted);
    QCOMPARE(app()->dateSeparator(), separator.at(0));
    app()->updateDateTimeFormats();
    QCOMPARE(spy.count(), emitted);
}

void TestMRLApplication::missingLibraryLeavesTheStyle()
{
    const QString aside = libraryFile() + QStringLiteral(".aside");
    QVERIFY(QFile::rename(libraryFile(), aside));
    const QString before = app()->style()->objectName();
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("libmrlstyle\\.so")));
    app()->mrlAppReceive("applyMRLStyle()", QByteArray());
    QVERIFY(!app()->isStyleLibraryLoaded());
    QCOMPARE(app()->style()->objectName(), before);
    QVERIFY(QFile::rename(aside, libraryFile()));
}

void TestMRLApplication::applyMRLStyleLoadsTheLibrary()
{
    QTest::ignoreMessage(QtDebugMsg, "Load mrlStyle library");
    QVERIFY(QCopChannel::send("QPE/System", "applyMRLStyle()"));
    QTRY_VERIFY(app()->isStyleLibraryLoaded());
    QCOMPARE(app()->style()->objectName(), QStringLiteral("xp"));
}

int main(int argc, char **argv)
{
    QTemporaryDir home;
    QTemporaryDir share;
    if (!home.isValid() || !share.isValid())
        return 1;
    PlatformPaths::setHomeRoot(home.path());
    qputenv("NORVIKA_SHARE", QFile::encodeName(share.path()));
    QDir().mkpath(share.filePath(QStringLiteral("lib")));
    if (!QFile::copy(QStringLiteral(MRLSTYLE_TEST_LIBRARY),
            share.filePath(QStringLiteral("lib/libmrlstyle.so"))))
        return 1;

    MRLApplication application(argc, argv, QStringLiteral("norvika"));
    TestMRLApplication test(share.path());
    return QTest::qExec(&test, argc, argv);
}

#include "testmrlapplication.moc"
