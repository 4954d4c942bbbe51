#include "exchange/exportdialog.h"

#include "edit/dateformatselector.h"
#include "platform/config.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

// The export options: every way out of the dialog, what the options give the exporter, and
// the stored keys with their deliberate asymmetries.
class TestExportDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void waysOut_data();
    void waysOut();
    void options_data();
    void options();
    void formatsReadAndWrittenApart();
};

namespace
{
// The settings file as the dialog left it.
std::unique_ptr<Config> exportOptions()
{
    auto config = std::make_unique<Config>(qApp->objectName());
    config->setGroup(QStringLiteral("ExportOptions"));
    return config;
}
} // namespace

void TestExportDialog::waysOut_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");

    QTest::newRow("Ok button") << "ok" << int(QDialog::Accepted);
    QTest::newRow("Cancel button") << "cancel" << int(QDialog::Rejected);
    QTest::newRow("Return") << "return" << int(QDialog::Accepted);
    QTest::newRow("Escape") << "escape" << int(QDialog::Rejected);
}

void TestExportDialog::waysOut()
{
    QFETCH(QString, way);
    QFETCH(int, result);

    TestHome home;
    int got = -1;
    {
        ExportDialog dialog;
        whenShown<ExportDialog>([way](ExportDialog *shown) {
            shown->findChild<QComboBox *>("delimiter")->setCurrentIndex(3);
            auto *buttons = shown->findChild<QDialogButtonBox *>("okCancelWidget");
            if (way == "ok")
                QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
            else if (way == "cancel")
                QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
            else
                QTest::keyClick(shown, way == "return" ? Qt::Key_Return : Qt::Key_Escape);
        });
        got = dialog.exec();
    }
    QCOMPARE(got, result);
    // The options are kept whichever way the dialog went.
    QCOMPARE(exportOptions()->readNumEntry("delimiter", -1), 3);
}

void TestExportDialog::options_data()
{
    QTest::addColumn<int>("delimiter");
    QTest::addColumn<bool>("other");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("multiline"); // text shown in ml; empty keeps the entry
    QTest::addColumn<int>("mlIndex");
    QTest::addColumn<QString>("expectedDelimiter");
    QTest::addColumn<QString>("expectedSeparator");
    QTest::addColumn<QString>("storedMultiline2");

    const struct {
        const char *name;
        int delimiter;
        bool other;
        const char *typed, *multiline;
        int mlIndex;
        const char *expectedDelimiter, *expectedSeparator, *storedMultiline2;
    } rows[] = {
        { "comma, new line", 3, false, "x", "", 0, ",", "\n", "" },
        { "pipe, space", 7, false, "", "", 1, "|", " ", "" },
        { "other of two characters", 0, true, "::", "", 0, "::", "\n", "" },
        { "other left empty is a blank", 0, true, "", "", 0, " ", "\n", "" },
        { "typed separator", 0, false, "", "||", 0, "\t", "||", "||" },
    };
    for (const auto &r : rows)
        QTest::newRow(r.name) << r.delimiter << r.other << r.typed << r.multiline << r.mlIndex
                              << r.expectedDelimiter << r.expectedSeparator << r.storedMultiline2;
}

void TestExportDialog::options()
{
    QFETCH(int, delimiter);
    QFETCH(bool, other);
    QFETCH(QString, typed);
    QFETCH(QString, multiline);
    QFETCH(int, mlIndex);
    QFETCH(QString, expectedDelimiter);
    QFETCH(QString, expectedSeparator);
    QFETCH(QString, storedMultiline2);

    TestHome home;
    {
        ExportDialog dialog;
        dialog.show();
        dialog.findChild<QComboBox *>("delimiter")->setCurrentIndex(delimiter);
        auto *otherBox = dialog.findChild<QCheckBox *>("other");
        if (otherBox->isChecked() != other)
            QTest::mouseClick(otherBox, Qt::LeftButton, {}, QPoint(5, otherBox->height() / 2));
        QCOMPARE(dialog.findChild<QComboBox *>("delimiter")->isEnabled(), !other);
        QCOMPARE(dialog.findChild<QLineEdit *>("otherDelimiter")->isEnabled(), other);
        dialog.findChild<QLineEdit *>("otherDelimiter")->setText(typed);
        auto *ml = dialog.findChild<QComboBox *>("ml");
        ml->setCurrentIndex(mlIndex);
        if (!multiline.isEmpty())
            ml->setEditText(multiline);
        const CsvExporter::Options options = dialog.options();
        QCOMPARE(options.format.delimiter, expectedDelimiter);
        QCOMPARE(options.multilineSeparator, expectedSeparator);
        QCOMPARE(options.format.qualifier, QStringLiteral("\""));
    }
    const auto config = exportOptions();
    QCOMPARE(config->readEntry("multiline2"), storedMultiline2);
    QCOMPARE(config->readNumEntry("multiline1", -1), mlIndex);
    QCOMPARE(config->readNumEntry("other", -1), other ? 1 : 0);
}

void TestExportDialog::formatsReadAndWrittenApart()
{
    TestHome home;
    {
        const auto config = exportOptions();
        config->writeEntry("date", QStringLiteral("YYYY-MM-DD"));
        config->writeEntry("dateFormat", QStringLiteral("ignored"));
        config->writeEntry("multiline2", QStringLiteral("space"));
        config->writeEntry("textqualifier", QStringLiteral("'"));
    }
    {
        ExportDialog dialog;
        QCOMPARE(dialog.findChild<DateFormatSelector *>("dateFormat")->format(),
            QStringLiteral("YYYY-MM-DD"));
        QCOMPARE(dialog.findChild<QComboBox *>("ml")->currentIndex(), 1);
        QCOMPARE(dialog.options().format.qualifier, QStringLiteral("'"));
    }
    const auto config = exportOptions();
    QCOMPARE(config->readEntry("dateFormat"), QStringLiteral("YYYY-MM-DD"));
    QCOMPARE(config->readEntry("date"), QStringLiteral("YYYY-MM-DD"));
    QVERIFY(!config->hasKey("multiline2"));
}

QTEST_MAIN(TestExportDialog)
#include "testexportdialog.moc"
