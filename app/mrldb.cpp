#include "app/mrldb.h"

#include "app/dbdialog.h"
#include "app/dbflows.h"
#include "app/mrlapplication.h"
#include "app/mrldialog.h"
#include "app/passworddialog2.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/taskfinder.h"
#include "edit/countenterpopup.h"
#include "edit/customlistdialog.h"
#include "edit/dataeditor.h"
#include "edit/popupchoosers.h"
#include "exchange/exportdialog.h"
#include "exchange/imageview.h"
#include "exchange/importdialog.h"
#include "exchange/oldcardconverter.h"
#include "lib/qt/enterstringdialog.h"
#include "lib/qt/mlcalculatordialog.h"
#include "lib/qt/mlyesnodialog.h"
#include "lib/qt/mrlaction.h"
#include "platform/config.h"
#include "platform/qcopenvelope.h"
#include "reminders/reminder.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "views/listview.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

namespace
{
QString dialogText(const QString &text)
{
    return text + QStringLiteral(" ...");
}

struct ActionRow {
    const char *name;
    const char *icon;
    const char *text;
    bool opensDialog;
};

// The commands that work on cards and records. They stay disabled, with nothing
// connected, until the card list, the open card and their dialogs are in place.
const ActionRow cardActions[] = {
    { "db", "cards", QT_TRANSLATE_NOOP("MRLDB", "Manager"), true },
    { "newdb", "std/c07", QT_TRANSLATE_NOOP("MRLDB", "New Card"), true },
    { "new", "filenew", QT_TRANSLATE_NOOP("MRLDB", "New Record"), false },
    { "edit", "edit", QT_TRANSLATE_NOOP("MRLDB", "Edit Record"), false },
    { "clone", "editcopy", QT_TRANSLATE_NOOP("MRLDB", "Duplicate Record"), false },
    { "delete", "remove", QT_TRANSLATE_NOOP("MRLDB", "Remove Record"), false },
    { "export", "export", QT_TRANSLATE_NOOP("MRLDB", "Export"), true },
    { "import", "import", QT_TRANSLATE_NOOP("MRLDB", "Import"), true },
    { "clear", "remove", QT_TRANSLATE_NOOP("MRLDB", "Clear Card"), false },
    { "modify", "document", QT_TRANSLATE_NOOP("MRLDB", "Card's Details"), true },
    { "remove", "delete", QT_TRANSLATE_NOOP("MRLDB", "Delete Card"), false },
    { "fields", "view_detailed", QT_TRANSLATE_NOOP("MRLDB", "Fields Editor"), true },
    { "report", "background", nullptr, false },
    { "pclink", "pclink", QT_TRANSLATE_NOOP("MRLDB", "PC Link"), true },
    { "sdata", "pclink", QT_TRANSLATE_NOOP("MRLDB", "Send Data"), true },
    { "gdata", "pclink", QT_TRANSLATE_NOOP("MRLDB", "Get Data"), true },
    { "options", "package_utilities", QT_TRANSLATE_NOOP("MRLDB", "Options"), true },
};
} // namespace

MRLDB::MRLDB(QWidget *parent)
    : MRLMainWindow(parent)
{
    createCardList();
    createActions();
    connectCardActions();
    createToolBar();
    createPanes();
    connectRecordCommands();
    selectionCleared();
    // The size of a window that is not maximized: room for a list of several columns.
    resize(640, 480);
}

MRLDB::~MRLDB()
{
    writeOptions();
    // The list lets go of the card before its manager goes, and reports nothing more.
    recordList->disconnect(this);
    closeCard();
    delete cardList;
}

void MRLDB::createActions()
{
    for (const ActionRow &row : cardActions) {
        QString text;
        if (row.text) {
            text = tr(row.text);
            if (row.opensDialog)
                text = dialogText(text);
        }
        addAction(QString::fromLatin1(row.name), QString::fromLatin1(row.icon), nullptr, nullptr,
            false, text)
            ->setEnabled(false);
    }
    addAction(QStringLiteral("memo"), QStringLiteral("info"), this, SLOT(toggleMemo()), true);
}

