#ifndef FUZZINPUT_H
#define FUZZINPUT_H

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

// What every harness shares: a private home for the files a reader opens, made once per
// process, and the fuzzer's bytes as a file in it or as a byte array.
class FuzzInput
{
public:
    static QByteArray bytes(const uint8_t *data, size_t size);
    // Writes the bytes to the given file (a path relative to the home, or an absolute one)
    // and returns its absolute path.
    static QString write(const QString &relative, const uint8_t *data, size_t size);
    static QString home();
};

// Entry points that libFuzzer calls and the replay driver calls in the same way.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

#endif
