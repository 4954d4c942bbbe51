#include "lib/qt/mlcombobox.h"
#include "reminders/categoiesdialog.h"
#include "reminders/categoriesselector.h"
#include "reminders/categorylistview.h"
#include "reminders/categorymanager.h"
#include "reminders/categoryrecord.h"
#include "support/testhome.h"
#include "support/whenshown.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

// The categories dialog and the selector as a user drives them, over a note type of the
// test's own whose manager has the categories as its related manager.
class TestCategoiesDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qApp->setObjectName(QStringLiteral("norvika")); }
    void dialog_data();
    void dialog();
    void selector_data();
    void selector();
};

namespace
{
QString titlesOf(const QList<PIMRecord *> &records)
{
    QStringList list;
    for (const PIMRecord *record : records)
        list.append(record->title());
    return list.join(QLatin1Char(','));
}

struct Notes {
    explicit Notes(const QString &titles, bool related = true)
        : notes(QStringLiteral("norvika"), QStringLiteral("notes"), false, false,
            related ? &categories : nullptr)
        , note(new PIMRecord(&notes))
    {
        for (const QString &title : titles.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            auto *record = new CategoryRecord(&categories);
            record->setTitle(title);
            categories.add(record);
        }
        categories.save();
        notes.add(note);
    }
    // A title the store does not know stands for a UID of no category.
    QStringList uids(const QString &titles) const
    {
        QStringList list;
        for (const QString &title : titles.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            const CategoryRecord *record = categories.find(title);
            list.append(record ? record->uidString() : title);
        }
        return list;
    }
    QString titles(const QStringList &uids) const
    {
        QList<PIMRecord *> found;
        for (const QString &uid : uids)
            found.append(categories.findByUid(uid));
        return titlesOf(found);
    }

    TestHome home;
    CategoryManager categories;
    PIMManager notes;
    PIMRecord *note;
};

// Answers the string or message box that a step opens: "Ok" or "Cancel" after text.
void answerBox(const QString &text, bool ok)
{
    const QString name = ok ? QStringLiteral("btnOk|button1") : QStringLiteral("btnCancel|button2");
    whenShown<QDialog>([=](QDialog *box) {
        if (auto *edit = box->findChild<QLineEdit *>())
            edit->setText(text);
        for (QPushButton *button : box->findChildren<QPushButton *>())
            if (name.split(QLatin1Char('|')).contains(button->objectName()))
                button->click();
    });
}
} // namespace

// Ticked: null for the editor without check marks. Step: a key, a header click, or a
// button with the text typed into the box it opens, "-" in front to cancel that box.
// Result: -1 while the dialog is open.
void dialogRow(const char *tag, const QString &ticked, int row, const char *step,
    const char *titles, const char *selected, bool removable, int result = -1)
{
    QTest::newRow(tag) << ticked << row << QString::fromLatin1(step) << QString::fromLatin1(titles)
                       << QString::fromLatin1(selected) << removable << result;
}

void TestCategoiesDialog::dialog_data()
{
    QTest::addColumn<QString>("ticked");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("titles");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<bool>("removable");
    QTest::addColumn<int>("result");

    dialogRow("editor", QString(), 1, "", "A,B,C", "", true);
    dialogRow("first not removable", "", 0, "", "A,B,C", "", false);
    dialogRow("header, some off", "B", 1, "header", "A,B,C", "A,B,C", true);
    dialogRow("header, all on", "A,B,C", 1, "header", "A,B,C", "", true);
    dialogRow("space ticks", "C", 1, "space", "A,B,C", "B,C", true);
    dialogRow("space unticks", "B", 1, "space", "A,B,C", "", true);
    dialogRow("return accepts", "B", 1, "return", "A,B,C", "B", true, QDialog::Accepted);
    dialogRow("escape rejects", "B", 1, "escape", "A,B,C", "B", true, QDialog::Rejected);
    dialogRow("new", "", 1, "btnNew:D", "A,B,C,D", "D", true);
    dialogRow("new, empty", "", 1, "btnNew:", "A,B,C", "", true);
    dialogRow("new, cancel", "", 1, "-btnNew:D", "A,B,C", "", true);
    dialogRow("rename first", "A", 0, "btnRename:Z", "Z,B,C", "Z", false);
    dialogRow("rename, empty", "", 1, "btnRename:", "A,B,C", "", true);
    dialogRow("rename, cancel", "", 1, "-btnRename:Z", "A,B,C", "", true);
    dialogRow("remove", "B,C", 1, "btnRemove:", "A,C", "C", true);
    dialogRow("remove, cancel", "", 1, "-btnRemove:", "A,B,C", "", true);
}

