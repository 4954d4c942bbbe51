#ifndef DATEFORMATSELECTOR_H
#define DATEFORMATSELECTOR_H

#include <QWidget>

class MLComboBox;
class QToolButton;

// A choice of date format code from one of the user's lists ("dateFormat", "timeFormat" or
// "dateTimeFormat"), with a button that opens the format editor on the list. changed()
// reports a new choice.
class DateFormatSelector : public QWidget
{
    Q_OBJECT

public:
    explicit DateFormatSelector(
        QWidget *parent = nullptr, const QString &listName = QStringLiteral("dateFormat"));

    // The code chosen; empty when the list is empty.
    QString format() const;
    // Chooses code; one that isn't in the list is shown as well, at its end. An empty code
    // chooses the first of the list.
    void setFormat(const QString &code);

public Q_SLOTS:
    // Runs the format editor on the present code and takes the code it ends with.
    void edit();

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void activated(int index);

private:
    void reload();
    void addCode(const QString &code);

    QString m_listName;
    MLComboBox *m_combo;
    QToolButton *m_button;
    QString m_format;
};

#endif
