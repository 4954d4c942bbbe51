#ifndef FILTERLISTDIALOG_H
#define FILTERLISTDIALOG_H

#include "views/namedlistdialog.h"

// The list of a card's filters.
class FilterListDialog : public NamedListDialog
{
    Q_OBJECT

public:
    explicit FilterListDialog(
        DataManager *manager, QWidget *parent = nullptr, const char *name = nullptr);
    ~FilterListDialog() override;

protected:
    QStringList titles() const override;
    void reorder(const QList<int> &positions) override;
    void makeCurrent(int index) override;
    bool edit(int index) override;
    QString removeQuestion(const QString &title) const override;
};

#endif
