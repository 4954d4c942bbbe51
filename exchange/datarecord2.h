#ifndef DATARECORD2_H
#define DATARECORD2_H

#include "reminders/reminder.h"
#include "store/pimrecord.h"

#include <QString>

#include <memory>

// One record of an older card, read only. The values stood in the record's properties
// under the field's index ("0", "1", ...) in their text forms; memo, image and reminder
// had keys of their own.
class DataRecord2 : public PIMRecord
{
public:
    explicit DataRecord2(PIMManager *manager)
        : PIMRecord(manager)
    {
    }

    QString value(int field) const { return property(QString::number(field)); }
    QString memo() const { return m_memo; }
    QString image() const { return m_image; }
    const Reminder *reminder() const { return m_reminder.get(); }

    void readField(const QString &key, const QStringList &tokens, QTextStream &stream) override;

private:
    QString m_memo;
    QString m_image;
    std::unique_ptr<Reminder> m_reminder;
};

#endif
