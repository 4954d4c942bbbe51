#include "card/datamanager.h"

#include "calc/formulaevaluator.h"
#include "card/datarecord.h"
#include "card/formulareferences.h"
#include "card/passwordmask.h"
#include "platform/alarmserver.h"
#include "reminders/reminder.h"
#include "store/binaryformat.h"

#include <QDataStream>
#include <QDebug>

const QByteArray DataManager::alarmChannel = QByteArrayLiteral("QPE/Application/norvika");

namespace
{

// The least a field definition takes in a card header: six strings, a list and two ints.
constexpr qint64 minFieldBytes = 8 * 4;

DataRecord *dataRecord(PIMRecord *record)
{
    return static_cast<DataRecord *>(record);
}

} // namespace

DataManager::DataManager(const QString &path, bool templates, bool headerOnly)
    : PIMManager(QStringLiteral("norvika"), path, templates, headerOnly)
{
    setFormat(PIMManager::BinaryFormat);
}

DataManager::~DataManager()
{
    save();
}

PIMRecord *DataManager::createRecord()
{
    return new DataRecord(this);
}

PIMRecord *DataManager::createBlankRecord()
{
    return new DataRecord(this, PIMRecord::Blank);
}

DataRecord *DataManager::newRecord()
{
    auto *record = dataRecord(createRecord());
    for (int i = 0; i < fieldCount(); ++i)
        fillDefault(record, i);
    return record;
}

void DataManager::fillDefault(DataRecord *record, int i)
{
    FieldDef &field = m_fields[i];
    switch (field.type) {
    case FieldDef::String:
    case FieldDef::Text:
    case FieldDef::List:
        record->setStringValue(i, field.defaultValue);
        break;
    case FieldDef::MultiList:
        record->setStringValue(i, QString(field.defaultValue).replace(u';', u'\n'));
        break;
    case FieldDef::Integer:
    case FieldDef::Bool:
    case FieldDef::Count:
        record->setIntValue(i, FieldDef::truncated(field.defaultValue.toDouble()));
        break;
    case FieldDef::Double:
        record->setDoubleValue(i, field.defaultValue.toDouble());
        break;
    case FieldDef::Date:
        record->setDateValue(i, QDate::currentDate());
        break;
    case FieldDef::Time:
        record->setTimeValue(i, QTime::currentTime());
        break;
    case FieldDef::DateTime:
        record->setDateTimeValue(i, QDateTime::currentDateTime());
        break;
    case FieldDef::Memo:
        record->setMemo(field.defaultValue);
        break;
    case FieldDef::Image:
        record->setImage(field.defaultValue);
        break;
    case FieldDef::Increment: {
        // The counter moves when the record is made, so an abandoned record leaves a gap.
        const QStringList parts = field.defaultValue.split(u';');
        const int next = parts.at(0).toInt();
        const int step = parts.size() > 1 ? parts.at(1).toInt() : 0;
        record->setIntValue(i, next);
        field.defaultValue = QStringLiteral("%1;%2").arg(next + step).arg(step);
        haveChange();
        break;
    }
    default:
        break;
    }
}

QList<FieldDef> DataManager::fields() const
{
    for (int i = 0; i < m_fields.size(); ++i)
        m_fields[i].origin = i;
    return m_fields;
}

FieldDef DataManager::field(int i) const
{
    return i >= 0 && i < fieldCount() ? m_fields.at(i) : FieldDef();
}

QStringList DataManager::fieldItems(int i) const
{
    return field(i).items;
}

void DataManager::setFieldItems(int i, const QStringList &items)
{
    if (i < 0 || i >= fieldCount())
        return;
    m_fields[i].items = items;
    haveChange();
}

void DataManager::setFieldWidth(int i, int width)
{
    if (i < 0 || i >= fieldCount())
        return;
    m_fields[i].width = width;
    haveChange();
}