void MRLDB::createToolBar()
{
    QToolBar *bar = addToolBar();
    for (const char *name : { "db", "new", "edit", "clone", "delete" })
        bar->addAction(action(QString::fromLatin1(name)));

    filterMenu = new QMenu(this);
    filterButton = addMenuButton(bar, QStringLiteral("viewmag"), tr("Filter"), filterMenu);
    viewMenu = new QMenu(this);
    viewButton = addMenuButton(bar, QStringLiteral("view_detailed"), tr("View"), viewMenu);
    sortMenu = new QMenu(this);
    sortButton = addMenuButton(bar, QStringLiteral("sort-name"), tr("Sort"), sortMenu);
    // Their menus are filled from the open card's filters, views and fields.
    filterButton->setEnabled(false);
    viewButton->setEnabled(false);
    sortButton->setEnabled(false);

    bar->addAction(action(QStringLiteral("report")));
    addStretch(bar, 0);
    addMenuButton(bar, QStringLiteral("mouse"), tr("Menu"), createMainMenu())
        ->setObjectName(QStringLiteral("mainMenuButton"));
}

QToolButton *MRLDB::addMenuButton(
    QToolBar *bar, const QString &icon, const QString &tip, QMenu *menu)
{
    auto *button = new QToolButton(bar);
    button->setIcon(loadIconSet(icon));
    button->setToolTip(tip);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    bar->addWidget(button);
    return button;
}

QMenu *MRLDB::createMainMenu()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mainMenu"));
    const char *const items[] = { "modify", "fields", nullptr, "export", "clear", "remove", nullptr,
        "zoomin", "zoomout", nullptr, "memo", "options", nullptr, "pclink", nullptr, "Brightloom" };
    for (const char *name : items) {
        if (name)
            menu->addAction(action(QString::fromLatin1(name)));
        else
            menu->addSeparator();
    }
    return menu;
}

void MRLDB::createPanes()
{
    auto *central = new QWidget(this);
    listPlace = new QWidget(central);
    listPlace->setObjectName(QStringLiteral("recordListPlace"));
    listPlace->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto *listLayout = new QVBoxLayout(listPlace);
    listLayout->setContentsMargins(0, 0, 0, 0);

    memoEdit = new QPlainTextEdit(central);
    memoEdit->setObjectName(QStringLiteral("memo"));
    memoEdit->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    memoEdit->setWordWrapMode(QTextOption::WordWrap);
    // Four lines of text; the document's own margin comes on top of the frame.
    const int margin = int(memoEdit->document()->documentMargin());
    memoEdit->setFixedHeight(
        4 * memoEdit->fontMetrics().lineSpacing() + 2 * memoEdit->frameWidth() + 2 * margin);
    memoEdit->hide();
    connect(memoEdit, &QPlainTextEdit::textChanged, this, &MRLDB::memoChanged);
    createRecordList();

    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(3, 3, 3, 3);
    layout->setSpacing(3);
    layout->addWidget(listPlace);
    layout->addWidget(memoEdit);
    setCentralWidget(central);
}

void MRLDB::zoomin()
{
    QCoreApplication::processEvents();
    applyZoom(snapZoom(listPlace->font().pointSize() + 1, false));
}

void MRLDB::zoomout()
{
    QCoreApplication::processEvents();
    applyZoom(snapZoom(listPlace->font().pointSize() - 1, true));
}

void MRLDB::applyZoom(int size)
{
    QFont font = listPlace->font();
    font.setPointSize(size);
    listPlace->setFont(font);
}

void MRLDB::toggleMemo()
{
    const bool show = memoEdit->isHidden();
    memoEdit->setVisible(show);
    action(QStringLiteral("memo"))->setChecked(show);
    // The pane shown anew takes the memo of the record already current.
    if (show && recordList->currentTask())
        selected(recordList->currentTask());
}

void MRLDB::setRecordActionsEnabled(bool enabled)
{
    for (const char *name : { "edit", "clone", "delete", "report" })
        action(QString::fromLatin1(name))->setEnabled(enabled);
}

void MRLDB::selected(PIMRecord *record)
{
    if (!record)
        return;
    setRecordActionsEnabled(true);
    if (!memoEdit->isHidden()) {
        const QString memo = static_cast<DataRecord *>(record)->memo();
        // A save from the pane itself comes back here: the text is already in place.
        if (memoEdit->toPlainText() != memo) {
            const QSignalBlocker blocker(memoEdit);
            memoEdit->setPlainText(memo);
        }
        memoEdit->setEnabled(true);
    }
}

