#include "app/mrldb.h"

#include "app/dbdialog.h"
#include "app/dbflows.h"
#include "app/mrlapplication.h"
#include "app/mrldialog.h"
#include "app/passworddialog2.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "card/schemachange.h"
#include "card/taskfinder.h"
#include "edit/countenterpopup.h"
#include "edit/customlistdialog.h"
#include "edit/dataeditor.h"
#include "edit/fieldeditor.h"
#include "edit/popupchoosers.h"
#include "exchange/exportdialog.h"
#include "exchange/imageview.h"
#include "exchange/importdialog.h"
#include "exchange/oldcardconverter.h"
#include "lib/qt/enterstringdialog.h"
#include "lib/qt/mlcalculatordialog.h"
#include "lib/qt/mlyesnodialog.h"
#include "lib/qt/mrlaction.h"
#include "pclink/transfercommands.h"
#include "platform/config.h"
#include "platform/qcopenvelope.h"
#include "reminders/alertdialog.h"
#include "reminders/reminder.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "views/columnsetup.h"
#include "views/filtereditordialog.h"
#include "views/filterlistdialog.h"
#include "views/listview.h"
#include "views/optionsdialog.h"
#include "views/reportviewdialog.h"
#include "views/viewlistdialog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
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
    createAlertDialog();
    createActions();
    connectCardActions();
    createToolBar();
    createPanes();
    connectRecordCommands();
    createMenuBar();
    selectionCleared();
    restoreWindowGeometry();
    if (auto *application = qobject_cast<QPEApplication *>(QCoreApplication::instance()))
        documentAtStart = !application->startDocument().isEmpty();
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
        "zoomin", "zoomout", nullptr, "memo", "options", nullptr, "pclink", "sdata", "gdata", nullptr, "Brightloom" };
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
    filterButton->setEnabled(enabled);
    viewButton->setEnabled(enabled);
    sortButton->setEnabled(enabled);
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
    if (std::exchange(documentAtStart, false))
        return;
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
    writeWindowGeometry(config);
}

// ---- The card road ------------------------------------------------------------------------

