#include "app/mrldb.h"

#include "app/dbdialog.h"
#include "app/dbflows.h"
#include "app/mrlapplication.h"
#include "app/passworddialog2.h"
#include "app/resourceicons.h"
#include "card/datamanager.h"
#include "card/datarecord.h"
#include "lib/qt/mrlaction.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "views/listview.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
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
    createRecordList();
    selectionCleared();
    // The size of a window that is not maximized: room for a list of several columns.
    resize(640, 480);
}

MRLDB::~MRLDB()
{
    writeOptions();
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
        const QSignalBlocker blocker(memoEdit);
        memoEdit->setPlainText(static_cast<const DataRecord *>(record)->memo());
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
    };
    for (const auto &command : commands)
        connect(action(QString::fromLatin1(command.name)), &QAction::triggered, this, command.slot);
    action(QStringLiteral("db"))->setEnabled(true);
    action(QStringLiteral("newdb"))->setEnabled(true);
}

// The details and the deletion of a card are those of the open one.
void MRLDB::setCardActionsEnabled(bool enabled)
{
    action(QStringLiteral("modify"))->setEnabled(enabled);
    action(QStringLiteral("remove"))->setEnabled(enabled);
}

void MRLDB::createRecordList()
{
    recordList = new ListView(listPlace);
    listPlace->layout()->addWidget(recordList);
    recordList->setPaged(true);
    Config config(qApp->objectName());
    config.setGroup(QStringLiteral("Options"));
    recordList->setColorMode(config.readNumEntry(QStringLiteral("colormode"), 1));
    connect(recordList, &PIMListView::selectionCleared, this, &MRLDB::selectionCleared);
    connect(recordList, &PIMListView::selected, this, &MRLDB::selected);
    recordList->setFocus();
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
    setWindowTitle(tr("Card : %1").arg(entry->title()));
    manager = new DataManager(entry->path());
    QElapsedTimer timer;
    timer.start();
    manager->load();
    qDebug("%d", int(timer.elapsed()));
    showCard();
    setCardSetting(entry->path());
}

// The columns are the current view's, or every field when no view is chosen.
void MRLDB::showCard()
{
    const QList<FieldDef> fields = manager->fields();
    const QList<ViewDef> views = manager->views();
    const int view = manager->currentView();
    QList<int> columns;
    if (view >= 0 && view < views.size()) {
        columns = views.at(view).columns;
    } else {
        for (int i = 0; i < fields.size(); ++i)
            columns << i;
    }
    recordList->bind(manager, fields, columns);
    setCardActionsEnabled(true);

    const bool hasMemo = std::any_of(fields.cbegin(), fields.cend(),
        [](const FieldDef &field) { return field.type == FieldDef::Memo; });
    action(QStringLiteral("memo"))->setEnabled(hasMemo);
    if (!hasMemo) {
        memoEdit->hide();
        action(QStringLiteral("memo"))->setChecked(false);
    }
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