void MRLDB::selectionCleared()
{
    setRecordActionsEnabled(false);
    const QSignalBlocker blocker(memoEdit);
    memoEdit->clear();
    memoEdit->setEnabled(false);
}

void MRLDB::editDialogIsFree(bool *free)
{
    if (free)
        *free = !editing;
}

void MRLDB::raiseMainWindow()
{
    showMaximized();
    raise();
    QPEApplication::setKeepRunning();
    activateWindow();
}

// A card left open at the last hide comes back without a question; otherwise, or when its
// file is gone, the chooser comes up.
void MRLDB::showEvent(QShowEvent *event)
{
    MRLMainWindow::showEvent(event);
    readOptions();
    const QString path = cardSetting();
    if (path.isEmpty() || !QFileInfo::exists(path))
        QTimer::singleShot(deferMilliseconds, this, &MRLDB::dbSelect);
    else
        openCard(path);
}

void MRLDB::hideEvent(QHideEvent *event)
{
    MRLMainWindow::hideEvent(event);
    if (manager)
        manager->save();
    writeOptions();
}

void MRLDB::readOptions()
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    const bool memo = config.readBoolEntry(QStringLiteral("memo"), false);
    memoEdit->setVisible(memo);
    action(QStringLiteral("memo"))->setChecked(memo);
    applyZoom(snapZoom(config.readNumEntry(QStringLiteral("zoom"), font().pointSize()), true));
}

void MRLDB::writeOptions()
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    config.writeEntry(QStringLiteral("memo"), !memoEdit->isHidden());
    config.writeEntry(QStringLiteral("zoom"), listPlace->font().pointSize());
}

// ---- The card road ------------------------------------------------------------------------

bool MRLDB::event(QEvent *event)
{
    if (event->type() == QEvent::Type(ReopenCardEvent)) {
        openCard(manager ? manager->fullPath() : QString());
        return true;
    }
    return MRLMainWindow::event(event);
}

void MRLDB::createCardList()
{
    // Cards of older versions join the list before it is read.
    OldCardConverter::run();
    cardList = new DBManager(false);
    cardList->load();
}

void MRLDB::connectCardActions()
{
    const struct {
        const char *name;
        void (MRLDB::*slot)();
    } commands[] = {
        { "db", &MRLDB::dbSelect },
        { "newdb", &MRLDB::dbNew },
        { "modify", &MRLDB::doEditCard },
        { "remove", &MRLDB::doRemoveCard },
        { "export", &MRLDB::doExport },
        { "import", &MRLDB::doImport },
    };
    for (const auto &command : commands)
        connect(action(QString::fromLatin1(command.name)), &QAction::triggered, this, command.slot);
    action(QStringLiteral("db"))->setEnabled(true);
    action(QStringLiteral("newdb"))->setEnabled(true);
    action(QStringLiteral("import"))->setEnabled(true);
}

void MRLDB::doImport()
{
    importFrom(QString());
}

// The last card the import made opens once the dialog closes; a stopped text import keeps
// a card with the rows so far, which opens as well.
void MRLDB::importFrom(const QString &file)
{
    ImportDialog dialog(cardList, file, this);
    dialog.exec();
    if (!dialog.importedPath().isEmpty())
        openCard(dialog.importedPath());
}

// The commands that need an open card: its details, its deletion, a new record, clearing.
void MRLDB::setCardActionsEnabled(bool enabled)
{
    for (const char *name : { "modify", "remove", "new", "clear", "export" })
        action(QString::fromLatin1(name))->setEnabled(enabled);
}

// ---- Records of the open card --------------------------------------------------------

