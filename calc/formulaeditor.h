#ifndef FORMULAEDITOR_H
#define FORMULAEDITOR_H

#include "calc/formulaeditorbase.h"
#include "card/fielddef.h"

#include <QList>

class DataRecord;
class QListWidgetItem;

// Edits the formula of a calculated field with field titles in place of field numbers,
// and shows its value on a record while the user types.
class FormulaEditor : public FormulaEditorBase
{
    Q_OBJECT

public:
    FormulaEditor(const QString &formula, const QList<FieldDef> &fields, const QString &title,
        QWidget *parent = nullptr);

    // The stored form of the text, after acceptance.
    QString formula() const;
    // The records the preview reads: record is the current one, previous the one before it.
    // Either may be null; both stay borrowed for the life of the dialog.
    void setPreviewRecords(const DataRecord *record, const DataRecord *previous);

    // The thirteen entries of the functions list, in order.
    static QStringList functionNames();

public Q_SLOTS:
    void insertFunction(const QString &text);
    void insertField(QListWidgetItem *item);
    void clear();
    // Asks first when the user's changes would be lost.
    void reject() override;

private:
    void updatePreview();

    QList<FieldDef> m_fields;
    QString m_opened;
    const DataRecord *m_record = nullptr;
    const DataRecord *m_previous = nullptr;
};

#endif
