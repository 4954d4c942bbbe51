#include "edit/textcodecselector.h"

#include <QTextCodec>

#include <algorithm>

TextCodecSelector::TextCodecSelector(QWidget *parent)
    : MLComboBox(false, parent)
{
    addIconItem(QStringLiteral("personal"), tr("Plain Text"));
    const QList<QTextCodec *> list = codecs();
    for (QTextCodec *codec : list)
        addIconItem(QStringLiteral("kuser"), QString::fromLatin1(codec->name()));
}

QList<QTextCodec *> TextCodecSelector::codecs()
{
    static const QList<QTextCodec *> list = [] {
        QList<QTextCodec *> found;
        const QList<int> mibs = QTextCodec::availableMibs();
        for (const int mib : mibs) {
            QTextCodec *codec = QTextCodec::codecForMib(mib);
            if (codec && !found.contains(codec))
                found << codec;
        }
        std::sort(found.begin(), found.end(), [](QTextCodec *a, QTextCodec *b) {
            return QString::compare(QString::fromLatin1(a->name()), QString::fromLatin1(b->name()),
                       Qt::CaseInsensitive)
                < 0;
        });
        return found;
    }();
    return list;
}

QTextCodec *TextCodecSelector::codecForIndex(int index)
{
    const QList<QTextCodec *> list = codecs();
    return index >= 1 && index <= list.size() ? list.at(index - 1) : nullptr;
}

QTextCodec *TextCodecSelector::codec() const
{
    return codecForIndex(currentIndex());
}

bool TextCodecSelector::setCodecName(const QString &name)
{
    if (name.isEmpty() || name == itemText(0)) {
        setCurrentIndex(0);
        return true;
    }
    QTextCodec *wanted = QTextCodec::codecForName(name.toLatin1());
    const int index = wanted ? int(codecs().indexOf(wanted)) : -1;
    if (index < 0)
        return false;
    setCurrentIndex(index + 1);
    return true;
}