bool MRLDB::event(QEvent *event)
{
    if (event->type() == QEvent::Type(ReopenCardEvent)) {
        reopenCard();
        return true;
    }
    if (event->type() == QEvent::Type(SortEvent)) {
        if (manager)
            manager->setSort(pendingSortColumn, pendingSortOrder);
        return true;
    }
    if (event->type() == QEvent::Type(FilterMenuEvent)) {
        setupFilters();
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
        { "fields", &MRLDB::fieldsEditor },
        { "pclink", &MRLDB::pcLink },
        { "sdata", &MRLDB::sendData },
        { "gdata", &MRLDB::getData },
    };
    for (const auto &command : commands)
        connect(action(QString::fromLatin1(command.name)), &QAction::triggered, this, command.slot);
    action(QStringLiteral("db"))->setEnabled(true);
    action(QStringLiteral("newdb"))->setEnabled(true);
    for (const char *name : { "import", "pclink", "sdata", "gdata" })
        action(QString::fromLatin1(name))->setEnabled(true);
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

// The commands that need an open card: its details, its deletion, a new record, clearing,
// its fields.
void MRLDB::setCardActionsEnabled(bool enabled)
{
    for (const char *name : { "modify", "remove", "new", "clear", "fields", "export" })
        action(QString::fromLatin1(name))->setEnabled(enabled);
}

// ---- Records of the open card --------------------------------------------------------

void MRLDB::createRecordList()
{
    // Named so that it reads its row colours from the group "main".
    recordList = new ListView(listPlace, QStringLiteral("main"));
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
    connect(action(QStringLiteral("report")), &QAction::triggered, this, &MRLDB::doReport);
    connect(action(QStringLiteral("options")), &QAction::triggered, this, &MRLDB::options);
    action(QStringLiteral("options"))->setEnabled(true);

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
    setupFilters();
    setupViews();
    setupSorting();
    connect(manager, &PIMManager::updated, this, &MRLDB::setupSorting, Qt::UniqueConnection);

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

void MRLDB::doReport()
{
    DataRecord *record = currentRecord();
    if (!record)
        return;
    ReportViewDialog dialog(record, this, QStringLiteral("report"));
    dialog.exec();
}

void MRLDB::options()
{
    auto *dialog = new OptionsDialog(this);
    dialog->exec();
    delete dialog;
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    recordList->setColorMode(config.readNumEntry(QStringLiteral("colormode"), 1));
    recordList->init();
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
    card->load();
    showCard(card, entry->title());
    setCardSetting(entry->path());
}

// ---- PC Link ----------------------------------------------------------------------------

// The card is saved before any transfer; serving and fetching may replace its file, so
// they close it. Returns the card's path, empty with none open.
QString MRLDB::saveForTransfer(bool close)
{
    if (!manager)
        return QString();
    const QString path = manager->fullPath();
    manager->save();
    if (close)
        closeCard();
    return path;
}

void MRLDB::pcLink()
{
    const QString path = saveForTransfer(true);
    TransferCommands::serve(cardList, this);
    if (!path.isEmpty())
        openCard(path);
}

void MRLDB::sendData()
{
    TransferCommands::send(cardList, saveForTransfer(false), this);
}

void MRLDB::getData()
{
    const QString path = saveForTransfer(true);
    TransferCommands::get(cardList, this);
    if (!path.isEmpty())
        openCard(path);
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

// The records follow the new fields, then the card opens again with its new columns.
void MRLDB::fieldsEditor()
{
    if (!manager)
        return;
    const PIMRecord *current = recordList->currentTask();
    const QString currentUid = current ? current->uidString() : QString();
    manager->save();
    recordList->unsetManager();
    QList<FieldDef> fields;
    {
        FieldEditor editor(manager, this);
        editor.setPreviewRecord(currentUid);
        editor.exec();
        fields = editor.fields();
    }
    if (!SchemaChange::apply(*manager, fields))
        MRLDialog::critical(qApp->objectName(), manager->errorString());
    openCard(manager->fullPath());
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
    if (!ExportDialog::write(exporter, *manager, path, this) && !exporter.wasStopped())
        MRLDialog::critical(tr("Export"), exporter.errorString());
}

// ---- Documents and reminders ----------------------------------------------------------------

void MRLDB::createAlertDialog()
{
    alertDialog = new AlertDialog(this);
    connect(alertDialog, &AlertDialog::editDialogIsFree, this, &MRLDB::editDialogIsFree);
    connect(alertDialog, &AlertDialog::getTask, this, &MRLDB::getTask);
    connect(alertDialog, &AlertDialog::freeManager, this, &MRLDB::freeManager);
    connect(alertDialog, &AlertDialog::raiseMainWindow, this, &MRLDB::raiseMainWindow);
    connect(alertDialog, &AlertDialog::setupView, this, &MRLDB::setupView);
    connect(alertDialog, &AlertDialog::editTask, this, &MRLDB::editTask);
}

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
    if (choice == 1)
        importFrom(file);
    // Nothing imported and nothing open (a launch that was declined): offer the cards.
    if (!manager)
        QTimer::singleShot(deferMilliseconds, this, &MRLDB::dbSelect);
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

// ---- The desktop frame ------------------------------------------------------------------

void MRLDB::createMenuBar()
{
    setDesktopShortcuts();
    addMenu(tr("&Card"),
        { "db", "newdb", "modify", "fields", nullptr, "import", "export", nullptr, "clear",
            "remove", nullptr, "pclink", "sdata", "gdata", nullptr, "exit" });
    addMenu(tr("&Record"), { "new", "edit", "clone", "delete" });
    addMenu(tr("&View"), { "zoomin", "zoomout", nullptr, "memo", "report", nullptr, "options" });
    addMenu(tr("&Help"), { "Brightloom" });

    // The tool bar's filter, view and sort menus, offered as they are offered there.
    QMenu *view = menuBar()->findChild<QMenu *>(QStringLiteral("menuView"));
    view->addSeparator();
    const QList<QPair<QToolButton *, QString>> choosers = { { filterButton, tr("Filter") },
        { viewButton, tr("Views") }, { sortButton, tr("Sort") } };
    for (const auto &[button, title] : choosers) {
        QAction *item = view->addMenu(button->menu());
        item->setText(title);
        item->setIcon(button->icon());
    }
    connect(view, &QMenu::aboutToShow, this, [choosers] {
        for (const auto &[button, title] : choosers)
            button->menu()->menuAction()->setEnabled(button->isEnabled());
    });
    statusBar()->setSizeGripEnabled(true);
}

// A menu of the named actions, a separator for each null name; each action's text is its
// status tip and its tool bar button's tip.
void MRLDB::addMenu(const QString &title, const QList<const char *> &names)
{
    QMenu *menu = menuBar()->addMenu(title);
    menu->setObjectName(QStringLiteral("menu") + QString(title).remove(u'&'));
    for (const char *name : names) {
        if (!name) {
            menu->addSeparator();
            continue;
        }
        QAction *item = action(QString::fromLatin1(name));
        const QString tip = item->text().remove(QStringLiteral(" ..."));
        item->setStatusTip(tip);
        item->setToolTip(tip);
        menu->addAction(item);
    }
}

// The handheld left two commands without a text; a menu needs one.
void MRLDB::setDesktopShortcuts()
{
    action(QStringLiteral("memo"))->setText(tr("Memo"));
    action(QStringLiteral("report"))->setText(tr("Report"));
    action(QStringLiteral("new"))->setShortcut(QKeySequence::New);
    action(QStringLiteral("db"))->setShortcut(QKeySequence::Open);
    action(QStringLiteral("delete"))->setShortcut(QKeySequence::Delete);
    action(QStringLiteral("Brightloom"))->setShortcut(QKeySequence::HelpContents);
    // The find key opens the find dialog whenever the filter menu would offer it.
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        if (filterButton->isEnabled())
            find();
    });
}

// A first start takes four fifths of the screen, centred; later starts come back where
// the window was left.
void MRLDB::restoreWindowGeometry()
{
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    const QRect kept(config.readNumEntry(QStringLiteral("x"), 0),
        config.readNumEntry(QStringLiteral("y"), 0),
        config.readNumEntry(QStringLiteral("width"), 0),
        config.readNumEntry(QStringLiteral("height"), 0));
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    if (kept.width() > 0 && kept.height() > 0 && area.intersects(kept)) {
        setGeometry(kept);
    } else {
        const QSize size = area.size() * 4 / 5;
        resize(size);
        move(area.center() - QPoint(size.width() / 2, size.height() / 2));
    }
    if (config.readBoolEntry(QStringLiteral("maximized"), false))
        setWindowState(windowState() | Qt::WindowMaximized);
}

void MRLDB::writeWindowGeometry(Config &config) const
{
    const QRect kept = normalGeometry();
    config.writeEntry(QStringLiteral("x"), kept.x());
    config.writeEntry(QStringLiteral("y"), kept.y());
    config.writeEntry(QStringLiteral("width"), kept.width());
    config.writeEntry(QStringLiteral("height"), kept.height());
    config.writeEntry(QStringLiteral("maximized"), isMaximized());
}
// ---- Filters and find ---------------------------------------------------------------------

namespace
{
// The filter and view menus name the first entries; a later one only while it is current.
constexpr int namedMenuEntries = 5;
} // namespace

void MRLDB::setupFilters()
{
    filterMenu->clear();
    if (!manager)
        return;
    const int current = manager->currentFilter();
    QAction *find = filterMenu->addAction(
        loadIconSet(QStringLiteral("viewmag")), dialogText(tr("Find Records")), this, &MRLDB::find);
    find->setCheckable(true);
    find->setChecked(current == -2);
    filterMenu->addSeparator();
    filterMenu->addAction(loadIconSet(QStringLiteral("filenew")), dialogText(tr("New Filter")),
        this, &MRLDB::newFilter);
    filterMenu->addAction(loadIconSet(QStringLiteral("package_utilities")),
        dialogText(tr("Edit Filters")), this, &MRLDB::editFilters);
    filterMenu->addSeparator();
    addFilterEntry(tr("All Records"), 0, current == -1);
    const QList<FilterDef> filters = manager->filters();
    if (!filters.isEmpty())
        filterMenu->addSeparator();
    for (int i = 0; i < std::min<int>(namedMenuEntries, filters.size()); ++i)
        addFilterEntry(filters.at(i).title, i + 1, current == i);
    if (current >= namedMenuEntries && current < filters.size()) {
        filterMenu->addSeparator();
        addFilterEntry(filters.at(current).title, -1, true);
    }
}

QAction *MRLDB::addFilterEntry(const QString &title, int id, bool checked)
{
    QAction *entry = filterMenu->addAction(loadIconSet(QStringLiteral("viewmag")), title);
    entry->setData(id);
    entry->setCheckable(true);
    entry->setChecked(checked);
    connect(entry, &QAction::triggered, this, [this, id] { changeFilter(id); });
    return entry;
}

void MRLDB::changeFilter(int id)
{
    if (id < 0 || !manager)
        return;
    manager->setCurrentFilter(id - 1);
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(FilterMenuEvent)));
}