void DataManager::setFilters(const QList<FilterDef> &list)
{
    m_filters = list;
    haveChange();
    m_currentFilter = -1;
    refilterView();
    Q_EMIT updated();
}

void DataManager::setCurrentFilter(int index)
{
    m_currentFilter = index;
    haveChange();
    refilterView();
    Q_EMIT updated();
}

void DataManager::setAdHocFilter(const FilterDef &filter)
{
    m_adHocFilter = filter;
    setCurrentFilter(-2);
}

void DataManager::setViews(const QList<ViewDef> &list)
{
    m_views = list;
    haveChange();
    m_currentView = -1;
}

void DataManager::setCurrentView(int index)
{
    m_currentView = index;
    haveChange();
    if (index < 0 || index >= m_views.size())
        return;
    const ViewDef &view = m_views.at(index);
    setSort(view.sort, view.ascending);
    for (int i = 0; i < m_filters.size(); ++i) {
        if (m_filters.at(i).uuidString() == view.filter) {
            setCurrentFilter(i);
            return;
        }
    }
}

QList<int> DataManager::currentColumns() const
{
    if (m_currentView >= 0 && m_currentView < m_views.size())
        return m_views.at(m_currentView).columns;
    QList<int> all;
    for (int i = 0; i < fieldCount(); ++i)
        all << i;
    return all;
}

const FilterDef *DataManager::activeFilter() const
{
    if (m_currentFilter == -2)
        return &m_adHocFilter;
    if (m_currentFilter < 0 || m_currentFilter >= m_filters.size())
        return nullptr;
    return &m_filters.at(m_currentFilter);
}

bool DataManager::accept(PIMRecord *record)
{
    if (m_pass)
        return m_pass->accept(*dataRecord(record));
    const FilterDef *filter = activeFilter();
    return !filter || filter->accept(*dataRecord(record), m_fields);
}

// The matcher lives for one pass only, so no change of filter or schema can outdate it.
void DataManager::beginAcceptPass()
{
    if (const FilterDef *filter = activeFilter())
        m_pass.emplace(filter->conditions, m_fields);
}

void DataManager::endAcceptPass()
{
    m_pass.reset();
}

void DataManager::setDescription(const QString &description)
{
    m_description = description;
    haveChange();
}

void DataManager::setIcon(const QString &icon)
{
    m_icon = icon;
    haveChange();
}

void DataManager::setPassword(const QString &password)
{
    m_password = password;
    haveChange();
}

// Schema changes

void DataManager::setFields(const QList<FieldDef> &list, bool installOnly)
{
    if (installOnly) {
        m_fields = list;
        haveChange();
        return;
    }
    const QList<int> map = originMap(list);
    remapViews(map);
    remapFilters(map);
    restructureRecords(map, list);
    m_fields = list;
    rewriteFormulas(map);
    updateCalculationOrder();
    recalculateAll();
    moveSortColumn(map);
    haveChange();
}

// map[i] is the new position of old field i, or -1 if it went away. An entry made after
// the last hand-out (origin -1) pairs with nothing.
QList<int> DataManager::originMap(const QList<FieldDef> &list) const
{
    QList<int> map(m_fields.size(), -1);
    for (int i = 0; i < m_fields.size(); ++i) {
        const int origin = m_fields.at(i).origin;
        if (origin == -1)
            continue;
        for (int j = 0; j < list.size(); ++j) {
            if (list.at(j).origin == origin)
                map[i] = j;
        }
    }
    return map;
}

void DataManager::remapViews(const QList<int> &map)
{
    for (ViewDef &view : m_views)
        view.remapFields(map);
}

// A filter that tests a field which went away no longer means what it did: it goes.
void DataManager::remapFilters(const QList<int> &map)
{
    QList<FilterDef> kept;
    for (FilterDef filter : std::as_const(m_filters)) {
        if (filter.remapFields(map))
            kept.append(filter);
    }
    m_filters = kept;
}

