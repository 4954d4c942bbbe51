#ifndef FORMATEDITOR_H
#define FORMATEDITOR_H

#include <QDialog>
#include <QString>
#include <QStringList>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// What the format code editors share: a line edit for the code, the user's own list of
// codes kept in a data list file, buttons to add, update and remove codes, and a preview of
// the code. The list is written back whenever the dialog closes, accepted or not, so codes
// the user added stay for all cards. A subclass builds its form, hands its widgets to
// attach() and draws the preview.
class FormatEditor : public QDialog
{
    Q_OBJECT

public:
    // The code of the line edit.
    QString format() const;

public Q_SLOTS:
    // The edit takes the text of the item the user chose.
    void itemSelected(const QString &text);
    void formatChanged();
    void addItem();
    // Replaces the current item's text by the code. Not named update(), which would hide
    // the widget's own repaint slot.
    void updateItem();
    // Asks first.
    void removeItem();

    void done(int result) override;

protected:
    // The widgets of the subclass's form that the common behaviour drives.
    struct Parts {
        QLineEdit *edit;
        QListWidget *list;
        QPushButton *btnAdd;
        QPushButton *btnUpdate;
        QPushButton *btnRemove;
        QPushButton *btnOk;
        QPushButton *btnCancel;
        QLabel *example;
    };

    // listName is the data list file: "numberformat", "dateFormat", "timeFormat" or
    // "dateTimeFormat".
    FormatEditor(const QString &listName, QWidget *parent);

    // Connects the form and loads the list, making format current (appended when the list
    // lacks it). Called once the subclass can draw its preview.
    void attach(const Parts &parts, const QString &format);
    // The text the code makes of the subclass's example.
    virtual QString preview(const QString &code) const = 0;
    void redrawPreview();

private:
    QStringList items() const;
    int indexOf(const QString &text) const;
    void setCurrentQuietly(int row);
    void setAddUpdate(bool add, bool update);
    void afterChange();

    QString m_listName;
    Parts m_parts {};
};

#endif
