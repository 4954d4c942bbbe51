#ifndef VIEWLISTDIALOG_H
#define VIEWLISTDIALOG_H

#include "views/namedlistdialog.h"

// The list of a card's views.
class ViewListDialog : public NamedListDialog
{
    Q_OBJECT

public:
    explicit ViewListDialog(
        DataManager *manager, QWidget *parent = nullptr, const char *name = nullptr);
    ~ViewListDialog() override;

protected:
    QStringList titles() const override;
    void reorder(const QList<int> &positions) override;
    void makeCurrent(int index) override;
    bool edit(int index) override;
    QString removeQuestion(const QString &title) const override;
};

#endif
