#include "exchange/importpreviewpages.h"

#include <QLabel>
#include <QProgressBar>
#include <QTreeWidget>
#include <QVBoxLayout>

ImportPreviewPages::ImportPreviewPages(
    QTreeWidget *list, QLabel *status, QProgressBar *pr, QWidget *parent)
    : QStackedWidget(parent)
{
    list->setObjectName(QStringLiteral("list"));
    pr->setObjectName(QStringLiteral("pr"));
    list->setRootIsDecorated(false);
    auto *progress = new QWidget(this);
    auto *progressLayout = new QVBoxLayout(progress);
    progressLayout->addStretch();
    progressLayout->addWidget(status);
    progressLayout->addWidget(pr);
    progressLayout->addStretch();
    addWidget(list);
    addWidget(progress);
}