void DataManager::restructureRecords(const QList<int> &map, const QList<FieldDef> &list)
{
    forgetSortedOrder();
    for (PIMRecord *record : records())
        dataRecord(record)->restructure(map, m_fields, list);
}

void DataManager::rewriteFormulas(const QList<int> &map)
{
    for (FieldDef &field : m_fields) {
        if (field.isCalculated())
            field.formula = FormulaReferences::renumber(field.formula, map);
    }
}

// Orders the calculated fields so that each comes after the fields it needs. Passes repeat
// while they make progress; what is left is in or behind a cycle and is never calculated.
void DataManager::updateCalculationOrder()
{
    QList<int> pending;
    for (int i = 0; i < fieldCount(); ++i) {
        if (m_fields.at(i).isCalculated())
            pending.append(i);
    }
    QList<bool> done(fieldCount(), false);
    QStringList order;
    bool usesPrevious = false;
    bool progress = true;
    while (!pending.isEmpty() && progress) {
        progress = false;
        for (qsizetype k = 0; k < pending.size();) {
            const int n = pending.at(k);
            bool ready = true;
            for (int ref : FormulaReferences::dependencies(m_fields.at(n).formula, &usesPrevious)) {
                if (ref != n && ref < fieldCount() && m_fields.at(ref).isCalculated()
                    && !done.at(ref))
                    ready = false;
            }
            if (!ready) {
                ++k;
                continue;
            }
            done[n] = true;
            order.append(QString::number(n));
            pending.removeAt(k);
            progress = true;
        }
    }
    for (int n : pending)
        qDebug("Bad formula (%s)", qUtf8Printable(m_fields.at(n).formula));
    if (order.isEmpty()) {
        removeProperty(QStringLiteral("fs"));
        removeProperty(QStringLiteral("fr"));
    } else {
        setProperty(QStringLiteral("fs"), order.join(u';'));
        setProperty(QStringLiteral("fr"), usesPrevious ? QStringLiteral("1") : QStringLiteral("0"));
    }
}

void DataManager::moveSortColumn(const QList<int> &map)
{
    const int column = sortColumn();
    if (column < 0)
        return;
    const int moved = column < map.size() ? map.at(column) : -1;
    if (moved != column)
        sort(moved);
}

// Calculation

void DataManager::recalculate(DataRecord *record, bool touch)
{
    if (!hasProperty(QStringLiteral("fs")))
        return;
    DataRecord *rec = record ? record : dataRecord(first());
    if (!rec)
        return;
    const bool walk = property(QStringLiteral("fr")) == QLatin1String("1") || !record;
    QList<int> order;
    for (const QString &part : property(QStringLiteral("fs")).split(u';', Qt::SkipEmptyParts))
        order.append(part.toInt());

    qsizetype index = 0;
    const DataRecord *previous = nullptr;
    if (walk) {
        index = records().indexOf(rec);
        if (index < 0) {
            // A record being added follows the last one of the store.
            previous = dataRecord(last());
            index = count();
        } else if (index > 0) {
            previous = dataRecord(records().at(index - 1));
        }
    }
    forgetSortedOrder();
    FormulaEvaluator evaluator;
    for (bool firstInRun = true;; firstInRun = false) {
        calculate(evaluator, rec, previous, walk && index == 0, order);
        if (!firstInRun && touch) {
            rec->setUpdated(QDateTime::currentDateTime());
            Q_EMIT taskUpdated(rec);
        }
        if (!walk || ++index >= count())
            return;
        previous = rec;
        rec = dataRecord(records().at(index));
    }
}

// On the first record of a walk there is no previous record: a formula that needs one
// keeps the value the field had.
void DataManager::calculate(FormulaEvaluator &evaluator, DataRecord *record,
    const DataRecord *previous, bool firstOfWalk, const QList<int> &order)
{
    for (int n : order) {
        if (n < 0 || n >= fieldCount())
            continue;
        const QString &formula = m_fields.at(n).formula;
        if (firstOfWalk && formula.contains(QLatin1String("!]")))
            continue;
        bool ok = false;
        double value = evaluator.evaluate(formula, &ok, record, previous);
        if (!ok) {
            qDebug("calculated failed");
            value = 0;
        }
        record->setDoubleValue(n, value);
    }
}

