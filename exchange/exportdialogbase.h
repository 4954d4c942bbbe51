#ifndef EXPORTDIALOGBASE_H
#define EXPORTDIALOGBASE_H

#include <QDialog>

class DateFormatSelector;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QGridLayout;
class QLineEdit;
class TextCodecSelector;

// The form of the export options: target kind, delimiter, qualifier, codec, the three
// date formats and the multiline separator, over Ok and Cancel. On a narrow screen every
// row stands alone; on a wide one the delimiter, "Other:" and its text share a row.
class ExportDialogBase : public QDialog
{
    Q_OBJECT

public:
    explicit ExportDialogBase(QWidget *parent = nullptr);

public Q_SLOTS:
    virtual void delimiterChanged() = 0;

protected:
    QComboBox *type;
    QComboBox *delimiter;
    QCheckBox *other;
    QLineEdit *otherDelimiter;
    QComboBox *qualifier;
    TextCodecSelector *unicode;
    DateFormatSelector *dateFormat;
    DateFormatSelector *timeFormat;
    DateFormatSelector *dateTimeFormat;
    QComboBox *ml;
    QDialogButtonBox *okCancelWidget;

private:
    void layOut(bool narrow);
    void addRow(QGridLayout *grid, const QString &label, QWidget *field);
};

#endif
