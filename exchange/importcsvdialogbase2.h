#ifndef IMPORTCSVDIALOGBASE2_H
#define IMPORTCSVDIALOGBASE2_H

#include <QDialog>

class DateFormatSelector;
class DirectorySelector;
class ImportPreviewPages;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

// The form of the second step of the text import: the setting of the selected column
// (title, type, skip and a page of what the type needs) over a preview of the rows.
class ImportCSVDialogBase2 : public QDialog
{
    Q_OBJECT

public:
    explicit ImportCSVDialogBase2(QWidget *parent = nullptr);

    // The pages of typePages, by what the type needs.
    enum Page {
        NoPage,
        IntegerPage,
        DoublePage,
        DatePage,
        TimePage,
        DateTimePage,
        TextPage,
        BoolPage,
        ImagePage,
        MultiListPage
    };

public Q_SLOTS:
    virtual void back() = 0;
    virtual void finishSetup() = 0;
    virtual void skipChanged() = 0;
    virtual void titleChanged(const QString &text) = 0;
    virtual void columnSelected(int column) = 0;
    virtual void typeChanged(int type) = 0;

protected:
    QLineEdit *title;
    QComboBox *type;
    QCheckBox *skip;
    QStackedWidget *typePages;
    QComboBox *ths2;
    QComboBox *ths;
    QComboBox *ds;
    DateFormatSelector *dateFormat;
    DateFormatSelector *timeFormat;
    DateFormatSelector *dateTimeFormat;
    QComboBox *mlsep;
    QComboBox *boolp;
    DirectorySelector *basep;
    QComboBox *mlists;
    QTreeWidget *list;
    QLabel *status;
    QProgressBar *pr;
    ImportPreviewPages *pages; // the rows, or the progress while they load
    QPushButton *btnBack;
    QPushButton *btnOk;
    QPushButton *btnCancel;

private:
    QWidget *page(const QList<QPair<QString, QWidget *>> &rows);
};

#endif
