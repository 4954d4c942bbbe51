#include "app/mrldb.h"

#include "app/mrlapplication.h"
#include "app/resourceicons.h"
#include "lib/qt/mrlaction.h"
#include "platform/config.h"

#include <QMenu>
#include <QPlainTextEdit>
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
    createActions();
    createToolBar();
    createPanes();
    selectionCleared();
    // The size of a window that is not maximized: room for a list of several columns.
    resize(640, 480);
}

MRLDB::~MRLDB()
{
    writeOptions();
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
    if (!memoEdit->isHidden())
        memoEdit->setEnabled(true);
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

void MRLDB::showEvent(QShowEvent *event)
{
    MRLMainWindow::showEvent(event);
    readOptions();
}

void MRLDB::hideEvent(QHideEvent *event)
{
    MRLMainWindow::hideEvent(event);
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
