#include "exchange/qchoosepixmap.h"

#include "platform/config.h"
#include "store/mrlpim.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageWriter>

namespace
{
QString tr(const char *text)
{
    return QCoreApplication::translate("qChoosePixmap", text);
}
} // namespace

QString pixmapFilter()
{
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    QStringList patterns;
    for (const QByteArray &format : formats)
        patterns << QStringLiteral("*.") + QString::fromLatin1(format).toLower();

    // The file dialog of this toolkit splits the patterns of one entry at blanks.
    QString filter = tr("All Pixmaps") + QStringLiteral(" (") + patterns.join(QLatin1Char(' '))
        + QStringLiteral(");;");
    for (qsizetype i = 0; i < formats.size(); ++i) {
        filter += tr("%1-Pixmaps (%2)")
                      .arg(QString::fromLatin1(formats.at(i)).toUpper(), patterns.at(i))
            + QStringLiteral(";;");
    }
    filter += tr("All Files") + QStringLiteral(" (*)");
    return filter;
}

QString qChoosePixmap(QWidget *parent)
{
    Config config(MRLPIM::applicationName());
    config.setGroup(QStringLiteral("Options"));
    const QString start = config.readEntry(QStringLiteral("imagesetuppath"));
    const QString chosen
        = QFileDialog::getOpenFileName(parent, tr("Choose a Picture"), start, pixmapFilter());
    if (chosen.isEmpty())
        return QString();
    config.writeEntry(QStringLiteral("imagesetuppath"), QFileInfo(chosen).absolutePath());
    return chosen;
}
