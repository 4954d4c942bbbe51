#ifndef IMPORTPREVIEWPAGES_H
#define IMPORTPREVIEWPAGES_H

#include <QStackedWidget>

class QLabel;
class QProgressBar;
class QTreeWidget;

// The lower half of a text import step: the table of the rows read, or, while a pass
// reads them, a status line over a progress bar.
class ImportPreviewPages : public QStackedWidget
{
    Q_OBJECT

public:
    ImportPreviewPages(QTreeWidget *list, QLabel *status, QProgressBar *pr, QWidget *parent);

    void showRows() { setCurrentIndex(0); }
    void showProgress() { setCurrentIndex(1); }
};

#endif
