#ifndef MLTOOLBUTTON_H
#define MLTOOLBUTTON_H

class QPushButton;
class QString;
class QWidget;

// The icon-only push buttons beside a dialog's lists (add, remove, up, down...). They are
// never the default button, so Return still reaches the dialog's Ok.
class MLToolButton
{
public:
    static QPushButton *create(QWidget *parent, const char *name, const QString &icon);
};

#endif
