#ifndef DATAMANAGER2_H
#define DATAMANAGER2_H

#include "card/fielddef.h"
#include "store/pimmanager.h"
#include "views/filterdef.h"

#include <QList>

class DBRecord2;

// An older card, a text store, read only: its records, and the filters of its header
// ("FILTERS", "CFILTER"). Values are read by the field types its list entry gives.
class DataManager2 : public PIMManager
{
    Q_OBJECT

public:
    explicit DataManager2(const DBRecord2 &entry);

    PIMRecord *createRecord() override;
    QList<FilterDef> filters() const { return m_filters; }
    int currentFilter() const { return m_currentFilter; }

    // The filters of a "FILTERS" value. Counts and lengths are bounded by the text; the
    // filter under way when the text ends early is dropped.
    static QList<FilterDef> parseFilters(const QString &text, const QList<FieldDef> &fields);

protected:
    void readHeader(const QStringList &tokens) override;
    using PIMManager::readHeader;
    void resetHeader() override;

private:
    QList<FieldDef> m_fields;
    QList<FilterDef> m_filters;
    int m_currentFilter = 0;
};

#endif
