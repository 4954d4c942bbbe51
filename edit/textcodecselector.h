#ifndef TEXTCODECSELECTOR_H
#define TEXTCODECSELECTOR_H

#include "lib/qt/mlcombobox.h"

#include <QList>

class QTextCodec;

// A choice of the toolkit's text codecs. Entry 0, "Plain Text", stands for no codec (the
// stream's own conversion); entry n is codecForIndex(n), the codecs being in the order of
// their names, which is what the import and export settings store.
class TextCodecSelector : public MLComboBox
{
    Q_OBJECT

public:
    explicit TextCodecSelector(QWidget *parent = nullptr);

    // The chosen codec, or null for "Plain Text".
    QTextCodec *codec() const;
    // The name of the chosen codec as shown, "Plain Text" for none.
    QString codecName() const { return currentText(); }
    // Chooses the codec of that name (or one of its aliases), "Plain Text" for an empty
    // name; false if there is none.
    bool setCodecName(const QString &name);

    // The codecs offered, in entry order (entry n holds codecs().at(n - 1)).
    static QList<QTextCodec *> codecs();
    // The codec of entry index; null for 0 and for an index past the entries.
    static QTextCodec *codecForIndex(int index);
};

#endif
