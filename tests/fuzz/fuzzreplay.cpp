// Replays a harness without libFuzzer, for the test suite: every file of a seed corpus, then
// a number of inputs mutated from them with a fixed seed, so a run is the same every time.
// A reader that crashes fails the run; an empty corpus fails it too, since then nothing
// was tried.
#include "fuzzinput.h"

#include <QDir>
#include <QFile>
#include <QList>

#include <cstdio>
#include <random>

namespace
{
QList<QByteArray> readCorpus(const QString &folder)
{
    QList<QByteArray> corpus;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name)) {
        QFile file(dir.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            corpus.append(file.readAll());
    }
    return corpus;
}

// One of the edits libFuzzer makes most: a byte changed, a bit flipped, bytes cut out or
// repeated, an edge value written over, the input cut short.
void mutate(QByteArray &bytes, std::mt19937 &random)
{
    static const QByteArray edges[] = { QByteArray("\xff\xff\xff\xff", 4),
        QByteArray("\x7f\xff\xff\xff", 4), QByteArray(4, '\0'), QByteArray("\x80", 1),
        QByteArray("99999999999"), QByteArray("-1"), QByteArray("\"") };
    const auto at = [&] { return qsizetype(random() % (bytes.size() + 1)); };
    switch (random() % 6) {
    case 0:
        if (!bytes.isEmpty())
            bytes[at() % bytes.size()] = char(random());
        break;
    case 1:
        if (!bytes.isEmpty())
            bytes[at() % bytes.size()] ^= char(1 << (random() % 8));
        break;
    case 2: {
        const qsizetype from = at();
        bytes.remove(from, qsizetype(random() % 64));
        break;
    }
    case 3: {
        const qsizetype from = at();
        bytes.insert(at(), bytes.mid(from, qsizetype(random() % 64)));
        break;
    }
    case 4: {
        const QByteArray &edge = edges[random() % std::size(edges)];
        const qsizetype from = at();
        bytes.replace(from, qMin(edge.size(), bytes.size() - from), edge);
        break;
    }
    default:
        bytes.truncate(at());
    }
}

int run(const QByteArray &bytes)
{
    return LLVMFuzzerTestOneInput(
        reinterpret_cast<const uint8_t *>(bytes.constData()), size_t(bytes.size()));
}
} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER [MUTATIONS]\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const long mutations = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 2000;
    LLVMFuzzerInitialize(&argc, &argv);
    const QList<QByteArray> corpus = readCorpus(folder);
    if (corpus.isEmpty()) {
        std::fprintf(stderr, "no seeds in %s\n", argv[1]);
        return 1;
    }
    for (const QByteArray &seed : corpus)
        run(seed);
    std::mt19937 random(20261125);
    for (long i = 0; i < mutations; ++i) {
        QByteArray bytes = corpus.at(qsizetype(random() % corpus.size()));
        for (int edits = 1 + int(random() % 4); edits > 0; --edits)
            mutate(bytes, random);
        run(bytes);
    }
    std::printf("%lld seeds and %ld mutations read\n", qint64(corpus.size()), mutations);
    return 0;
}
