#include "pclink/transferprogressdialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

TransferProgressDialog::TransferProgressDialog(QWidget *parent, const QPixmap &picture)
    : QDialog(parent)
    , m_status(new QLabel(this))
    , m_file(new QLabel(this))
    , m_progress(new QProgressBar(this))
{
    setWindowTitle(QApplication::applicationDisplayName());
    auto *layout = new QVBoxLayout(this);
    layout->addStretch();
    if (!picture.isNull()) {
        auto *pictureLabel = new QLabel(this);
        pictureLabel->setPixmap(picture);
        pictureLabel->setAlignment(Qt::AlignCenter);
        layout->addWidget(pictureLabel);
    }
    m_status->setAlignment(Qt::AlignCenter);
    m_file->setAlignment(Qt::AlignCenter);
    m_progress->setAlignment(Qt::AlignCenter);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(m_status);
    layout->addWidget(m_file);
    layout->addWidget(m_progress);
    layout->addStretch();
    layout->addWidget(buttons);
}

void TransferProgressDialog::progress(int done, int total)
{
    m_progress->setMaximum(total);
    m_progress->setValue(done);
}

void TransferProgressDialog::showState(const QString &status, const QString &file)
{
    m_status->setText(status);
    m_file->setText(file);
}

void TransferProgressDialog::resetProgress()
{
    m_progress->reset();
}
