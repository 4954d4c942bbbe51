#include <QDir>
#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

// Installs the build as a packager does (DESTDIR and a prefix) into a temporary root, then
// checks the installed files with the tools desktops read them with.
class TestInstall : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void installs_data();
    void installs();
    void validates_data();
    void validates();
    void manualCoversCommand_data();
    void manualCoversCommand();
    void cardFileType_data();
    void cardFileType();

private:
    QString installed(const QString &path) const { return m_prefix + QLatin1Char('/') + path; }

    QTemporaryDir m_root;
    QString m_prefix; // the install prefix inside the root
};

namespace
{
struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run run(const QString &program, const QStringList &arguments,
    const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    Run result;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return result;
    result.exitCode = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

const QString appId = QStringLiteral(NORVIKA_APP_ID);
const QString cardType = QStringLiteral("application/x-norvika-card");

QString manPage(const QString &name)
{
    return QStringLiteral(INSTALL_MANDIR "/man1/%1.1").arg(name);
}
} // namespace

void TestInstall::initTestCase()
{
    QVERIFY(m_root.isValid());
    m_prefix = m_root.path() + QStringLiteral("/opt/norvika");
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DESTDIR"), m_root.path());
    // The install writes its list of files into the build folder, where it may stand for
    // the user's own install, which uninstalling reads: it is put back as it was.
    QFile manifest(QStringLiteral(NORVIKA_BUILD_DIR "/install_manifest.txt"));
    const bool hadManifest = manifest.open(QIODevice::ReadOnly);
    const QByteArray userManifest = hadManifest ? manifest.readAll() : QByteArray();
    manifest.close();
    const Run install = run(QStringLiteral(CMAKE_COMMAND),
        { QStringLiteral("--install"), QStringLiteral(NORVIKA_BUILD_DIR),
            QStringLiteral("--prefix"), QStringLiteral("/opt/norvika") },
        env);
    if (hadManifest)
        QVERIFY(manifest.open(QIODevice::WriteOnly) && manifest.write(userManifest) >= 0);
    else
        manifest.remove();
    QVERIFY2(install.exitCode == 0, qPrintable(install.err));
}

void TestInstall::installs_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("iconSize"); // 0 for a file that is no picture

    const QString bin = QStringLiteral(INSTALL_BINDIR "/");
    QTest::newRow("program") << bin + QStringLiteral("norvika") << 0;
    QTest::newRow("companion") << bin + QStringLiteral("norvika-cli") << 0;
    // The program finds its pictures by this path from its own folder.
    QTest::newRow("share folder from the program")
        << bin + QStringLiteral(NORVIKA_SHARE_FROM_BINARY "/pics/filenew.png") << 22;
    QTest::newRow("sounds") << QStringLiteral(INSTALL_DATADIR "/norvika/sounds/alarm.wav") << 0;
    QTest::newRow("menu entry")
        << QStringLiteral(INSTALL_DATADIR "/applications/%1.desktop").arg(appId) << 0;
    QTest::newRow("metainfo")
        << QStringLiteral(INSTALL_DATADIR "/metainfo/%1.metainfo.xml").arg(appId) << 0;
    QTest::newRow("file type") << QStringLiteral(INSTALL_DATADIR "/mime/packages/%1.xml").arg(appId)
                               << 0;
    QTest::newRow("norvika(1)") << manPage(QStringLiteral("norvika")) << 0;
    QTest::newRow("norvika-cli(1)") << manPage(QStringLiteral("norvika-cli")) << 0;
    for (int size : { 16, 22, 24, 32, 48, 64, 128, 256 })
        QTest::addRow("icon %d", size)
            << QStringLiteral(INSTALL_DATADIR "/icons/hicolor/%1x%1/apps/%2.png")
                   .arg(size)
                   .arg(appId)
            << size;
}

void TestInstall::installs()
{
    QFETCH(QString, path);
    QFETCH(int, iconSize);
    QVERIFY2(QFileInfo(installed(path)).isFile(), qPrintable(path));
    if (iconSize > 0)
        QCOMPARE(QImageReader(installed(path)).size(), QSize(iconSize, iconSize));
}

void TestInstall::validates_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QStringList>("arguments"); // the last one a file under the prefix

    QTest::newRow("menu entry") << QStringLiteral("desktop-file-validate")
                                << QStringList { QStringLiteral(INSTALL_DATADIR "/applications/")
                                       + appId + QStringLiteral(".desktop") };
    QTest::newRow("metainfo") << QStringLiteral("appstreamcli")
                              << QStringList { QStringLiteral("validate"),
                                     QStringLiteral("--no-net"),
                                     QStringLiteral(INSTALL_DATADIR "/metainfo/") + appId
                                         + QStringLiteral(".metainfo.xml") };
    for (const char *page : { "norvika", "norvika-cli" })
        QTest::addRow("man %s", page)
            << QStringLiteral("man")
            << QStringList { QStringLiteral("--warnings"), QStringLiteral("-l"),
                   manPage(QString::fromLatin1(page)) };
}

