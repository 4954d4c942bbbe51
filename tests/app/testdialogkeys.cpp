#include "app/datetimedialog.h"
#include "app/dbdialog.h"
#include "app/passworddialog.h"
#include "app/resourceicons.h"
#include "calc/datetimeformateditor.h"
#include "card/datamanager.h"
#include "edit/countenterdialog.h"
#include "edit/customlistdialog.h"
#include "edit/enterbooldialog.h"
#include "exchange/imagesetup.h"
#include "lib/qt/aboutdialog.h"
#include "lib/qt/enterstringdialog.h"
#include "lib/qt/iconviewdialog.h"
#include "lib/qt/mlcalculatordialog.h"
#include "store/dbmanager.h"
#include "support/testhome.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QPixmap>
#include <QPushButton>
#include <QtTest>

#include <memory>

// Every dialog of the program closes by its buttons and keys as a desktop user expects:
// Ok (or the dialog's taking button) and Return accept, Cancel, Escape and the close button
// reject.
class TestDialogKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void waysOut_data();
    void waysOut();
};

namespace
{
// One listed card for the chooser, which starts on it.
struct Fixture {
    Fixture()
        : cards(false)
    {
        cards.load();
        const QString path = home.documents() + QStringLiteral("/Books.card");
        DataManager card(path);
        card.forceSave();
        cards.addCard(path);
    }
    TestHome home;
    DBManager cards;
};

std::unique_ptr<QDialog> make(const QString &name, Fixture &fixture)
{
    if (name == "DBDialog")
        return std::make_unique<DBDialog>(&fixture.cards, QString());
    if (name == "EnterStringDialog")
        return std::make_unique<EnterStringDialog>("Rename", "text");
    if (name == "PasswordDialog")
        return std::make_unique<PasswordDialog>(false);
    if (name == "MLCalculatorDialog")
        return std::make_unique<MLCalculatorDialog>("12");
    if (name == "IconViewDialog")
        return std::make_unique<IconViewDialog>("Icons");
    if (name == "CustomListDialog")
        return std::make_unique<CustomListDialog>(
            QStringList { "red", "green" }, "Colour|Colour", "document");
    if (name == "EnterBoolDialog")
        return std::make_unique<EnterBoolDialog>("Paid");
    if (name == "DateTimeFormatEditor")
        return std::make_unique<DateTimeFormatEditor>("dateFormat", "dd/MM/yyyy");
    if (name == "DateTimeDialog")
        return std::make_unique<DateTimeDialog>();
    if (name == "ImageSetup")
        return std::make_unique<ImageSetup>(fixture.home.file("none.png"));
    if (name == "CountEnterDialog")
        return std::make_unique<CountEnterDialog>("Count");
    return std::make_unique<AboutDialog>(QPixmap(), "About", "text");
}

// The button of that name, or the one of that role in the dialog's button box.
QAbstractButton *button(QDialog *dialog, const QString &name)
{
    if (auto *named = dialog->findChild<QAbstractButton *>(name))
        return named;
    auto *box = dialog->findChild<QDialogButtonBox *>();
    if (!box)
        return nullptr;
    return static_cast<QAbstractButton *>(
        box->button(name == "btnOk" ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel));
}
} // namespace

void TestDialogKeys::initTestCase()
{
    qApp->setObjectName(QStringLiteral("norvika"));
    qunsetenv("NORVIKA_SHARE");
    ResourceIcons::reset();
}

void TestDialogKeys::waysOut_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("way"); // a button's name, "Return", "Escape" or "close"
    QTest::addColumn<int>("result");

    const QStringList okCancel { "EnterStringDialog", "PasswordDialog", "MLCalculatorDialog",
        "IconViewDialog", "CustomListDialog", "EnterBoolDialog", "DateTimeFormatEditor",
        "DateTimeDialog", "ImageSetup" };
    for (const QString &dialog : okCancel) {
        const QByteArray row = dialog.toLatin1();
        QTest::newRow(row + ": Ok") << dialog << "btnOk" << 1;
        QTest::newRow(row + ": Cancel") << dialog << "btnCancel" << 0;
        QTest::newRow(row + ": Return") << dialog << "Return" << 1;
        QTest::newRow(row + ": Escape") << dialog << "Escape" << 0;
        QTest::newRow(row + ": close button") << dialog << "close" << 0;
    }
    // The chooser takes its card with "Open" and leaves by "Close" (named btnOk).
    const auto row = [](const char *dialog, const char *label, const char *way, int result) {
        QTest::addRow("%s: %s", dialog, label)
            << QString::fromLatin1(dialog) << QString::fromLatin1(way) << result;
    };
    row("DBDialog", "Open", "btnSelect", 1);
    row("DBDialog", "Close", "btnOk", 0);
    row("DBDialog", "Return", "Return", 1);
    row("DBDialog", "Escape", "Escape", 0);
    row("CountEnterDialog", "Ok", "btnOk", 1);
    row("CountEnterDialog", "a number", "btn3", 1);
    row("CountEnterDialog", "Return", "Return", 1);
    row("CountEnterDialog", "Escape", "Escape", 0);
    row("AboutDialog", "Return", "Return", 1);
    row("AboutDialog", "Escape", "Escape", 0);
}

void TestDialogKeys::waysOut()
{
    QFETCH(QString, dialog);
    QFETCH(QString, way);
    Fixture fixture;
    std::unique_ptr<QDialog> shown = make(dialog, fixture);
    shown->show();
    QVERIFY(QTest::qWaitForWindowExposed(shown.get()));
    // Keys go where the dialog keeps its focus, active window or not (no window manager).
    QWidget *focus = shown->focusWidget();
    if (!focus)
        focus = shown.get();
    if (way == "Return" || way == "Escape") {
        QTest::keyClick(focus, way == "Return" ? Qt::Key_Return : Qt::Key_Escape);
    } else if (way == "close") {
        shown->close();
    } else {
        QAbstractButton *pressed = button(shown.get(), way);
        QVERIFY2(pressed && pressed->isVisible() && pressed->isEnabled(), qPrintable(way));
        QTest::mouseClick(pressed, Qt::LeftButton);
    }
    QVERIFY(!shown->isVisible());
    QTEST(shown->result(), "result");
}

QTEST_MAIN(TestDialogKeys)
#include "testdialogkeys.moc"
