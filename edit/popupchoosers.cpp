#include "edit/popupchoosers.h"

#include "edit/popupdialog.h"
#include "lib/qt/mldateedit.h"
#include "lib/qt/mldatetimeedit.h"
#include "lib/qt/mltimeedit.h"
#include "store/mrlpim.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace
{
QString tr(const char *text)
{
    return QCoreApplication::translate("PopupChoosers", text);
}

// Moments are kept to the second: what the stores keep of them.
QTime currentTime()
{
    const QTime now = QTime::currentTime();
    return QTime(now.hour(), now.minute(), now.second());
}

QDateTime currentDateTime()
{
    return QDateTime(QDate::currentDate(), currentTime());
}

QRect windowArea(QWidget *parent)
{
    if (parent)
        return parent->window()->geometry();
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 640, 480);
}

template <class T> bool store(T &value, const T &newValue)
{
    const bool changed = !(newValue == value);
    value = newValue;
    return changed;
}

// Every chooser's value widget goes by one name, so that it can be found from outside.
template <class Editor> Editor *addEditor(PopupDialog &popup)
{
    auto *editor = new Editor(&popup);
    editor->setObjectName(QStringLiteral("editor"));
    popup.contentLayout()->addWidget(editor);
    editor->setFocus();
    return editor;
}

// "Set" takes what the editor shows, "Current" the clock as it is when pressed.
template <class T, class Shown, class Now>
bool setOrCurrent(PopupDialog &popup, const QPoint &pos, T &value, Shown shown, Now now)
{
    popup.addButton(tr("Set"), QStringLiteral("button_ok"))->setDefault(true);
    popup.addButton(tr("Current"), QStringLiteral("clock"));
    switch (popup.execAt(pos)) {
    case 1:
        return store(value, shown());
    case 2:
        return store(value, now());
    default:
        return false;
    }
}
} // namespace

bool editText(QWidget *parent, const QString &title, QString &text)
{
    PopupDialog popup(parent);
    auto *label = new QLabel(title, &popup);
    label->setObjectName(QStringLiteral("title"));
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    auto *edit = new QPlainTextEdit(text, &popup);
    edit->setObjectName(QStringLiteral("editor"));
    edit->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    popup.contentLayout()->addWidget(label);
    popup.contentLayout()->addWidget(edit, 1);
    popup.addButton(tr("Close"), QStringLiteral("button_ok"));
    edit->setFocus();
    popup.execOver(windowArea(parent));
    return store(text, edit->toPlainText());
}

bool chooseFromList(QWidget *parent, const QPoint &pos, QString &text, const QString &listName)
{
    PopupDialog popup(parent);
    auto *list = new QListWidget(&popup);
    list->setObjectName(QStringLiteral("editor"));
    list->addItems(MRLPIM::loadDataList(listName));
    const QList<QListWidgetItem *> present = list->findItems(text, Qt::MatchExactly);
    if (!present.isEmpty())
        list->setCurrentItem(present.first());
    popup.contentLayout()->addWidget(list);
    popup.addButton(tr("Cancel"), QStringLiteral("button_cancel"));

    QString chosen = text;
    const auto take = [&popup, &chosen](QListWidgetItem *item) {
        chosen = item->text();
        popup.accept();
    };
    QObject::connect(list, &QListWidget::itemClicked, &popup, take);
    QObject::connect(list, &QListWidget::itemActivated, &popup, take);
    list->setFocus();
    if (popup.execAt(pos) != QDialog::Accepted)
        return false;
    return store(text, chosen);
}

bool editReminderDateTime(QWidget *parent, const QPoint &pos, QDateTime &dateTime, bool &removed)
{
    removed = false;
    PopupDialog popup(parent);
    auto *edit = addEditor<MLDateTimeEdit>(popup);
    edit->setDateTime(dateTime.isValid() ? dateTime : currentDateTime());
    popup.addButton(tr("Remove Reminder"), QStringLiteral("button_cancel"));
    popup.addButton(tr("Set"), QStringLiteral("button_ok"))->setDefault(true);
    switch (popup.execAt(pos)) {
    case 1:
        removed = true;
        return true;
    case 2:
        return store(dateTime, edit->dateTime());
    default:
        return false;
    }
}

bool editDate(QWidget *parent, const QPoint &pos, QDate &date)
{
    PopupDialog popup(parent);
    auto *edit = addEditor<MLDateEdit>(popup);
    edit->setDate(date.isValid() ? date : QDate::currentDate());
    popup.addButton(tr("Set"), QStringLiteral("button_ok"))->setDefault(true);
    popup.addButton(tr("Today"), QStringLiteral("clock"));
    popup.addButton(tr("None"), QStringLiteral("button_cancel"));
    switch (popup.execAt(pos)) {
    case 1:
        return store(date, edit->date());
    case 2:
        return store(date, QDate::currentDate());
    case 3:
        return store(date, QDate());
    default:
        return false;
    }
}

bool editTime(QWidget *parent, const QPoint &pos, QTime &time)
{
    PopupDialog popup(parent);
    auto *edit = addEditor<MLTimeEdit>(popup);
    edit->setTime(time.isValid() ? time : currentTime());
    return setOrCurrent(
        popup, pos, time, [edit] { return edit->time(); }, currentTime);
}

bool editDateTime(QWidget *parent, const QPoint &pos, QDateTime &dateTime)
{
    PopupDialog popup(parent);
    auto *edit = addEditor<MLDateTimeEdit>(popup);
    edit->setDateTime(dateTime.isValid() ? dateTime : currentDateTime());
    return setOrCurrent(
        popup, pos, dateTime, [edit] { return edit->dateTime(); }, currentDateTime);
}
