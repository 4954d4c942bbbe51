#ifndef DATAMANAGER_H
#define DATAMANAGER_H

#include "card/fielddef.h"
#include "store/pimmanager.h"
#include "views/filterdef.h"
#include "views/filtermatcher.h"
#include "views/viewdef.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class DataRecord;
class FormulaEvaluator;

// One open card: the record store of its file, its schema, named filters and views, its
// description, icon and password. It keeps alarms of reminders registered, calculated
// fields up to date, and restructures every record when the schema changes.
class DataManager : public PIMManager
{
    Q_OBJECT

public:
    // The channel on which the alarms of reminders come back.
    static const QByteArray alarmChannel;

    explicit DataManager(const QString &path, bool templates = false, bool headerOnly = false);
    // Saves while the header of a card can still be written.
    ~DataManager() override;

    PIMRecord *createRecord() override;
    PIMRecord *createBlankRecord() override;
    // A record filled from the field defaults, not yet added. Moves Increment counters.
    DataRecord *newRecord();

    // Schema. fields() renumbers every entry's origin to its position first, which is
    // how setFields recognises the entries of an edited copy.
    QList<FieldDef> fields() const;
    // The list as it stands, without renumbering.
    const QList<FieldDef> &fieldList() const { return m_fields; }
    int fieldCount() const { return int(m_fields.size()); }
    // The entry at i; a default FieldDef for an index out of range.
    FieldDef field(int i) const;
    // installOnly takes the list as it is, for a card without records yet. Otherwise the
    // list is an edited copy of fields(): views, filters, records, formulas, the order of
    // calculation and the sort column follow the fields to their new places.
    void setFields(const QList<FieldDef> &list, bool installOnly = false);
    QStringList fieldItems(int i) const;
    void setFieldItems(int i, const QStringList &items);
    void setFieldWidth(int i, int width);

    // Named filters. A current filter of -1 lets every record pass, -2 is the ad hoc filter
    // of a find, and an index past the list counts as none.
    QList<FilterDef> filters() const { return m_filters; }
    void setFilters(const QList<FilterDef> &list);
    int currentFilter() const { return m_currentFilter; }
    void setCurrentFilter(int index);
    FilterDef adHocFilter() const { return m_adHocFilter; }
    void setAdHocFilter(const FilterDef &filter);

    // Named views; -1 is the default view of all fields.
    QList<ViewDef> views() const { return m_views; }
    void setViews(const QList<ViewDef> &list);
    int currentView() const { return m_currentView; }
    // Applies the view's sort and selects the filter it names, if there is one.
    void setCurrentView(int index);
    // The fields the record list shows: the current view's columns, or every field.
    QList<int> currentColumns() const;

    QString description() const { return m_description; }
    void setDescription(const QString &description);
    QString icon() const { return m_icon; }
    void setIcon(const QString &icon);
    // Plain text; empty means the card is not locked.
    QString password() const { return m_password; }
    void setPassword(const QString &password);

    // Evaluates the calculated fields of record in the order of the property "fs"; with a
    // formula on the previous record ("fr" is "1") or a null record, walks on to the end.
    void recalculate(DataRecord *record, bool touch);
    void recalculateAll();

    // The message of a record's alarm: the record's UID text rides in the message name.
    static QByteArray alarmMessage(const PIMRecord *record);

protected:
    bool accept(PIMRecord *record) override;
    void beginAcceptPass() override;
    void endAcceptPass() override;
    void writeHeader(QDataStream &stream) const override;
    void readHeader(QDataStream &stream) override;
    void resetHeader() override;
    void recordAdding(PIMRecord *record) override;
    void recordUpdated(PIMRecord *old, PIMRecord *record) override;
    void recordRemoving(PIMRecord *record) override;
    void prepareSort() override;
    void makeSortKeys(PIMRecord *record) override;
    bool sortKeysChanged(PIMRecord *old, PIMRecord *record) override;

private:
    static bool futureReminder(const DataRecord *record);
    void addAlarm(const DataRecord *record);
    void deleteAlarm(const DataRecord *record);

    // The filter records must pass, or null when all pass.
    const FilterDef *activeFilter() const;
    bool readFields(QDataStream &stream);
    bool readFilters(QDataStream &stream);
    bool readViews(QDataStream &stream);
    QString sortKey(const DataRecord *record, int column) const;
    bool sortValueChanged(const DataRecord *old, const DataRecord *record, int column) const;

    void fillDefault(DataRecord *record, int i);
    QList<int> originMap(const QList<FieldDef> &list) const;
    void remapViews(const QList<int> &map);
    void remapFilters(const QList<int> &map);
    void restructureRecords(const QList<int> &map, const QList<FieldDef> &list);
    void rewriteFormulas(const QList<int> &map);
    void updateCalculationOrder();
    void moveSortColumn(const QList<int> &map);
    void calculate(FormulaEvaluator &evaluator, DataRecord *record, const DataRecord *previous,
        bool firstOfWalk, const QList<int> &order);

    mutable QList<FieldDef> m_fields;
    QList<FilterDef> m_filters;
    QList<ViewDef> m_views;
    int m_currentFilter = -1;
    int m_currentView = -1;
    FilterDef m_adHocFilter;
    std::optional<FilterMatcher> m_pass;
    QString m_description;
    QString m_icon;
    QString m_password;
};

#endif
