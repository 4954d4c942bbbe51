#include "edit/directoryselector.h"

#include "app/resourceicons.h"
#include "platform/platformpaths.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

DirectorySelector::DirectorySelector(QWidget *parent)
    : QWidget(parent)
    , m_edit(new QLineEdit(this))
    , m_button(new QToolButton(this))
{
    m_edit->setObjectName(QStringLiteral("path"));
    m_button->setObjectName(QStringLiteral("btnPlaces"));
    m_button->setIcon(loadIconSet(QStringLiteral("fileopen")));
    m_button->setToolTip(tr("Places"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_button);
    setFocusProxy(m_edit);
    connect(m_edit, &QLineEdit::editingFinished, this, &DirectorySelector::editingFinished);
    connect(m_button, &QToolButton::clicked, this, &DirectorySelector::choose);
}

QString DirectorySelector::path() const
{
    return m_edit->text();
}

void DirectorySelector::setPath(const QString &path)
{
    m_path = path;
    m_edit->setText(path);
}

QList<DirectorySelector::Place> DirectorySelector::places()
{
    const QString home
        = PlatformPaths::homeRoot().isEmpty() ? QDir::homePath() : PlatformPaths::homeRoot();
    QList<Place> list{
        {tr("Documents"), QStringLiteral("std/c07"), PlatformPaths::documentsDir()},
        {tr("Home Dir"), QStringLiteral("std/c13"), home},
        {tr("Applications Data"), QStringLiteral("std/exec"), PlatformPaths::dataDir()},
    };
    const QList<Place> cards{
        {tr("Compact Flash"), QStringLiteral("std/a01"), QStringLiteral("/mnt/cf")},
        {tr("SD Card"), QStringLiteral("std/a03"), QStringLiteral("/mnt/card")},
    };
    for (const Place &card : cards) {
        if (QFileInfo(card.path).isDir())
            list << card;
    }
    return list;
}

QMenu *DirectorySelector::placesMenu()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("places"));
    const QList<Place> offered = places();
    for (const Place &place : offered) {
        QAction *action = menu->addAction(loadIconSet(place.icon), place.label);
        const QString path = place.path;
        connect(action, &QAction::triggered, this, [this, path] { take(path); });
    }
    menu->addSeparator();
    QAction *other = menu->addAction(loadIconSet(QStringLiteral("fileopen")), tr("Other Folder ..."));
    connect(other, &QAction::triggered, this, &DirectorySelector::browse);
    return menu;
}

void DirectorySelector::choose()
{
    QMenu *menu = placesMenu();
    menu->exec(m_button->mapToGlobal(QPoint(0, m_button->height())));
    menu->deleteLater();
}

void DirectorySelector::browse()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Choose a Folder"), path());
    if (!chosen.isEmpty())
        take(QDir::toNativeSeparators(chosen));
}

void DirectorySelector::take(const QString &path)
{
    m_edit->setText(path);
    editingFinished();
}

void DirectorySelector::editingFinished()
{
    if (m_edit->text() == m_path)
        return;
    m_path = m_edit->text();
    Q_EMIT changed();
}
