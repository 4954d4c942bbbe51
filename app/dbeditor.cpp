#include "app/dbeditor.h"

#include "app/mrlapplication.h"
#include "app/mrldialog.h"
#include "app/passworddialog.h"
#include "app/resourceicons.h"
#include "edit/directoryselector.h"
#include "lib/qt/iconviewdialog.h"
#include "platform/config.h"
#include "platform/platformpaths.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "store/mrlpim.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QToolButton>

namespace
{
const QString optionsGroup = QStringLiteral("CardOptions");
const QString defaultPathKey = QStringLiteral("defaultPath");
} // namespace

DBEditor::DBEditor(DBManager *manager, QWidget *parent)
    : DBEditorBase(parent)
    , manager(manager)
{
    lock->setIcon(loadIconSet(QStringLiteral("lock")));
    lock->setCheckable(true);
}

QString DBEditor::defaultPath()
{
    Config config(MRLPIM::applicationName());
    config.setGroup(optionsGroup);
    return config.readEntry(defaultPathKey, PlatformPaths::documentsDir());
}

int DBEditor::prepare(const DBRecord *record)
{
    m_icon = record->icon();
    m_startTitle = record->title();
    m_password = record->password();
    showIcon();
    showLock();
    title->setText(record->title());
    memo->setPlainText(record->description());
    path->setPath(record->path().isEmpty() ? defaultPath() : record->folder());
    title->setFocus();
    // Maximized by state, not by showing: a dialog already on screen would not become modal.
    setWindowState(windowState() | Qt::WindowMaximized);
    return exec();
}

QString DBEditor::cardPath() const
{
    return QDir::cleanPath(
        path->path() + QLatin1Char('/') + title->text() + QStringLiteral(".card"));
}

void DBEditor::apply(DBRecord *record) const
{
    const QString folder = QFileInfo(cardPath()).absolutePath();
    if (!manager->contains(record)) {
        Config config(MRLPIM::applicationName());
        config.setGroup(optionsGroup);
        config.writeEntry(defaultPathKey, folder);
    }
    record->setTitle(title->text());
    record->setDescription(memo->toPlainText());
    record->setIcon(m_icon);
    record->setPassword(m_password);
    record->setPath(cardPath());
}

QString DBEditor::titleProblem() const
{
    const QString text = title->text();
    if (text.isEmpty())
        return tr("Card Title cannot be empty.");
    // The title is the file's name: a "/" would put the card into another folder.
    if (text.contains(QLatin1Char('/')))
        return tr("Card Title cannot contain \"/\".");
    if (text != m_startTitle && QFileInfo::exists(cardPath()))
        return tr("Card already exists.");
    return QString();
}

void DBEditor::accept()
{
    const QString problem = titleProblem();
    if (!problem.isEmpty()) {
        MRLDialog::critical(tr("Invalid Card Title"), problem);
        return;
    }
    DBEditorBase::accept();
}

void DBEditor::selectIcon()
{
    IconViewDialog dialog(tr("Select Icon"), this);
    const QString folder = DBManager::iconDir(MRLApplication::isHighResolution());
    const QStringList entries
        = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden, QDir::Name | QDir::IgnoreCase);
    for (const QString &entry : entries) {
        const QString name = QFileInfo(entry).completeBaseName();
        const QPixmap pixmap = loadPixmap(DBManager::iconPrefix() + name);
        if (!pixmap.isNull())
            dialog.addIcon(name, pixmap);
    }
    dialog.setCurrentName(m_icon);
    if (dialog.exec() != Accepted || dialog.currentName().isNull())
        return;
    m_icon = dialog.currentName();
    showIcon();
}

// A cancelled question gives the null string, which is how a lock is removed.
void DBEditor::selectPwd()
{
    PasswordDialog dialog(true, this);
    m_password = dialog.getPassword();
    showLock();
}

void DBEditor::showIcon()
{
    icon->setIcon(QIcon(loadPixmap(DBManager::iconPrefix() + m_icon)));
}

void DBEditor::showLock()
{
    lock->setChecked(!m_password.isEmpty());
}
