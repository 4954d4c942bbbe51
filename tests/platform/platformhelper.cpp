// A second process for the platform tests: another start of the program, or the command-line
// tool, talking to the process under test through the bridge and the alarm table.
//   send CHANNEL MESSAGE TEXT       exit 0 when a receiver took it
//   registered CHANNEL              exit 0 when the channel has a receiver
//   alarm MSECS CHANNEL MESSAGE N   adds an alarm MSECS from now; exit 0 when stored
//   launch [ARGUMENTS...]           starts as the program; exit 0 when handed to the running one
#include "platform/alarmserver.h"
#include "platform/qcopchannel.h"
#include "platform/qpeapplication.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QIODevice>

namespace
{
int runCore(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const QString command = args.value(1);
    if (command == QLatin1String("send") && args.size() == 5) {
        QByteArray data;
        QDataStream out(&data, QIODevice::WriteOnly);
        out << args.at(4);
        return QCopChannel::send(args.at(2).toUtf8(), args.at(3).toUtf8(), data) ? 0 : 1;
    }
    if (command == QLatin1String("registered") && args.size() == 3)
        return QCopChannel::isRegistered(args.at(2).toUtf8()) ? 0 : 1;
    if (command == QLatin1String("alarm") && args.size() == 6) {
        const QDateTime when = QDateTime::currentDateTime().addMSecs(args.at(2).toLongLong());
        return AlarmServer::addAlarm(
                   when, args.at(3).toUtf8(), args.at(4).toUtf8(), args.at(5).toInt())
            ? 0
            : 1;
    }
    return 2;
}

int runLaunch(int argc, char **argv)
{
    // The program's own arguments follow the word "launch".
    argv[1] = argv[0];
    int count = argc - 1;
    QPEApplication app(count, argv + 1);
    app.setObjectName(QStringLiteral("norvika"));
    return app.forwardToRunningInstance() ? 0 : 3;
}
} // namespace

int main(int argc, char **argv)
{
    if (argc >= 2 && qstrcmp(argv[1], "launch") == 0)
        return runLaunch(argc, argv);
    return runCore(argc, argv);
}