void MRLDB::find()
{
    if (!manager)
        return;
    FilterEditorDialog editor(manager, FilterEditorDialog::Find, this);
    if (editor.exec() != QDialog::Accepted)
        return;
    editor.apply();
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(FilterMenuEvent)));
}

void MRLDB::newFilter()
{
    if (!manager)
        return;
    FilterEditorDialog editor(manager, FilterEditorDialog::NewFilter, this);
    if (editor.exec() != QDialog::Accepted)
        return;
    editor.apply();
    manager->setCurrentFilter(int(manager->filters().size()) - 1);
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(FilterMenuEvent)));
}

void MRLDB::editFilters()
{
    if (!manager)
        return;
    {
        FilterListDialog dialog(manager, this);
        dialog.exec();
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(FilterMenuEvent)));
}

// ---- Sorting ------------------------------------------------------------------------------

void MRLDB::setupSorting()
{
    sortMenu->clear();
    if (!manager)
        return;
    const int column = manager->sortColumn();
    auto addEntry = [this](const QString &title, int id, bool checked) {
        QAction *entry = sortMenu->addAction(title);
        entry->setData(id);
        entry->setCheckable(true);
        entry->setChecked(checked);
        connect(entry, &QAction::triggered, this, [this, id] { changeSorting(id); });
    };
    addEntry(tr("Unsorted"), 0, column == -1);
    sortMenu->addSeparator();
    addEntry(tr("Reversed"), 1, !manager->sortOrder());
    sortMenu->addSeparator();
    const QList<FieldDef> &fields = manager->fieldList();
    for (int i = 0; i < fields.size(); ++i)
        addEntry(fields.at(i).title, i + 2, column == i);
}

