#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream(stdout) << "norvika-cli " NORVIKA_VERSION "\n";
    return 0;
}
