#include "calc/formulaeditorbase.h"

#include "app/resourceicons.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

FormulaEditorBase::FormulaEditorBase(QWidget *parent)
    : QDialog(parent)
    , fm(new QPlainTextEdit(this))
    , preview(new QLabel(this))
    , functions(new QListWidget(this))
    , fields(new QListWidget(this))
    , cr(new QRadioButton(tr("Current Record"), this))
    , pr(new QRadioButton(tr("Previous Record"), this))
    , btnClear(new QPushButton(tr("Clear"), this))
{
    setModal(true);
    setWindowTitle(tr("Formula Editor"));
    fm->setObjectName(QStringLiteral("fm"));
    preview->setObjectName(QStringLiteral("preview"));
    functions->setObjectName(QStringLiteral("functions"));
    fields->setObjectName(QStringLiteral("fields"));
    cr->setObjectName(QStringLiteral("cr"));
    pr->setObjectName(QStringLiteral("pr"));
    btnClear->setObjectName(QStringLiteral("btnClear"));
    cr->setChecked(true);

    // Four lines of text, plus the frame and margins.
    const QFontMetrics metrics(fm->font());
    fm->setFixedHeight(metrics.lineSpacing() * 4 + 2 * (fm->frameWidth() + 4));

    auto *buttons = new QDialogButtonBox(this);
    btnOk = buttons->addButton(QDialogButtonBox::Ok);
    btnCancel = buttons->addButton(QDialogButtonBox::Cancel);
    btnOk->setObjectName(QStringLiteral("btnOk"));
    btnCancel->setObjectName(QStringLiteral("btnCancel"));
    btnOk->setIcon(loadIconSet(QStringLiteral("button_ok")));
    btnCancel->setIcon(loadIconSet(QStringLiteral("button_cancel")));

    auto *lists = new QHBoxLayout;
    lists->addWidget(listColumn(tr("Functions:"), functions));
    lists->addWidget(listColumn(tr("Fields:"), fields));
    auto *record = new QHBoxLayout;
    record->addWidget(cr);
    record->addWidget(pr);
    record->addStretch();
    record->addWidget(btnClear);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fm);
    layout->addWidget(preview);
    layout->addLayout(lists, 1);
    layout->addLayout(record);
    layout->addWidget(buttons);
}

QWidget *FormulaEditorBase::listColumn(const QString &caption, QListWidget *list)
{
    auto *column = new QWidget(this);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(caption, column));
    layout->addWidget(list);
    return column;
}
