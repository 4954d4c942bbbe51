#ifndef TRANSFERPROGRESSDIALOG_H
#define TRANSFERPROGRESSDIALOG_H

#include <QDialog>
#include <QPixmap>

class QLabel;
class QProgressBar;

// The window both ends of a transfer show: a picture if one is given, a status line, the file's
// line and a progress bar, centred, with Close to end it.
class TransferProgressDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TransferProgressDialog(QWidget *parent = nullptr, const QPixmap &picture = QPixmap());

protected Q_SLOTS:
    void progress(int done, int total);

protected:
    void showState(const QString &status, const QString &file);
    void resetProgress();

private:
    QLabel *m_status;
    QLabel *m_file;
    QProgressBar *m_progress;
};

#endif