void MRLDB::createRecordList()
{
    recordList = new ListView(listPlace);
    recordList->setPaged(true);
    listPlace->layout()->addWidget(recordList);
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    recordList->setColorMode(config.readNumEntry(QStringLiteral("colormode"), 1));
    connect(recordList, qOverload<PIMRecord *>(&PIMListView::activate), this,
        qOverload<PIMRecord *>(&MRLDB::editRecord));
    connect(recordList, qOverload<const QPoint &, PIMRecord *>(&PIMListView::popup), this,
        qOverload<const QPoint &, PIMRecord *>(&MRLDB::popup));
    connect(recordList, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::activate), this,
        qOverload<const QPoint &, PIMRecord *, int>(&MRLDB::editRecord));
    connect(recordList, qOverload<const QPoint &, PIMRecord *, int>(&PIMListView::popup), this,
        qOverload<const QPoint &, PIMRecord *, int>(&MRLDB::popup));
    connect(recordList, &PIMListView::selectionCleared, this, &MRLDB::selectionCleared);
    connect(recordList, &PIMListView::selected, this, &MRLDB::selected);
    recordList->setFocus();
}

void MRLDB::connectRecordCommands()
{
    connect(action(QStringLiteral("new")), &QAction::triggered, this, &MRLDB::doNew);
    connect(action(QStringLiteral("edit")), &QAction::triggered, this, &MRLDB::doEdit);
    connect(action(QStringLiteral("clone")), &QAction::triggered, this, &MRLDB::doClone);
    connect(action(QStringLiteral("delete")), &QAction::triggered, this, &MRLDB::doDelete);
    connect(action(QStringLiteral("clear")), &QAction::triggered, this, &MRLDB::doClearCard);

    recordMenu = new QMenu(this);
    recordMenu->setObjectName(QStringLiteral("recordMenu"));
    for (const char *name : { "edit", "clone", "delete", "", "new" }) {
        if (*name)
            recordMenu->addAction(action(QString::fromLatin1(name)));
        else
            recordMenu->addSeparator();
    }
}

// Takes over an opened card and shows its records.
void MRLDB::showCard(DataManager *card, const QString &title)
{
    if (card != manager) {
        closeCard();
        manager = card;
    }
    cardTitle = title;
    setWindowTitle(tr("Card : %1").arg(title));
    const QList<FieldDef> fields = manager->fields();
    recordList->bind(manager, fields, manager->currentColumns());
    setCardActionsEnabled(true);

    const bool hasMemo = std::any_of(fields.cbegin(), fields.cend(),
        [](const FieldDef &field) { return field.type == FieldDef::Memo; });
    action(QStringLiteral("memo"))->setEnabled(hasMemo);
    if (!hasMemo) {
        memoEdit->hide();
        action(QStringLiteral("memo"))->setChecked(false);
    }
}

DataRecord *MRLDB::currentRecord() const
{
    return static_cast<DataRecord *>(recordList->currentTask());
}

void MRLDB::runEditor(DataRecord *record, int page)
{
    if (!record)
        return;
    editing = true;
    DataEditor editor(static_cast<DataManager *>(record->manager()), this);
    editor.run(record, page);
    editing = false;
}

void MRLDB::doNew()
{
    if (manager)
        runEditor(manager->newRecord(), DataEditor::RecordPage);
}

void MRLDB::doEdit()
{
    editRecord(currentRecord());
}

void MRLDB::editRecord(PIMRecord *record)
{
    runEditor(static_cast<DataRecord *>(record), DataEditor::RecordPage);
}

void MRLDB::editTask(DataRecord *record)
{
    runEditor(record, DataEditor::RecordPage);
}

// The copy goes into the card only if the editor accepts it.
void MRLDB::doClone()
{
    const DataRecord *source = currentRecord();
    if (!source)
        return;
    auto *copy = new DataRecord(*source);
    copy->newUid();
    const QDateTime now = QDateTime::currentDateTime();
    copy->setCreated(now);
    copy->setUpdated(now);
    runEditor(copy, DataEditor::RecordPage);
}

void MRLDB::doDelete()
{
    DataRecord *record = currentRecord();
    if (record
        && MLYesNoDialog::ask(
            tr("Remove Record"), tr("Are you sure you want to delete\nCurrent Record ?")))
        manager->remove(record);
}

void MRLDB::doClearCard()
{
    if (manager
        && MLYesNoDialog::ask(
            tr("Clear Card"), tr("Are you sure you want to clear\nCard [%1] ?").arg(cardTitle)))
        manager->removeAll();
}

