#ifndef SCROLLVIEW_H
#define SCROLLVIEW_H

#include <QScrollArea>

class QPushButton;
class QVBoxLayout;

// The scrolling form of the field editor: one row widget for each field, named by the
// field's index, with the "New Field" row always below the last of them.
class ScrollView : public QScrollArea
{
    Q_OBJECT

public:
    explicit ScrollView(QWidget *parent = nullptr);

    // The parent of the rows.
    QWidget *form() const { return m_form; }
    QPushButton *newFieldButton() const { return m_newField; }
    // Places row last, above the "New Field" row.
    void addRow(QWidget *row);
    // Takes row out of the form; it is deleted later, since its own button may have
    // started the removal.
    void removeRow(QWidget *row);
    QWidget *row(int index) const;
    int rowCount() const;
    // Places the rows one below the other in the order of their names, then names each by
    // its running number and writes that into its "label".
    void relayout();

private:
    QList<QWidget *> rowsByName() const;

    QWidget *m_form;
    QVBoxLayout *m_rows;
    QPushButton *m_newField;
};

#endif