void DataManager::recalculateAll()
{
    recalculate(nullptr, false);
    save();
    Q_EMIT updated();
}

// Alarms

QByteArray DataManager::alarmMessage(const PIMRecord *record)
{
    return QByteArrayLiteral("alarm(QDateTime,int)") + record->uidString().toLatin1();
}

bool DataManager::futureReminder(const DataRecord *record)
{
    return record->hasReminder() && record->reminder()->dateTime > QDateTime::currentDateTime();
}

void DataManager::addAlarm(const DataRecord *record)
{
    AlarmServer::addAlarm(record->reminder()->dateTime, alarmChannel, alarmMessage(record), 0);
}

void DataManager::deleteAlarm(const DataRecord *record)
{
    AlarmServer::deleteAlarm(record->reminder()->dateTime, alarmChannel, alarmMessage(record), 0);
}

void DataManager::recordAdding(PIMRecord *record)
{
    DataRecord *rec = dataRecord(record);
    if (futureReminder(rec))
        addAlarm(rec);
    recalculate(rec, true);
}

// Old is null when the record merely moved up after a removal: its alarm stays as it is.
void DataManager::recordUpdated(PIMRecord *old, PIMRecord *record)
{
    DataRecord *rec = dataRecord(record);
    if (old) {
        if (dataRecord(old)->hasReminder())
            deleteAlarm(dataRecord(old));
        if (futureReminder(rec))
            addAlarm(rec);
    }
    recalculate(rec, true);
}

void DataManager::recordRemoving(PIMRecord *record)
{
    const DataRecord *rec = dataRecord(record);
    if (rec->hasReminder())
        deleteAlarm(rec);
}

// Sorting

// A record's slots lie a pointer away from it: both are asked for a few records ahead.
void DataManager::prepareSort()
{
    const QList<PIMRecord *> &records = view();
    const qsizetype n = records.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (i + 8 < n)
            __builtin_prefetch(records.at(i + 8));
        if (i + 4 < n)
            dataRecord(records.at(i + 4))->prefetchValues();
        makeSortKeys(records.at(i));
    }
}

void DataManager::makeSortKeys(PIMRecord *record)
{
    const int column = sortColumn();
    if (column < 0 || column >= fieldCount())
        return;
    record->setSortKey(sortKey(dataRecord(record), column));
}

QString DataManager::sortKey(const DataRecord *record, int column) const
{
    switch (m_fields.at(column).type) {
    case FieldDef::Double:
        return FieldDef::doubleSortKey(record->doubleValue(column));
    case FieldDef::Date:
        return FieldDef::dateSortKey(record->dateValue(column));
    case FieldDef::Time:
        return FieldDef::timeSortKey(record->timeValue(column));
    case FieldDef::DateTime:
        return FieldDef::dateTimeSortKey(record->dateTimeValue(column));
    case FieldDef::Memo:
        return FieldDef::flagSortKey(!record->memo().isEmpty());
    case FieldDef::Reminder:
        return FieldDef::flagSortKey(record->hasReminder());
    case FieldDef::Image:
        return FieldDef::flagSortKey(record->hasImage());
    default:
        if (FieldDef::family(m_fields.at(column).type) == FieldDef::NumberFamily)
            return FieldDef::integerSortKey(record->intValue(column));
        return record->stringValue(column);
    }
}

bool DataManager::sortKeysChanged(PIMRecord *old, PIMRecord *record)
{
    const int column = sortColumn();
    if (column < 0 || column >= fieldCount())
        return false;
    if (!old)
        return true;
    return sortValueChanged(dataRecord(old), dataRecord(record), column);
}