// Every keystroke is one update of the card: the change counter of the manager makes the
// save, so the pane needs none of its own.
void MRLDB::memoChanged()
{
    DataRecord *record = currentRecord();
    if (!record)
        return;
    auto *old = new DataRecord(*record);
    record->setMemo(memoEdit->toPlainText());
    memoEdit->setUpdatesEnabled(false);
    record->save(old);
    memoEdit->setUpdatesEnabled(true);
}

bool MRLDB::isEditableInPlace(const DataRecord *record, int field) const
{
    const FieldDef def = manager->field(field);
    // A calculated field takes a typed value only as the seed of a running formula: on the
    // first record, for a formula that reads the previous record.
    if (def.isCalculated())
        return record->isFirst() && def.formula.contains(QStringLiteral("!]"));
    return true;
}

void MRLDB::editRecord(const QPoint &point, PIMRecord *pimRecord, int field)
{
    auto *record = static_cast<DataRecord *>(pimRecord);
    if (!manager || !record || field < 0 || field >= manager->fieldCount()
        || !isEditableInPlace(record, field))
        return;
    const int type = manager->field(field).type;
    if (type == FieldDef::Reminder && !record->hasReminder()) {
        popup(point, record, field);
        return;
    }
    if (type == FieldDef::Image) {
        if (!showImage(record))
            popup(point, record);
        return;
    }
    auto *old = new DataRecord(*record);
    if (editValue(point, record, field))
        record->save(old);
    else
        delete old;
}

bool MRLDB::editValue(const QPoint &point, DataRecord *record, int field)
{
    const FieldDef def = manager->field(field);
    switch (def.type) {
    case FieldDef::String: {
        QString text = record->stringValue(field);
        if (!EnterStringDialog::getText(def.title, text, this))
            return false;
        record->setStringValue(field, text);
        return true;
    }
    case FieldDef::Integer:
    case FieldDef::Double:
        return editNumber(record, field);
    case FieldDef::Date: {
        QDate date = record->dateValue(field);
        if (!editDate(this, point, date))
            return false;
        record->setDateValue(field, date);
        return true;
    }
    case FieldDef::Time: {
        QTime time = record->timeValue(field);
        if (!editTime(this, point, time))
            return false;
        record->setTimeValue(field, time);
        return true;
    }
    case FieldDef::DateTime: {
        QDateTime dateTime = record->dateTimeValue(field);
        if (!editDateTime(this, point, dateTime))
            return false;
        record->setDateTimeValue(field, dateTime);
        return true;
    }
    case FieldDef::Text: {
        QString text = record->stringValue(field);
        if (!editText(this, def.title, text))
            return false;
        record->setStringValue(field, text);
        return true;
    }
    case FieldDef::Memo: {
        QString text = record->memo();
        if (!editText(this, def.title, text))
            return false;
        record->setMemo(text);
        return true;
    }
    case FieldDef::Reminder:
        return editReminder(point, record);
    case FieldDef::List:
        return editList(record, field);
    case FieldDef::Bool:
        record->setIntValue(field, record->intValue(field) == 0 ? 1 : 0);
        return true;
    case FieldDef::Count: {
        CountEnterPopup counter(this);
        const int count = counter.exec(point, record->intValue(field), def.title);
        if (count == -1)
            return false;
        record->setIntValue(field, count);
        return true;
    }
    case FieldDef::MultiList:
        return editMultiList(record, field);
    default:
        return false;
    }
}

bool MRLDB::editNumber(DataRecord *record, int field)
{
    const QString value = manager->field(field).type == FieldDef::Integer
        ? QString::number(record->intValue(field))
        : QString::number(record->doubleValue(field), 'g', 6);
    MLCalculatorDialog calculator(value, this);
    if (calculator.exec() != QDialog::Accepted)
        return false;
    record->setDoubleValue(field, calculator.text().toDouble());
    return true;
}

bool MRLDB::editList(DataRecord *record, int field)
{
    const QString title = manager->field(field).title;
    CustomListDialog dialog(manager->fieldItems(field), QStringLiteral("%1|%2").arg(title, title),
        QStringLiteral("document"), this);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    manager->setFieldItems(field, dialog.items());
    if (!accepted || dialog.currentText().isNull())
        return false;
    record->setStringValue(field, dialog.currentText());
    return true;
}

