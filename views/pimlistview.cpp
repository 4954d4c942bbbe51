#include "views/pimlistview.h"

#include "app/resourceicons.h"
#include "calc/systemdatetimeformat.h"
#include "platform/config.h"
#include "store/pimmanager.h"
#include "store/pimrecord.h"
#include "views/recorditem.h"

#include <QApplication>
#include <QBitmap>
#include <QCursor>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidgetAction>
#include <QtMath>

#include <limits>
#include <memory>

namespace
{
// A triangle of odd width s with its tip in the middle column, in the colours of the text.
QIcon triangleIcon(int s, bool up, const QPalette &palette)
{
    QBitmap mask(s, s);
    mask.clear();
    {
        QPainter painter(&mask);
        painter.setPen(Qt::color1);
        const int half = s / 2;
        const int top = (s - half - 1) / 2;
        for (int r = 0; r <= half; ++r) {
            const int y = top + (up ? r : half - r);
            painter.drawLine(half - r, y, half + r, y);
        }
    }
    QIcon icon;
    for (const auto &[group, mode] : { std::pair(QPalette::Active, QIcon::Normal),
             std::pair(QPalette::Disabled, QIcon::Disabled) }) {
        QPixmap pixmap(s, s);
        pixmap.fill(palette.color(group, QPalette::Text));
        pixmap.setMask(mask);
        icon.addPixmap(pixmap, mode);
    }
    return icon;
}

QString applicationConfigName()
{
    return qApp ? qApp->objectName() : QString();
}
} // namespace

PIMListView::PIMListView(QWidget *parent, const QString &name)
    : MRLListView(parent, name)
{
    m_icons.append(loadPixmap(QStringLiteral("empty")));
    fitRowsToIcons();
    buildPageBar();
    buildPagePopup();
    setSortingEnabled(false);
    // Turning the view's own sorting off makes the header deaf; its clicks sort through
    // the manager instead.
    header()->setSectionsClickable(true);
    setAllColumnsShowFocus(true);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->installEventFilter(this);
    m_page = 1;
    m_pressTimer.setSingleShot(true);
    setPaged(false);

    // The desktop program's application object announces changed clock and date settings;
    // other hosts of a list (tests, tools) have none to announce.
    if (qApp && qApp->metaObject()->indexOfSignal("dateTimeSettingChanged()") >= 0)
        connect(qApp, SIGNAL(dateTimeSettingChanged()), this, SLOT(dateFormatChanged()));
    connect(header(), &QHeaderView::sectionClicked, this, &PIMListView::sectionClicked);
    connect(header(), &QHeaderView::sectionResized, this, &PIMListView::headerSizeChange);
    connect(this, &MRLListView::currentListItemChanged, this, &PIMListView::currentTaskChanged);
    connect(this, &MRLListView::listItemClicked, this, &PIMListView::taskClicked);
    connect(&m_pressTimer, &QTimer::timeout, this, &PIMListView::timeout);
    dateFormatChanged();
}

PIMListView::~PIMListView()
{
    // The rows go before the list's own members; nothing may report on the way.
    blockSignals(true);
    MRLListView::clear();
}

// ---- The page bar and the paging panel ---------------------------------------------------