void TestCategoiesDialog::dialog()
{
    QFETCH(QString, ticked);
    QFETCH(int, row);
    QFETCH(QString, step);
    QFETCH(QString, titles);
    QFETCH(QString, selected);
    QFETCH(bool, removable);
    QFETCH(int, result);
    Notes store(QStringLiteral("A,B,C"));
    static_cast<CategoryRecord *>(store.categories.find(QStringLiteral("A")))->setSelected(true);
    std::unique_ptr<CategoiesDialog> dialog(ticked.isNull()
            ? new CategoiesDialog(&store.categories)
            : new CategoiesDialog(&store.categories, store.uids(ticked)));
    QCOMPARE(dialog->windowTitle(),
        QString::fromLatin1(ticked.isNull() ? "Categories Editor" : "Categories"));
    QCOMPARE(dialog->list()->fieldColumns().first(), ticked.isNull() ? 2 : 0);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    dialog->list()->showRecord(store.categories.view().at(row));
    QHeaderView *header = dialog->list()->header();
    const QStringList parts = step.split(QLatin1Char(':'));
    if (step == QLatin1String("header"))
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(2, header->height() / 2));
    else if (step == QLatin1String("space") || step == QLatin1String("return"))
        QTest::keyClick(
            dialog->list(), step == QLatin1String("space") ? Qt::Key_Space : Qt::Key_Return);
    else if (step == QLatin1String("escape"))
        QTest::keyClick(dialog.get(), Qt::Key_Escape);
    else if (parts.size() == 2) {
        answerBox(parts.at(1), !step.startsWith(QLatin1Char('-')));
        QString name = parts.at(0);
        dialog->findChild<QToolButton *>(name.remove(QLatin1Char('-')))->click();
    }
    QCOMPARE(titlesOf(store.categories.view()), titles);
    QCOMPARE(store.titles(dialog->selectedCategories()), selected);
    QCOMPARE(dialog->findChild<QToolButton *>(QStringLiteral("btnRemove"))->isEnabled(), removable);
    QCOMPARE(dialog->isVisible() ? -1 : dialog->result(), result);
    CategoryManager saved; // every edit is on disk at once
    QVERIFY(saved.load());
    QCOMPARE(titlesOf(saved.view()), titles);
}

// Filed: titles of the record's categories, unknown ones standing for UIDs of nothing.
// Answer: how the categories dialog is left after its check-mark header is clicked.
void selectorRow(const char *tag, const char *store, const char *filed, const char *answer,
    const char *texts, int current, const char *applied)
{
    QTest::newRow(tag) << QString::fromLatin1(store) << QString::fromLatin1(filed)
                       << QString::fromLatin1(answer) << QString::fromLatin1(texts) << current
                       << QString::fromLatin1(applied);
}

void TestCategoiesDialog::selector_data()
{
    QTest::addColumn<QString>("store");
    QTest::addColumn<QString>("filed");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("texts");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("applied");

    selectorRow("none: the first", "A,B,C", "", "", "A,B,C", 0, "A");
    selectorRow("one", "A,B,C", "B", "", "A,B,C", 1, "B");
    selectorRow("all unknown: the first", "A,B,C", "x,y", "", "A,B,C", 0, "A");
    selectorRow("unknown dropped, one left", "A,B,C", "x,C", "", "A,B,C", 2, "C");
    selectorRow("two", "A,B,C", "C,A", "", "C [...],A [...],A,B,C", 0, "C,A");
    selectorRow(
        "three, unknown", "A,B,C", "B,x,A,C", "", "B [...],A [...],C [...],A,B,C", 0, "B,A,C");
    selectorRow("empty store", "", "x", "", "", -1, "");
    selectorRow("no related manager", "A", "A", "", "", -1, "");
    selectorRow("tick all, ok", "A,B,C", "B", "ok", "A [...],B [...],C [...],A,B,C", 0, "A,B,C");
    selectorRow("tick all, cancel", "A,B,C", "B", "cancel", "A,B,C", 1, "B");
    selectorRow("untick all, ok", "A,B,C", "A,B,C", "ok", "A,B,C", 0, "A");
}

void TestCategoiesDialog::selector()
{
    QFETCH(QString, store);
    QFETCH(QString, filed);
    QFETCH(QString, answer);
    QFETCH(QString, texts);
    QFETCH(int, current);
    QFETCH(QString, applied);
    Notes notes(store, QByteArray(QTest::currentDataTag()) != "no related manager");
    notes.note->setCategories(notes.uids(filed));
    CategoriesSelector selector;
    selector.setRecord(notes.note);
    if (!answer.isEmpty()) {
        whenShown<CategoiesDialog>([answer](CategoiesDialog *dialog) {
            dialog->list()->sectionClicked(0);
            const bool ok = answer == QLatin1String("ok");
            dialog->findChild<QPushButton *>(ok ? "btnOk" : "btnCancel")->click();
        });
        QTest::mouseClick(selector.findChild<QToolButton *>(), Qt::LeftButton);
    }
    QStringList shown;
    for (int i = 0; i < selector.comboBox()->count(); ++i)
        shown.append(selector.comboBox()->itemText(i));
    QCOMPARE(shown.join(QLatin1Char(',')), texts);
    QCOMPARE(selector.comboBox()->currentIndex(), current);
    QCOMPARE(selector.findChild<QToolButton *>()->isEnabled(), selector.manager() != nullptr);
    selector.apply(notes.note);
    QCOMPARE(notes.titles(notes.note->categories()), applied);
}

QTEST_MAIN(TestCategoiesDialog)
#include "testcategoiesdialog.moc"