// The sort is applied once the menu has gone, by event.
void MRLDB::changeSorting(int id)
{
    if (!manager)
        return;
    pendingSortColumn = manager->sortColumn();
    pendingSortOrder = manager->sortOrder();
    if (id == 1)
        pendingSortOrder = !pendingSortOrder;
    else
        pendingSortColumn = id == 0 ? -1 : id - 2;
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(SortEvent)));
}

// ---- Views --------------------------------------------------------------------------------

void MRLDB::setupViews()
{
    viewMenu->clear();
    if (!manager)
        return;
    viewMenu->addAction(
        loadIconSet(QStringLiteral("filenew")), dialogText(tr("New View")), this, &MRLDB::newView);
    viewMenu->addAction(loadIconSet(QStringLiteral("package_utilities")),
        dialogText(tr("Edit Views")), this, &MRLDB::editViews);
    viewMenu->addSeparator();
    const int current = manager->currentView();
    addViewEntry(tr("Default"), 0, current == -1);
    const QList<ViewDef> views = manager->views();
    if (!views.isEmpty())
        viewMenu->addSeparator();
    for (int i = 0; i < std::min<int>(namedMenuEntries, views.size()); ++i)
        addViewEntry(views.at(i).title, i + 1, current == i);
    if (current >= namedMenuEntries && current < views.size()) {
        viewMenu->addSeparator();
        addViewEntry(views.at(current).title, -1, true);
    }
}

void MRLDB::addViewEntry(const QString &title, int id, bool checked)
{
    QAction *entry = viewMenu->addAction(loadIconSet(QStringLiteral("view_detailed")), title);
    entry->setData(id);
    entry->setCheckable(true);
    entry->setChecked(checked);
    connect(entry, &QAction::triggered, this, [this, id] { changeView(id); });
}

void MRLDB::changeView(int id)
{
    if (id < 0 || !manager)
        return;
    manager->setCurrentView(id - 1);
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(ReopenCardEvent)));
}

void MRLDB::newView()
{
    if (!manager)
        return;
    ColumnSetup setup(manager, -1, this);
    if (setup.exec() != QDialog::Accepted)
        return;
    setup.apply();
    manager->setCurrentView(int(manager->views().size()) - 1);
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(ReopenCardEvent)));
}

void MRLDB::editViews()
{
    if (!manager)
        return;
    {
        ViewListDialog dialog(manager, this);
        dialog.exec();
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::Type(ReopenCardEvent)));
}

// The columns of a view are set when a card opens: the card opens again, on the same record.
void MRLDB::reopenCard()
{
    const PIMRecord *current = recordList->currentTask();
    const QString uid = current ? current->uidString() : QString();
    openCard(manager ? manager->fullPath() : QString());
    if (!manager || uid.isEmpty())
        return;
    for (PIMRecord *record : manager->view()) {
        if (record->uidString() == uid) {
            recordList->showRecord(record);
            return;
        }
    }
}