void PIMListView::buildPageBar()
{
    m_pageBar = new QWidget(this);
    m_pageBar->setObjectName(QStringLiteral("pageBar"));
    const int height = horizontalScrollBar()->sizeHint().height();
    m_pageBar->setFixedHeight(height);
    auto *layout = new QHBoxLayout(m_pageBar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    m_pageBack = new QToolButton(m_pageBar);
    m_pageBack->setObjectName(QStringLiteral("pageBack"));
    m_pageForward = new QToolButton(m_pageBar);
    m_pageForward->setObjectName(QStringLiteral("pageForward"));
    for (QToolButton *button : { m_pageBack, m_pageForward }) {
        button->setFixedSize(height, height);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
    }
    m_pageLabel = new QLabel(m_pageBar);
    m_pageLabel->setObjectName(QStringLiteral("pageLabel"));
    m_pageLabel->setAlignment(Qt::AlignCenter);
    m_pageLabel->installEventFilter(this);

    layout->addWidget(m_pageBack);
    layout->addWidget(m_pageLabel);
    layout->addWidget(m_pageForward);
    setTriangles();
    connect(m_pageBack, &QToolButton::clicked, this, &PIMListView::pageDown);
    connect(m_pageForward, &QToolButton::clicked, this, &PIMListView::pageUp);

    // The bar shares the row of the horizontal scroll bar, at its left end.
    addScrollBarWidget(m_pageBar, Qt::AlignLeft);
    m_pageBar->hide();
}

void PIMListView::setTriangles()
{
    const int h = m_pageBar->height();
    int s = h / 2 - h / 10;
    // Only an odd size puts the tip on a pixel of its own.
    if ((s + 1) % 2 != 0)
        s += 1;
    s = qMax(s, 1);
    m_pageBack->setIconSize(QSize(s, s));
    m_pageForward->setIconSize(QSize(s, s));
    m_pageBack->setIcon(triangleIcon(s, true, palette()));
    m_pageForward->setIcon(triangleIcon(s, false, palette()));
}

void PIMListView::buildPagePopup()
{
    m_pagePopup = new QMenu(this);
    m_pagePopup->setObjectName(QStringLiteral("pagePopup"));
    auto *panel = new QWidget(m_pagePopup);
    auto *layout = new QVBoxLayout(panel);

    m_totalLabel = new QLabel(panel);
    m_totalLabel->setObjectName(QStringLiteral("totalLabel"));
    layout->addWidget(m_totalLabel);
    auto *line = new QFrame(panel);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    layout->addWidget(line);

    auto *grid = new QGridLayout;
    m_pageSpin = new QSpinBox(panel);
    m_pageSpin->setObjectName(QStringLiteral("pageSpin"));
    m_perPageSpin = new QSpinBox(panel);
    m_perPageSpin->setObjectName(QStringLiteral("perPageSpin"));
    grid->addWidget(new QLabel(tr("Page") + QLatin1Char(':'), panel), 0, 0);
    grid->addWidget(m_pageSpin, 0, 1);
    grid->addWidget(new QLabel(tr("Records per Page") + QLatin1Char(':'), panel), 1, 0);
    grid->addWidget(m_perPageSpin, 1, 1);
    layout->addLayout(grid);

    auto *first
        = new QPushButton(loadIconSet(QStringLiteral("back")), tr("Go To First page"), panel);
    first->setObjectName(QStringLiteral("firstPageButton"));
    auto *last
        = new QPushButton(loadIconSet(QStringLiteral("forward")), tr("Go To Last page"), panel);
    last->setObjectName(QStringLiteral("lastPageButton"));
    layout->addWidget(first);
    layout->addWidget(last);

    auto *action = new QWidgetAction(m_pagePopup);
    action->setDefaultWidget(panel);
    m_pagePopup->addAction(action);

    connect(m_pageSpin, &QSpinBox::valueChanged, this, &PIMListView::setPage);
    connect(m_perPageSpin, &QSpinBox::valueChanged, this, &PIMListView::setPerPage);
    connect(first, &QPushButton::clicked, this, &PIMListView::gotoFirstPage);
    connect(last, &QPushButton::clicked, this, &PIMListView::gotoLastPage);
}

void PIMListView::showPagePopup()
{
    refreshPageBar();
    const QSize size = m_pagePopup->sizeHint();
    // Right edges flush, standing on the bar.
    m_pagePopup->popup(
        m_pageBar->mapToGlobal(QPoint(m_pageBar->width() - size.width(), -size.height())));
}

void PIMListView::showPageBar(bool show)
{
    setHorizontalScrollBarPolicy(show ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
    m_pageBar->setVisible(show);
    updateGeometries();
}

void PIMListView::refreshPageBar()
{
    if (!m_paged)
        return;
    const int pages = pageCount();
    m_pageLabel->setText(
        QLatin1Char(' ') + tr("Page %1 [%2]").arg(m_page).arg(pages) + QLatin1Char(' '));
    m_pageForward->setEnabled(m_page < pages);
    m_pageBack->setEnabled(m_page > 1);
    showPageBar(true);
    {
        const QSignalBlocker blocker(m_pageSpin);
        m_pageSpin->setRange(pages == 0 ? 0 : 1, pages);
        m_pageSpin->setValue(m_page);
    }
    {
        const QSignalBlocker blocker(m_perPageSpin);
        m_perPageSpin->setRange(1, std::numeric_limits<int>::max());
        m_perPageSpin->setValue(m_perPage);
    }
    m_totalLabel->setText(tr("Total records count: %1").arg(visibleCount()));
}

// ---- Binding and columns -----------------------------------------------------------------

void PIMListView::setManager(PIMManager *manager, bool live)
{
    if (m_manager)
        disconnect(m_manager, nullptr, this, nullptr);
    if (m_related)
        disconnect(m_related, nullptr, this, nullptr);
    m_manager = manager;
    m_live = live;
    m_related = nullptr;
    if (!manager)
        return;

    connect(manager, &QObject::destroyed, this, &PIMListView::unsetManager);
    connect(manager, &PIMManager::taskUpdated, this, &PIMListView::updateTask);
    connect(manager, &PIMManager::taskRemoved, this, &PIMListView::removeTask);
    connect(manager, &PIMManager::updated, this, &PIMListView::init);
    if (!live)
        return;
    connect(manager, &PIMManager::newTask, this, &PIMListView::newTask);
    connect(manager, &PIMManager::taskSelected, this, &PIMListView::taskSelected);
    if (PIMManager *related = manager->relatedManager()) {
        m_related = related;
        connect(related, &PIMManager::changed, this, &PIMListView::init);
    }
}

void PIMListView::unsetManager()
{
    // The manager is going: nothing may reach it while the rows go.
    m_manager = nullptr;
    clear();
    removeAllColumns();
}

void PIMListView::setColumns(const QList<int> &columns)
{
    m_columns = columns;
    rebuildColumns();
}

void PIMListView::readColumns()
{
    const QString file = applicationConfigName();
    if (file.isEmpty())
        return;
    Config config(file);
    config.setGroup(objectName() + QStringLiteral("_columns"));
    QList<int> columns;
    const QStringList entries = config.readListEntry(QStringLiteral("column"), QLatin1Char(';'));
    for (const QString &entry : entries) {
        bool ok = false;
        const int field = entry.trimmed().toInt(&ok);
        if (ok)
            columns.append(field);
    }
    setColumns(columns);
}

void PIMListView::rebuildColumns()
{
    clear();
    removeAllColumns();
    const QString file = applicationConfigName();
    std::unique_ptr<Config> config;
    if (!file.isEmpty()) {
        config = std::make_unique<Config>(file);
        config->setGroup(objectName() + QStringLiteral("_columns"));
    }
    for (int field : std::as_const(m_columns))
        addField(field, config.get());
}

int PIMListView::fieldAt(int column) const
{
    if (column < 0 || column >= m_columns.size()) {
        qWarning("PIMListView::fieldAt: column %d out of range", column);
        return -1;
    }
    return m_columns.at(column);
}

int PIMListView::columnOf(int field) const
{
    return int(m_columns.indexOf(field));
}

void PIMListView::fitRowsToIcons()
{
    int height = 0;
    for (const QPixmap &icon : std::as_const(m_icons))
        height = qMax(height, qCeil(icon.deviceIndependentSize().height()));
    setRowIconHeight(height);
}

int PIMListView::addIcon(const QString &name)
{
    m_icons.append(loadPixmap(name));
    fitRowsToIcons();
    return int(m_icons.size()) - 1;
}

void PIMListView::setDateWidths(int, int, int)
{
}

void PIMListView::columnResized(int, int)
{
}

void PIMListView::addField(int, Config *)
{
}

RecordItem *PIMListView::createItem(PIMRecord *record)
{
    return new RecordItem(this, record);
}

RecordItem *PIMListView::createItem(PIMRecord *record, RecordItem *after)
{
    return new RecordItem(this, record, after);
}

void PIMListView::headerSizeChange(int section, int, int newSize)
{
    columnResized(section, newSize);
}

void PIMListView::dateFormatChanged()
{
    const QFontMetrics metrics(font());
    const QDateTime now = QDateTime::currentDateTime();
    setDateWidths(metrics.horizontalAdvance(formatDate(now.date())) + 6,
        metrics.horizontalAdvance(formatTime(now.time())) + 6,
        metrics.horizontalAdvance(formatDateTimeDefault(now)) + 6);
}

void PIMListView::sectionClicked(int section)
{
    if (!m_live || !m_manager || section < 0 || section >= m_columns.size())
        return;
    m_manager->sort(m_columns.at(section));
}

// ---- Rows and pages ----------------------------------------------------------------------

PIMRecord *PIMListView::currentTask() const
{
    RecordItem *item = currentRecordItem();
    return item ? item->record() : nullptr;
}

RecordItem *PIMListView::currentRecordItem() const
{
    return static_cast<RecordItem *>(currentListItem());
}

RecordItem *PIMListView::findItem(PIMRecord *record) const
{
    const int count = itemCount();
    for (int row = 0; row < count; ++row) {
        auto *item = static_cast<RecordItem *>(itemAtRow(row));
        if (item->record() == record)
            return item;
    }
    return nullptr;
}

RecordItem *PIMListView::lastRecordItem() const
{
    return static_cast<RecordItem *>(lastItem());
}

int PIMListView::visibleCount() const
{
    return m_manager ? int(m_manager->view().size()) : 0;
}

int PIMListView::indexOf(PIMRecord *record) const
{
    return m_manager && record ? int(m_manager->view().indexOf(record)) : -1;
}

int PIMListView::pageCount() const
{
    const int count = visibleCount();
    return count / m_perPage + (count % m_perPage ? 1 : 0);
}

void PIMListView::refreshPerPage()
{
    if (!m_manager)
        return;
    // A page of no rows would leave nothing to divide by.
    m_perPage = qMax(1, m_paged ? m_manager->perPage() : visibleCount());
}

RecordItem *PIMListView::addRow(PIMRecord *record, RecordItem *after)
{
    RecordItem *item = after ? createItem(record, after) : createItem(record);
    item->update();
    return item;
}

void PIMListView::showPage(PIMRecord *record)
{
    if (!m_manager)
        return;
    const bool wasBlocked = blockSignals(true);
    refreshPageBar();
    clear();
    const QList<PIMRecord *> &view = m_manager->view();
    // Rows go in at the top from the end of the page backwards, so they come out ascending.
    const qint64 end = qint64(m_page) * m_perPage;
    const qint64 first = qMax<qint64>(end - m_perPage, 0);
    RecordItem *wanted = nullptr;
    RecordItem *last = nullptr;
    for (qint64 i = qMin<qint64>(end, view.size()) - 1; i >= first; --i) {
        last = addRow(view.at(i), nullptr);
        if (view.at(i) == record)
            wanted = last;
    }
    setCurrentItem(wanted ? wanted : last);
    blockSignals(wasBlocked);
    currentTaskChanged();
}

void PIMListView::showRecord(PIMRecord *record)
{
    const int index = indexOf(record);
    m_page = index < 0 ? 1 : index / m_perPage + 1;
    showPage(record);
}

void PIMListView::pageUp()
{
    ++m_page;
    showPage(nullptr);
}

void PIMListView::pageDown()
{
    --m_page;
    showPage(nullptr);
}

void PIMListView::setPage(int page)
{
    m_page = page;
    showPage(nullptr);
}

void PIMListView::setPerPage(int perPage)
{
    perPage = qMax(1, perPage);
    if (m_manager)
        m_manager->setPerPage(perPage);
    m_perPage = perPage;
    showRecord(currentTask());
}

void PIMListView::gotoFirstPage()
{
    m_pagePopup->hide();
    setPage(1);
}

void PIMListView::gotoLastPage()
{
    m_pagePopup->hide();
    setPage(pageCount());
}

void PIMListView::setPaged(bool paged)
{
    m_paged = paged;
    if (m_manager)
        init();
}

void PIMListView::init()
{
    if (!m_manager)
        return;
    m_page = 1;
    refreshPerPage();
    showPageBar(m_paged);

    RecordItem *current = currentRecordItem();
    const QString uid = current ? current->uid() : m_manager->lastCurrent();
    if (!m_live) {
        initNotLive(uid);
        return;
    }
    if (uid.isEmpty())
        showPage(nullptr);
    else
        showRecord(m_manager->findByUid(uid));
    refreshPageBar();
}

void PIMListView::initNotLive(const QString &uid)
{
    QStringList uids;
    const QList<MRLListViewItem *> rows = items();
    for (MRLListViewItem *row : rows)
        uids.append(static_cast<RecordItem *>(row)->uid());

    const bool wasBlocked = blockSignals(true);
    clear();
    RecordItem *remembered = nullptr;
    // From the bottom up, each at the top: the rows keep their order.
    for (qsizetype i = uids.size() - 1; i >= 0; --i) {
        PIMRecord *record = m_manager->findByUid(uids.at(i));
        if (!record)
            continue;
        RecordItem *item = addRow(record, nullptr);
        if (uids.at(i) == uid)
            remembered = item;
    }
    setCurrentItem(remembered);
    blockSignals(wasBlocked);
    currentTaskChanged();
}

void PIMListView::newTask(PIMRecord *record)
{
    refreshPerPage();
    if (!m_live) {
        const bool wasBlocked = blockSignals(true);
        setCurrentItem(addRow(record, lastRecordItem()));
        blockSignals(wasBlocked);
        currentTaskChanged();
        return;
    }

    const int index = indexOf(record);
    if (index < 0)
        return;
    if (index / m_perPage + 1 != m_page) {
        showRecord(record);
        return;
    }
    const bool wasBlocked = blockSignals(true);
    if (itemCount() >= m_perPage)
        delete itemAtRow(m_perPage - 1);
    RecordItem *after
        = index % m_perPage == 0 ? nullptr : findItem(m_manager->view().at(index - 1));
    setCurrentItem(addRow(record, after));
    blockSignals(wasBlocked);
    currentTaskChanged();
    refreshPageBar();
}

void PIMListView::updateTask(PIMRecord *record)
{
    RecordItem *item = findItem(record);
    if (!m_live) {
        if (!item)
            return;
        item->update();
        const bool wasBlocked = blockSignals(true);
        setCurrentItem(item);
        blockSignals(wasBlocked);
        currentTaskChanged();
        return;
    }

    const int index = indexOf(record);
    if (item && index < 0) {
        removeTask(record);
        return;
    }
    if (!item) {
        if (index >= 0)
            newTask(record);
        return;
    }
    item->update();
    if (index / m_perPage + 1 != m_page) {
        showRecord(record);
        return;
    }
    const bool wasBlocked = blockSignals(true);
    if (index % m_perPage == 0) {
        takeItem(item);
        insertItem(item);
    } else {
        moveItem(item, findItem(m_manager->view().at(index - 1)));
    }
    setCurrentItem(item);
    blockSignals(wasBlocked);
    currentTaskChanged();
}

void PIMListView::removeTask(PIMRecord *record)
{
    if (!m_live) {
        const bool wasBlocked = blockSignals(true);
        delete findItem(record);
        blockSignals(wasBlocked);
        currentTaskChanged();
        return;
    }
    removeLive(record);
}

void PIMListView::removeLive(PIMRecord *record)
{
    const bool wasBlocked = blockSignals(true);
    delete findItem(record);
    RecordItem *current = currentRecordItem();
    if (m_paged && m_manager) {
        const QList<PIMRecord *> &view = m_manager->view();
        const qint64 last = qint64(m_page) * m_perPage - 1;
        if (last < view.size()) {
            // The first row of the next page moves up to the bottom of this one.
            addRow(view.at(last), static_cast<RecordItem *>(itemAtRow(m_perPage - 2)));
        } else if (itemCount() == 0 && m_page > 1) {
            // The page ran empty: show the one before, quietly, with its last record current.
            showRecord(view.isEmpty() ? nullptr : view.last());
            blockSignals(wasBlocked);
            return;
        }
    }
    refreshPerPage();
    setCurrentItem(current);
    blockSignals(wasBlocked);
    refreshPageBar();
    currentTaskChanged();
}

void PIMListView::taskSelected(PIMRecord *record)
{
    RecordItem *item = record ? findItem(record) : nullptr;
    if (record && !item && m_live && indexOf(record) >= 0) {
        // A record on another page: the list follows it there.
        showRecord(record);
        return;
    }
    const bool wasBlocked = blockSignals(true);
    if (!record)
        clearSelection();
    setCurrentItem(item);
    blockSignals(wasBlocked);
    currentTaskChanged();
}

void PIMListView::currentTaskChanged()
{
    RecordItem *item = currentRecordItem();
    if (!item) {
        Q_EMIT selectionCleared();
        return;
    }
    item->setSelected(true);
    scrollToItem(item);
    if (m_manager)
        m_manager->setLastCurrent(item->uid());
    Q_EMIT selected(item->record());
}

void PIMListView::taskClicked()
{
    Q_EMIT clicked(currentTask());
}

// ---- Touch and keys ----------------------------------------------------------------------

int PIMListView::fieldUnderCursor() const
{
    const int section = sectionAt(viewport()->mapFromGlobal(QCursor::pos()).x());
    return section < 0 || section >= m_columns.size() ? -1 : m_columns.at(section);
}

bool PIMListView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == viewport()) {
        if (event->type() == QEvent::MouseButtonPress) {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            if (listItemAt(mouse->position().toPoint()))
                QCoreApplication::postEvent(this, new QEvent(QEvent::Type(PressEvent)));
        } else if (event->type() == QEvent::MouseButtonRelease) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::Type(ReleaseEvent)));
        }
    } else if (watched == m_pageLabel) {
        if (event->type() == QEvent::MouseButtonRelease)
            showPagePopup();
        if (event->type() == QEvent::MouseButtonPress
            || event->type() == QEvent::MouseButtonRelease)
            return true;
    }
    return MRLListView::eventFilter(watched, event);
}