bool MRLDB::editMultiList(DataRecord *record, int field)
{
    const QString title = manager->field(field).title;
    const QStringList choices = record->stringValue(field).split(u'\n', Qt::SkipEmptyParts);
    CustomListDialog dialog(
        manager->fieldItems(field), QStringLiteral("%1|%2").arg(title, title), choices, this);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    manager->setFieldItems(field, dialog.items());
    if (!accepted)
        return false;
    record->setStringValue(field, dialog.choices().join(u'\n'));
    return true;
}

bool MRLDB::editReminder(const QPoint &point, DataRecord *record)
{
    QDateTime dateTime = record->reminder()->dateTime;
    bool removed = false;
    if (!editReminderDateTime(this, point, dateTime, removed))
        return false;
    if (removed) {
        record->setReminder(nullptr);
    } else {
        auto *changed = new Reminder(*record->reminder());
        changed->dateTime = dateTime;
        record->setReminder(changed);
    }
    return true;
}

bool MRLDB::showImage(DataRecord *record)
{
    if (!record->hasImage())
        return false;
    ImageView view(record->image(), true, this);
    view.exec();
    return true;
}

void MRLDB::popup(const QPoint &point, PIMRecord *)
{
    recordMenu->exec(point);
}

void MRLDB::popup(const QPoint &point, PIMRecord *pimRecord, int field)
{
    auto *record = static_cast<DataRecord *>(pimRecord);
    if (!manager || !record || field < 0 || field >= manager->fieldCount())
        return;
    switch (manager->field(field).type) {
    case FieldDef::Memo:
        runEditor(record, DataEditor::MemoPage);
        break;
    case FieldDef::Reminder:
        runEditor(record, DataEditor::ReminderPage);
        break;
    case FieldDef::Image:
        showImage(record);
        break;
    case FieldDef::String:
        popup(point, record);
        break;
    default:
        editRecord(point, record, field);
        break;
    }
}

void MRLDB::freeManager(PIMManager *other)
{
    if (other && other != manager)
        delete other;
}

void MRLDB::setupView(PIMListView *view, DataRecord *record)
{
    auto *card = static_cast<DataManager *>(record->manager());
    QList<int> columns;
    for (int i = 0; i < card->fieldCount(); ++i)
        columns << i;
    view->setManager(card, false);
    if (auto *list = qobject_cast<ListView *>(view))
        list->setFields(card->fields());
    view->setColumns(columns);
    view->init();
}

QString MRLDB::cardSetting() const
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    return config.readEntry(QStringLiteral("card"));
}

// An empty path removes the entry: an opening that does not complete then leads to the
// chooser at the next start.
void MRLDB::setCardSetting(const QString &path)
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    if (path.isEmpty())
        config.removeEntry(QStringLiteral("card"));
    else
        config.writeEntry(QStringLiteral("card"), path);
    config.write();
}

// Deleting the manager saves the card.
void MRLDB::closeCard()
{
    if (!manager)
        return;
    DataManager *card = std::exchange(manager, nullptr);
    card->disconnect(this);
    card->disconnect(recordList);
    recordList->unsetManager();
    delete card;
    setWindowTitle(qApp->objectName());
    setCardActionsEnabled(false);
    selectionCleared();
}

QString MRLDB::firstAvailableCard() const
{
    for (PIMRecord *record : cardList->view()) {
        auto *entry = static_cast<DBRecord *>(record);
        cardList->refresh(entry);
        if (cardList->isAvailable(entry))
            return entry->path();
    }
    return QString();
}

void MRLDB::openCard(const QString &path)
{
    setCardSetting(QString());
    closeCard();
    const QString wanted = path.isEmpty() ? firstAvailableCard() : path;
    DBRecord *entry = wanted.isEmpty() ? nullptr : cardList->findByPath(wanted);
    if (!entry) {
        QTimer::singleShot(deferMilliseconds, this, &MRLDB::dbSelect);
        return;
    }
    cardList->refreshAll();
    bool cancelled = false;
    entry = PasswordDialog2::authorize(cardList, entry, cancelled, this);
    if (cancelled) {
        QTimer::singleShot(deferMilliseconds, this, &MRLDB::dbSelect);
        return;
    }
    // A wrong password ends the program, not just this attempt.
    if (!entry) {
        QTimer::singleShot(deferMilliseconds, this, &QWidget::close);
        return;
    }
    // Loading a file that is gone would make an empty card, and closing would save it.
    if (!cardList->isAvailable(entry)) {
        QTimer::singleShot(deferMilliseconds, this, &MRLDB::dbSelect);
        return;
    }
    auto *card = new DataManager(entry->path());
    QElapsedTimer timer;
    timer.start();
    card->load();
    qDebug("%d", int(timer.elapsed()));
    showCard(card, entry->title());
    setCardSetting(entry->path());
}

