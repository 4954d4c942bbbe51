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

// Ticked: null for the editor without check marks. Step: a key, a header click, or a
// button with the text typed into the box it opens, "-" in front to cancel that box.
// Result: -1 while the dialog is open.
struct DialogCase {
    const char *ticked;
    int row;
    const char *step;
    const char *titles;
    const char *selected;
    bool removable;
    int result = -1;
};
Q_DECLARE_METATYPE(DialogCase)

// Store: null for a record whose manager has no related manager. Filed: titles of the
// record's categories, unknown ones standing for UIDs of nothing. Answer: how the
// categories dialog is left after its check-mark header is clicked.
struct SelectorCase {
    const char *store;
    const char *filed;
    const char *answer;
    const char *texts;
    int current;
    const char *applied;
};
Q_DECLARE_METATYPE(SelectorCase)

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
QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

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

void TestCategoiesDialog::dialog_data()
{
    QTest::addColumn<DialogCase>("c");
    QTest::newRow("editor") << DialogCase { nullptr, 1, "", "A,B,C", "", true };
    QTest::newRow("first not removable") << DialogCase { "", 0, "", "A,B,C", "", false };
    QTest::newRow("header, some off") << DialogCase { "B", 1, "header", "A,B,C", "A,B,C", true };
    QTest::newRow("header, all on") << DialogCase { "A,B,C", 1, "header", "A,B,C", "", true };
    QTest::newRow("space ticks") << DialogCase { "C", 1, "space", "A,B,C", "B,C", true };
    QTest::newRow("space unticks") << DialogCase { "B", 1, "space", "A,B,C", "", true };
    QTest::newRow("return accepts") << DialogCase { "B", 1, "return", "A,B,C", "B", true, 1 };
    QTest::newRow("escape rejects") << DialogCase { "B", 1, "escape", "A,B,C", "B", true, 0 };
    QTest::newRow("new") << DialogCase { "", 1, "btnNew:D", "A,B,C,D", "D", true };
    QTest::newRow("new, empty") << DialogCase { "", 1, "btnNew:", "A,B,C", "", true };
    QTest::newRow("new, cancel") << DialogCase { "", 1, "-btnNew:D", "A,B,C", "", true };
    QTest::newRow("rename first") << DialogCase { "A", 0, "btnRename:Z", "Z,B,C", "Z", false };
    QTest::newRow("rename, empty") << DialogCase { "", 1, "btnRename:", "A,B,C", "", true };
    QTest::newRow("rename, cancel") << DialogCase { "", 1, "-btnRename:Z", "A,B,C", "", true };
    QTest::newRow("remove") << DialogCase { "B,C", 1, "btnRemove:", "A,C", "C", true };
    QTest::newRow("remove, cancel") << DialogCase { "", 1, "-btnRemove:", "A,B,C", "", true };
}

void TestCategoiesDialog::dialog()
{
    QFETCH(DialogCase, c);
    Notes store(QStringLiteral("A,B,C"));
    static_cast<CategoryRecord *>(store.categories.find(QStringLiteral("A")))->setSelected(true);
    std::unique_ptr<CategoiesDialog> dialog(!c.ticked
            ? new CategoiesDialog(&store.categories)
            : new CategoiesDialog(&store.categories, store.uids(QLatin1String(c.ticked))));
    QCOMPARE(dialog->list()->fieldColumns().first(), c.ticked ? 0 : 2);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    dialog->list()->showRecord(store.categories.view().at(c.row));
    QHeaderView *header = dialog->list()->header();
    const QString step = text(c.step);
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
    QCOMPARE(titlesOf(store.categories.view()), text(c.titles));
    QCOMPARE(store.titles(dialog->selectedCategories()), text(c.selected));
    QCOMPARE(
        dialog->findChild<QToolButton *>(QStringLiteral("btnRemove"))->isEnabled(), c.removable);
    QCOMPARE(dialog->isVisible() ? -1 : dialog->result(), c.result);
    CategoryManager saved; // every edit is on disk at once
    QVERIFY(saved.load());
    QCOMPARE(titlesOf(saved.view()), text(c.titles));
}

void TestCategoiesDialog::selector_data()
{
    QTest::addColumn<SelectorCase>("c");
    const char *const all = "A,B,C";
    QTest::newRow("none: the first") << SelectorCase { all, "", "", all, 0, "A" };
    QTest::newRow("one") << SelectorCase { all, "B", "", all, 1, "B" };
    QTest::newRow("all unknown: the first") << SelectorCase { all, "x,y", "", all, 0, "A" };
    QTest::newRow("unknown dropped, one left") << SelectorCase { all, "x,C", "", all, 2, "C" };
    QTest::newRow("two") << SelectorCase { all, "C,A", "", "C [...],A [...],A,B,C", 0, "C,A" };
    QTest::newRow("three, unknown")
        << SelectorCase { all, "B,x,A,C", "", "B [...],A [...],C [...],A,B,C", 0, "B,A,C" };
    QTest::newRow("empty store") << SelectorCase { "", "x", "", "", -1, "" };
    QTest::newRow("no related manager") << SelectorCase { nullptr, "A", "", "", -1, "" };
    QTest::newRow("tick all, ok") << SelectorCase { all, "B", "ok", "A [...],B [...],C [...],A,B,C",
        0, all };
    QTest::newRow("tick all, cancel") << SelectorCase { all, "B", "cancel", all, 1, "B" };
    QTest::newRow("untick all, ok") << SelectorCase { all, all, "ok", all, 0, "A" };
}

void TestCategoiesDialog::selector()
{
    QFETCH(SelectorCase, c);
    Notes notes(text(c.store), c.store != nullptr);
    notes.note->setCategories(notes.uids(text(c.filed)));
    CategoriesSelector selector;
    selector.setRecord(notes.note);
    if (*c.answer) {
        const bool ok = text(c.answer) == QLatin1String("ok");
        whenShown<CategoiesDialog>([ok](CategoiesDialog *dialog) {
            dialog->list()->sectionClicked(0);
            dialog->findChild<QPushButton *>(ok ? "btnOk" : "btnCancel")->click();
        });
        QTest::mouseClick(selector.findChild<QToolButton *>(), Qt::LeftButton);
    }
    QStringList shown;
    for (int i = 0; i < selector.comboBox()->count(); ++i)
        shown.append(selector.comboBox()->itemText(i));
    QCOMPARE(shown.join(QLatin1Char(',')), text(c.texts));
    QCOMPARE(selector.comboBox()->currentIndex(), c.current);
    QCOMPARE(selector.findChild<QToolButton *>()->isEnabled(), selector.manager() != nullptr);
    selector.apply(notes.note);
    QCOMPARE(notes.titles(notes.note->categories()), text(c.applied));
}

QTEST_MAIN(TestCategoiesDialog)
#include "testcategoiesdialog.moc"
