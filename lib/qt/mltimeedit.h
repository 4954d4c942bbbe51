#ifndef MLTIMEEDIT_H
#define MLTIMEEDIT_H

#include <QTimeEdit>

// A time editor that shows hours and minutes on the user's clock, 24 hours or AM/PM, and
// follows the clock setting when it changes. Seconds given to it are kept until edited.
class MLTimeEdit : public QTimeEdit
{
    Q_OBJECT

public:
    explicit MLTimeEdit(QWidget *parent = nullptr);

    static QString systemDisplayFormat();

private Q_SLOTS:
    void applySettings();
};

#endif