void MRLDB::dbSelect()
{
    setCardSetting(QString());
    QString path;
    if (manager) {
        path = manager->fullPath();
        closeCard();
    }
    {
        DBDialog dialog(cardList, path, this);
        if (dialog.exec() == QDialog::Accepted && !dialog.selectedPath().isEmpty())
            path = dialog.selectedPath();
    }
    // With no card there is nothing to show.
    if (cardList->count() == 0) {
        QTimer::singleShot(deferMilliseconds, this, &QWidget::close);
        return;
    }
    openCard(path);
}

void MRLDB::dbNew()
{
    if (DBRecord *record = DBFlows::newCard(cardList, this))
        openCard(record->path());
}

void MRLDB::doEditCard()
{
    if (!manager)
        return;
    DBRecord *entry = cardList->findByPath(manager->fullPath());
    if (!entry)
        return;
    // Saved first, so that closing it afterwards writes nothing over the header the flow
    // wrote, nor a file at the place it moved from.
    manager->save();
    DBFlows::editCard(cardList, entry, this);
    openCard(entry->path());
}

void MRLDB::doRemoveCard()
{
    if (!manager)
        return;
    DBRecord *entry = cardList->findByPath(manager->fullPath());
    if (!entry)
        return;
    // Saved first, so that closing it writes no file where the card was deleted.
    manager->save();
    if (DBFlows::deleteCard(cardList, entry, this))
        dbSelect();
}

void MRLDB::doExport()
{
    if (!manager)
        return;
    CsvExporter::Options options;
    QString path;
    {
        // The dialog keeps its options as it goes, after Cancel too.
        ExportDialog dialog(this);
        if (dialog.exec() != QDialog::Accepted)
            return;
        options = dialog.options();
        path = dialog.exportFileName(QFileInfo(manager->fullPath()).completeBaseName());
    }
    if (path.isNull())
        return;
    CsvExporter exporter(options);
    if (!exporter.write(*manager, path))
        MRLDialog::critical(tr("Export"), exporter.errorString());
}

// ---- Documents and reminders ----------------------------------------------------------------

void MRLDB::getTask(DataRecord **result, const QString &uid)
{
    QStringList others;
    for (const PIMRecord *entry : cardList->view())
        others << static_cast<const DBRecord *>(entry)->path();
    *result = TaskFinder::find(manager, others, uid);
}

bool MRLDB::modalDialogRunning()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.cbegin(), windows.cend(), [](const QWidget *window) {
        return window->isVisible() && qobject_cast<const QDialog *>(window);
    });
}

void MRLDB::setDocument(const QString &file)
{
    if (modalDialogRunning())
        return;
    const QString extension = QFileInfo(file).suffix().toLower();
    if (extension != QLatin1String("csv") && extension != QLatin1String("txt")) {
        if (!file.isEmpty() && !cardList->findByPath(file))
            cardList->addCard(file);
        openCard(file);
        return;
    }
    const int choice = MRLDialog::ask(qApp->objectName(), tr("What do you want to do?"),
        QStringLiteral("dialog_warning"), tr("Import"), QStringLiteral("import"), tr("Edit"),
        QStringLiteral("edit"));
    if (choice == 2) {
        handTextToEditor(file);
        return;
    }
    if (choice != 1)
        return;
    importFrom(file);
}

// The text editor takes the file and this program leaves the stage. On a desktop the
// editor is the one the desktop opens text files with.
void MRLDB::handTextToEditor(const QString &file)
{
    {
        QCopEnvelope e("QPE/Application/textedit", "setDocument(QString)");
        e << file;
    }
    {
        QCopEnvelope e("QPE/Application/textedit", "raise()");
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    QTimer::singleShot(1000, qApp, &QCoreApplication::quit);
}
