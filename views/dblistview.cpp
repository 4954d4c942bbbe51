#include "views/dblistview.h"

#include "app/cardpixmap.h"
#include "app/resourceicons.h"
#include "platform/config.h"
#include "store/dbmanager.h"
#include "store/dbrecord.h"
#include "views/dblistviewitem.h"

#include <QApplication>

DBListView::DBListView(QWidget *parent, const QString &name)
    : PIMListView(parent, name)
{
    addIcon(QStringLiteral("document"));
    addIcon(QStringLiteral("lock"));
    addIcon(QStringLiteral("on"));
    addIcon(QStringLiteral("off"));
    setColorMode(AlternateColors);
}

DBManager *DBListView::dbManager() const
{
    return static_cast<DBManager *>(manager());
}

QString DBListView::widthKey(int field)
{
    switch (field) {
    case TitleField:
        return QStringLiteral("title_width");
    case PathField:
        return QStringLiteral("path_width");
    default:
        return QString();
    }
}

void DBListView::addField(int field, Config *config)
{
    struct Column {
        const char *icon;
        const char *title;
    };
    static const Column columns[] = {
        { "cards", nullptr },
        { "editcopy", QT_TRANSLATE_NOOP("DBListView", "Title") },
        { "document", nullptr },
        { "lock", nullptr },
        { "fileopen", QT_TRANSLATE_NOOP("DBListView", "Directory Path") },
        { "onoff", QT_TRANSLATE_NOOP("DBListView", "Title") },
    };
    if (field < 0 || field >= int(std::size(columns)))
        return;
    const Column &def = columns[field];
    const QIcon icon = loadIconSet(QString::fromLatin1(def.icon));
    if (!def.title) {
        setColumnFitted(addColumn(icon, QString()));
        return;
    }
    const int width
        = config ? config->readNumEntry(widthKey(field), defaultWidth) : int(defaultWidth);
    addColumn(icon, tr(def.title), width);
}

void DBListView::columnResized(int section, int newWidth)
{
    const QString key = widthKey(
        section < 0 || section >= fieldColumns().size() ? -1 : fieldColumns().at(section));
    // A section that goes away with its column reports a width of 0: nothing to keep.
    if (key.isEmpty() || newWidth <= 0 || qApp->objectName().isEmpty())
        return;
    Config config(qApp->objectName());
    config.setGroup(objectName() + QStringLiteral("_columns"));
    config.writeEntry(key, newWidth);
}

DBListView::Cell DBListView::cell(const DBRecord *record, int field) const
{
    switch (field) {
    case IconField:
        return { QString(), cardPixmap(dbManager(), record) };
    case TitleField:
        return { record->title(), QPixmap() };
    case DescriptionField:
        return { QString(), icon(record->description().isEmpty() ? 0 : DocumentIcon) };
    case PasswordField:
        return { QString(), icon(record->password().isEmpty() ? 0 : LockIcon) };
    case PathField:
        return { record->folder(), QPixmap() };
    case TransferField:
        return { record->title(),
            icon(record->hasProperty(QStringLiteral("transfer")) ? TickedIcon : UntickedIcon) };
    default:
        return {};
    }
}

RecordItem *DBListView::createItem(PIMRecord *record)
{
    return new DBListViewItem(this, record);
}

RecordItem *DBListView::createItem(PIMRecord *record, RecordItem *after)
{
    return new DBListViewItem(this, record, after);
}
