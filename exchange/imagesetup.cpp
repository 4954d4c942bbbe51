#include "exchange/imagesetup.h"

#include "ui_imagesetupbase.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "exchange/qchoosepixmap.h"
#include "platform/config.h"
#include "platform/global.h"
#include "store/mrlpim.h"

#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QTransform>

namespace
{
constexpr int pathRole = Qt::UserRole;
constexpr int fullSize = 100;
} // namespace

ImageSetup::ImageSetup(const QString &path, QWidget *parent, const char *name)
    : QDialog(parent)
    , ui(std::make_unique<Ui::ImageSetupBase>())
    , m_path(path)
{
    ui->setupUi(this);
    setObjectName(QString::fromLatin1(name));
    ui->btnRotate->setIcon(loadIconSet(QStringLiteral("rotate")));
    ui->btnReload->setIcon(loadIconSet(QStringLiteral("reload")));
    ui->btnOpen->setIcon(loadIconSet(QStringLiteral("fileopen")));
    ui->btnOpen->setText(ui->btnOpen->text() + QStringLiteral(" ..."));

    Config config(MRLPIM::applicationName());
    config.setGroup(QStringLiteral("Options"));
    ui->images->setAlternatingRowColors(config.readNumEntry(QStringLiteral("colormode"), 1) != 0);

    // A picture given from outside the documents is still offered.
    if (!path.isEmpty() && QFileInfo(path).isFile())
        m_collected << path;

    connect(ui->images, &QListWidget::currentRowChanged, this, &ImageSetup::imageSelected);
    connect(ui->btnReload, &QPushButton::clicked, this, &ImageSetup::reload);
    connect(ui->btnOpen, &QPushButton::clicked, this, &ImageSetup::open);
    connect(ui->btnRotate, &QToolButton::clicked, this, &ImageSetup::rotate);
    connect(ui->slider, &QSlider::valueChanged, this, &ImageSetup::zoom);
    connect(ui->spin, &QSpinBox::valueChanged, this, &ImageSetup::zoom);

    reload();
}

ImageSetup::~ImageSetup() = default;

int ImageSetup::zoomValue() const
{
    return ui->spin->value();
}

void ImageSetup::reload()
{
    QStringList paths = Global::findDocuments(QStringLiteral("image/*"));
    for (const QString &collected : std::as_const(m_collected)) {
        if (!paths.contains(collected))
            paths << collected;
    }
    const QSignalBlocker blocker(ui->images);
    ui->images->clear();
    const QIcon icon = loadIconSet(QStringLiteral("image"));
    for (const QString &file : std::as_const(paths)) {
        auto *item = new QListWidgetItem(icon, QFileInfo(file).fileName(), ui->images);
        item->setData(pathRole, file);
        item->setToolTip(file);
    }
    selectPath(m_path);
}

void ImageSetup::selectPath(const QString &path)
{
    for (int row = 0; row < ui->images->count(); ++row) {
        if (ui->images->item(row)->data(pathRole).toString() == path) {
            ui->images->setCurrentRow(row);
            imageSelected(row);
            return;
        }
    }
}

void ImageSetup::imageSelected(int row)
{
    const QListWidgetItem *item = ui->images->item(row);
    if (!item)
        return;
    m_path = item->data(pathRole).toString();
    m_loaded = QPixmap(m_path);
    // A new picture starts as it is in its file.
    m_angle = 0;
    zoom(fullSize);
}

void ImageSetup::open()
{
    const QString chosen = qChoosePixmap(this);
    if (chosen.isNull())
        return;
    if (!m_collected.contains(chosen))
        m_collected << chosen;
    m_path = chosen;
    reload();
    ui->tabs->setCurrentWidget(ui->previewPage);
}

void ImageSetup::rotate()
{
    m_angle += 90;
    if (m_angle == 360)
        m_angle = 0;
    updatePreview();
}

void ImageSetup::zoom(int value)
{
    {
        const QSignalBlocker sliderBlocker(ui->slider);
        const QSignalBlocker spinBlocker(ui->spin);
        ui->slider->setValue(value);
        ui->spin->setValue(value);
    }
    updatePreview();
}

void ImageSetup::updatePreview()
{
    const int value = ui->spin->value();
    if (value == fullSize) {
        m_current = m_loaded;
    } else {
        const QImage image = m_loaded.toImage();
        m_current = QPixmap::fromImage(image.scaled(image.width() * value / fullSize,
            image.height() * value / fullSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    if (m_angle != 0)
        m_current = m_current.transformed(QTransform().rotate(m_angle));
    ui->preview->setPixmap(m_current);
}

void ImageSetup::accept()
{
    if (m_angle != 0 || ui->spin->value() != fullSize)
        saveChanges();
    QDialog::accept();
}

void ImageSetup::saveChanges()
{
    const int answer = MRLDialog::ask(tr("Save Image"),
        tr("Do you really want to replace\nthe original image with your changes?"),
        QStringLiteral("saveas2"), tr("Replace"), QStringLiteral("filesaveas"), tr("Cancel"),
        QStringLiteral("button_cancel"));
    if (answer != 1)
        return;
    const QByteArray format = QImageReader::imageFormat(m_path);
    if (m_current.isNull()
        || !m_current.save(m_path, format.isEmpty() ? nullptr : format.constData()))
        MRLDialog::warning(tr("Save Image"), tr("The image could not be saved to\n%1").arg(m_path));
}