bool DataManager::sortValueChanged(
    const DataRecord *old, const DataRecord *record, int column) const
{
    switch (FieldDef::family(m_fields.at(column).type)) {
    case FieldDef::TextFamily:
        return old->stringValue(column) != record->stringValue(column);
    case FieldDef::NumberFamily:
        return old->doubleValue(column) != record->doubleValue(column);
    case FieldDef::DateFamily:
        return old->dateValue(column) != record->dateValue(column);
    case FieldDef::TimeFamily:
        return old->timeValue(column) != record->timeValue(column);
    case FieldDef::DateTimeFamily:
        return old->dateTimeValue(column) != record->dateTimeValue(column);
    case FieldDef::NoSlot:
        break;
    }
    switch (m_fields.at(column).type) {
    case FieldDef::Memo:
        return old->memo().isEmpty() != record->memo().isEmpty();
    case FieldDef::Reminder:
        return old->hasReminder() != record->hasReminder();
    default:
        return old->hasImage() != record->hasImage();
    }
}

// The card file's header

void DataManager::writeHeader(QDataStream &stream) const
{
    PIMManager::writeHeader(stream);
    stream << m_description << m_icon << PasswordMask::scramble(m_password);
    stream << qint32(m_fields.size());
    for (const FieldDef &field : m_fields)
        field.write(stream);
    stream << qint32(m_filters.size());
    for (const FilterDef &filter : m_filters)
        filter.write(stream);
    // A find is not kept.
    stream << qint32(m_currentFilter == -2 ? -1 : m_currentFilter);
    stream << qint32(m_views.size());
    for (const ViewDef &view : m_views)
        view.write(stream);
    stream << qint32(m_currentView);
}

void DataManager::readHeader(QDataStream &stream)
{
    PIMManager::readHeader(stream);
    QString masked;
    stream >> m_description >> m_icon >> masked;
    m_password = PasswordMask::unscramble(masked);
    if (!::BinaryFormat::ok(stream) || !readFields(stream) || !readFilters(stream))
        return;
    qint32 filter = -1;
    stream >> filter;
    m_currentFilter = filter;
    if (!::BinaryFormat::ok(stream) || !readViews(stream))
        return;
    qint32 view = -1;
    stream >> view;
    m_currentView = view;
}

bool DataManager::readFields(QDataStream &stream)
{
    qint32 count = 0;
    stream >> count;
    if (!::BinaryFormat::ok(stream) || !::BinaryFormat::countFits(stream, count, minFieldBytes))
        return false;
    for (qint32 i = 0; i < count; ++i) {
        FieldDef field;
        if (!field.read(stream))
            return false;
        m_fields.append(field);
    }
    return true;
}

bool DataManager::readFilters(QDataStream &stream)
{
    qint32 count = 0;
    stream >> count;
    if (!::BinaryFormat::ok(stream)
        || !::BinaryFormat::countFits(stream, count, FilterDef::minStoredSize))
        return false;
    for (qint32 i = 0; i < count; ++i) {
        FilterDef filter;
        if (!filter.read(stream))
            return false;
        m_filters.append(filter);
    }
    return true;
}

bool DataManager::readViews(QDataStream &stream)
{
    qint32 count = 0;
    stream >> count;
    if (!::BinaryFormat::ok(stream)
        || !::BinaryFormat::countFits(stream, count, ViewDef::minStoredSize))
        return false;
    for (qint32 i = 0; i < count; ++i) {
        ViewDef view;
        if (!view.read(stream))
            return false;
        m_views.append(view);
    }
    return true;
}

void DataManager::resetHeader()
{
    PIMManager::resetHeader();
    m_fields.clear();
    m_filters.clear();
    m_views.clear();
    m_currentFilter = -1;
    m_currentView = -1;
    m_description = QString();
    m_icon = QString();
    m_password = QString();
}
