#ifndef DATETIMEFORMATEDITOR_H
#define DATETIMEFORMATEDITOR_H

#include "calc/formateditor.h"

#include <QDateTime>

#include <memory>

namespace Ui
{
class DateTimeFormatEditorBase;
} // namespace Ui

// Edits a date, time or date-time format code and the user's list of such codes. The
// preview shows the moment the dialog opened, so that it holds still while the user types.
class DateTimeFormatEditor : public FormatEditor
{
    Q_OBJECT

public:
    // key names the list: "dateFormat", "timeFormat" or "dateTimeFormat".
    DateTimeFormatEditor(const QString &key, const QString &format, QWidget *parent = nullptr);
    ~DateTimeFormatEditor() override;

protected:
    QString preview(const QString &code) const override;

private:
    std::unique_ptr<Ui::DateTimeFormatEditorBase> ui;
    const QDateTime m_opened;
};

#endif