bool PIMListView::event(QEvent *event)
{
    switch (int(event->type())) {
    case PressEvent:
        if (currentRecordItem())
            m_pressTimer.start(holdMilliseconds);
        return true;
    case ReleaseEvent:
        if (currentRecordItem() && m_pressTimer.isActive()) {
            m_pressTimer.stop();
            Q_EMIT activate(QCursor::pos(), currentTask(), fieldUnderCursor());
        }
        return true;
    case QEvent::KeyPress:
        if (handleKey(static_cast<QKeyEvent *>(event)))
            return true;
        break;
    case QEvent::KeyRelease:
        QCoreApplication::postEvent(this, new QEvent(QEvent::Type(ReleaseEvent)));
        break;
    default:
        break;
    }
    return MRLListView::event(event);
}

bool PIMListView::handleKey(QKeyEvent *event)
{
    RecordItem *item = currentRecordItem();
    if (!item)
        return false;
    switch (event->key()) {
    case Qt::Key_Space: {
        const QPoint point(50, visualItemRect(item).top() + 10);
        Q_EMIT popup(viewport()->mapToGlobal(point), item->record());
        return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT activate(item->record());
        return true;
    default:
        return false;
    }
}

void PIMListView::timeout()
{
    m_pressTimer.stop();
    if (RecordItem *item = currentRecordItem())
        Q_EMIT popup(QCursor::pos(), item->record(), fieldUnderCursor());
}