void TestInstall::validates()
{
    QFETCH(QString, tool);
    QFETCH(QStringList, arguments);
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty())
        QSKIP(qPrintable(tool + QStringLiteral(" is not installed (scripts/deps.sh installs it)")));
    arguments.last() = installed(arguments.last());
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("MANWIDTH"), QStringLiteral("80"));
    const Run result = run(program, arguments, env);
    QVERIFY2(result.exitCode == 0, qPrintable(result.out + result.err));
    // Warnings leave the exit status alone but are faults all the same.
    QVERIFY2(result.err.isEmpty(), qPrintable(result.err));
}

// Every command of the companion, and every option its usage names, is in its manual.
void TestInstall::manualCoversCommand_data()
{
    QTest::addColumn<QString>("command");
    const Run help = run(QStringLiteral(NORVIKA_CLI), { QStringLiteral("--help") });
    QCOMPARE(help.exitCode, 0);
    static const QRegularExpression commandLine(
        QStringLiteral("^  ([a-z-]+) "), QRegularExpression::MultilineOption);
    const QString commands = help.out.mid(help.out.indexOf(QStringLiteral("Commands:")));
    for (const QRegularExpressionMatch &m : commandLine.globalMatch(commands))
        QTest::newRow(qPrintable(m.captured(1))) << m.captured(1);
}

void TestInstall::manualCoversCommand()
{
    QFETCH(QString, command);
    QFile page(installed(manPage(QStringLiteral("norvika-cli"))));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString manual
        = QString::fromUtf8(page.readAll()).replace(QStringLiteral("\\-"), QStringLiteral("-"));
    QVERIFY2(manual.contains(QStringLiteral(".SS ") + command), qPrintable(command));
    const Run help = run(QStringLiteral(NORVIKA_CLI), { command, QStringLiteral("--help") });
    QCOMPARE(help.exitCode, 0);
    static const QRegularExpression option(QStringLiteral("--[a-z][a-z-]*"));
    for (const QRegularExpressionMatch &m : option.globalMatch(help.out))
        QVERIFY2(
            manual.contains(m.captured(0)), qPrintable(command + QLatin1Char(' ') + m.captured(0)));
}

void TestInstall::cardFileType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("card"); // a card's bytes, or a line of text
    QTest::addColumn<QString>("type");

    QTest::newRow("card") << QStringLiteral("sample.card") << true << cardType;
    QTest::newRow("card under another name") << QStringLiteral("sample.bin") << true << cardType;
    QTest::newRow("empty file named .card") << QStringLiteral("new.card") << false << cardType;
    QTest::newRow("text") << QStringLiteral("notes.txt") << false << QStringLiteral("text/plain");
}

// The file type as a file manager finds it once the package is in the user's data folder.
void TestInstall::cardFileType()
{
    QFETCH(QString, name);
    QFETCH(bool, card);
    QFETCH(QString, type);
    for (const char *tool : { "update-mime-database", "xdg-mime", "mimetype" }) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
            QSKIP(qPrintable(QStringLiteral("%1 is not installed (scripts/deps.sh installs it)")
                                 .arg(QString::fromLatin1(tool))));
    }
    QTemporaryDir dataHome;
    const QString mime = dataHome.filePath(QStringLiteral("mime"));
    QVERIFY(QDir().mkpath(mime + QStringLiteral("/packages")));
    QVERIFY(QFile::copy(installed(QStringLiteral(INSTALL_DATADIR "/mime/packages/") + appId
                            + QStringLiteral(".xml")),
        mime + QStringLiteral("/packages/") + appId + QStringLiteral(".xml")));
    QCOMPARE(run(QStringLiteral("update-mime-database"), { mime }).exitCode, 0);

    const QString file = dataHome.filePath(name);
    if (card) {
        QCOMPARE(run(QStringLiteral(NORVIKA_CLI),
                     { QStringLiteral("generate"), QStringLiteral("--records"), QStringLiteral("3"),
                         file })
                     .exitCode,
            0);
    } else {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        if (name.endsWith(QLatin1String(".txt")))
            out.write("A line of plain text.\n");
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("XDG_DATA_HOME"), dataHome.path());
    env.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("X-Generic"));
    const Run query = run(QStringLiteral("xdg-mime"),
        { QStringLiteral("query"), QStringLiteral("filetype"), file }, env);
    QCOMPARE(query.exitCode, 0);
    QCOMPARE(query.out.trimmed(), type);
}

QTEST_GUILESS_MAIN(TestInstall)
#include "testinstall.moc"
