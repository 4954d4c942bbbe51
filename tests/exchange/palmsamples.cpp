#include "palmsamples.h"

#include "pdbwriter.h"

namespace
{
using JField = PdbWriter::JField;

QByteArray goodMobileDB()
{
    PdbWriter pdb("Garden", "Mdb1", "Mdb1");
    // Label numbers run backwards: the order of the entries decides, not their numbers.
    pdb.addRecord(PdbWriter::mobileRecord({ { 7, "Name" }, { 6, "Count" }, { 5, "Price" },
                      { 4, "Born" }, { 3, "At" }, { 2, "Ok" }, { 1, "Kind" }, { 0, "Notes" } }),
        1);
    pdb.addRecord(PdbWriter::mobileRecord({ "", "I", "I", "D", "d", "B", "Lred;green", "N" }), 5);
    pdb.addRecord(PdbWriter::mobileRecord({ { 2, "40" }, { 0, "100" } }), 6);
    pdb.addRecord(
        PdbWriter::mobileRecord({ "Ann", "", "1.5", "0", "3599", "Yes", "green", "line1\nline2" }),
        2);
    pdb.addRecord(PdbWriter::mobileRecord({ "Bob", "", "2", "1", "60", "yes", "red", "x" }), 3);
    pdb.addRecord(QByteArray::fromHex("FFFFFF02FF0000") + QByteArray("\0Lost", 5), 2);
    pdb.addRecord(PdbWriter::mobileRecord({ "Cy" }), 2);
    pdb.addRecord(PdbWriter::mobileRecord({ "Di", "4", "", "", "", "", "", "" }), 2);
    pdb.addRecord("ignored", 4);
    return pdb.bytes();
}

QList<JField> jfileFields()
{
    const qint32 thirdTimesSecond = (3 << 24) | (2 << 16) | 3;
    const qint32 constTimesSecond = (2 << 16) | 3;
    const qint32 previousFourthPlus = qint32((1u << 31) | (4u << 24) | 1u);
    return { { "Item", 1 }, { "Done", 65 }, { "Qty", 8 }, { "Price", 16 },
        { "Total", 70, thirdTimesSecond }, { "Twice", 71, constTimesSecond }, { "Kind", 64 },
        { "Tags", 81, 0 }, { "No", 67, 0, 10 }, { "Day", 4, 1 }, { "When", 4, 0 }, { "At", 32 },
        { "Ok", 2 }, { "Odd", 99 }, { "Next", 72, previousFourthPlus } };
}

QByteArray goodJFile()
{
    PdbWriter pdb("Tools", "JfD5", "JFi5");
    pdb.setAppInfo(PdbWriter::jfileInfo(jfileFields(),
        { "stray", "deflta", "none", "popupg", "a", "b", "deflth", "y x", "calv1f", "2", "soortc",
            "dropped", "calv2o", "1" }));
    pdb.addRecord(PdbWriter::jfileRecord({ "Saw", "1", "3", "2.5", "7.5", "6", "a", "p q  r", "12",
        "3 Feb", "12/25/2003", "9:30", "1", "z", "0" }));
    pdb.addRecord(PdbWriter::jfileRecord(
        { "Axe", "0", "x", "", "", "", "b", "", "13", "31 Foo", "", "7", "yes", "", "" }));
    return pdb.bytes();
}

QByteArray withBytes(QByteArray bytes, int at, const QByteArray &patch)
{
    return bytes.replace(at, int(patch.size()), patch);
}

void addBroken(QMap<QString, QByteArray> *files)
{
    const QByteArray mobile = goodMobileDB();
    const QByteArray jfile = goodJFile();
    (*files)[QStringLiteral("empty.pdb")] = QByteArray();
    (*files)[QStringLiteral("mobiledb-truncated-header.pdb")] = mobile.left(60);
    (*files)[QStringLiteral("mobiledb-truncated-list.pdb")] = mobile.left(100);
    (*files)[QStringLiteral("mobiledb-huge-count.pdb")] = withBytes(mobile, 76, "\xFF\xFF");
    (*files)[QStringLiteral("mobiledb-type-case.pdb")] = withBytes(mobile, 60, "mdb1");
    (*files)[QStringLiteral("mobiledb-overlap.pdb")]
        = withBytes(mobile, 78 + 8 * 3, mobile.mid(78 + 8, 4));
    (*files)[QStringLiteral("mobiledb-offset-in-list.pdb")]
        = withBytes(mobile, 78, QByteArray("\0\0\0\x50", 4));
    PdbWriter noLabels("Bare", "Mdb1", "Mdb1");
    noLabels.addRecord(PdbWriter::mobileRecord({ "x" }), 2);
    (*files)[QStringLiteral("mobiledb-no-labels.pdb")] = noLabels.bytes();
    PdbWriter badLabels("Bad", "Mdb1", "Mdb1");
    badLabels.addRecord(QByteArray::fromHex("FFFFFF01FF0001") + QByteArray("\0Name", 5), 1);
    (*files)[QStringLiteral("mobiledb-bad-fixed-bytes.pdb")] = badLabels.bytes();
    QByteArray garbage;
    for (int i = 0; i < 300; ++i)
        garbage += char((i * 131 + 7) % 251);
    (*files)[QStringLiteral("garbage.pdb")] = garbage;
    (*files)[QStringLiteral("jfile-other-creator.pdb")] = withBytes(jfile, 64, "JFi4");
    (*files)[QStringLiteral("jfile-block-past-end.pdb")] = jfile.left(78 + 8 * 2 + 2 + 1000);
    (*files)[QStringLiteral("jfile-negative-fields.pdb")]
        = withBytes(jfile, 78 + 8 * 2 + 2 + 1150, "\xFF\xFF");
    (*files)[QStringLiteral("jfile-51-fields.pdb")]
        = withBytes(jfile, 78 + 8 * 2 + 2 + 1150, QByteArray("\x00\x33", 2));
}
} // namespace

QMap<QString, QByteArray> palmSamples()
{
    QMap<QString, QByteArray> files;
    files[QStringLiteral("mobiledb-good.pdb")] = goodMobileDB();
    files[QStringLiteral("jfile-good.pdb")] = goodJFile();
    addBroken(&files);
    return files;
}
