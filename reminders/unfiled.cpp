#include "reminders/unfiled.h"

#include <QCoreApplication>

QString unfiled(bool translated)
{
    static const char word[] = QT_TRANSLATE_NOOP("Categories", "Unfiled");
    return translated ? QCoreApplication::translate("Categories", word) : QString::fromLatin1(word);
}
