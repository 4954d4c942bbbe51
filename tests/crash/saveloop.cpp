// The child of scripts/crashtest.sh: holds two versions of one 10,000-record card and saves
// them over the same file in turn, for the given number of saves (0: until it is killed).
// After the first two saves it copies the file to CARD.first and CARD.second: the two
// contents, byte for byte, that a save cut off at any moment must leave one of.
// Usage: norvika-saveloop CARD SAVES
#include "card/datamanager.h"
#include "cli/samplecard.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace
{
constexpr int records = 10000;

std::unique_ptr<DataManager> version(const QString &path, std::uint64_t seed)
{
    auto card = std::make_unique<DataManager>(path);
    SampleCard(seed).fill(*card, records);
    return card;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s CARD SAVES\n", argv[0]);
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    const long saves = std::strtol(argv[2], nullptr, 10);
    const std::unique_ptr<DataManager> versions[] = { version(path, 1), version(path, 2) };
    for (long i = 0; saves == 0 || i < saves; ++i) {
        DataManager &card = *versions[i % 2];
        if (!card.forceSave()) {
            std::fprintf(stderr, "%s\n", qPrintable(card.errorString()));
            return 1;
        }
        if (i < 2)
            QFile::copy(path, path + QLatin1String(i == 0 ? ".first" : ".second"));
    }
    return 0;
}
