#ifndef CATEGORYRECORD_H
#define CATEGORYRECORD_H

#include "store/pimrecord.h"

#include <QColor>
#include <QString>

// A named, coloured tag that records refer to by UID. The check mark is the editor's
// working state only and never reaches the file.
class CategoryRecord : public PIMRecord
{
public:
    explicit CategoryRecord(PIMManager *manager);
    CategoryRecord(const CategoryRecord &other);
    ~CategoryRecord() override;

    QString title() const override { return m_title; }
    void setTitle(const QString &title) { m_title = title; }
    bool isSelected() const { return m_selected; }
    void setSelected(bool selected) { m_selected = selected; }
    // Colours of a record's text and row in lists.
    QColor textColor() const { return m_textColor; }
    void setTextColor(const QColor &color) { m_textColor = color; }
    QColor lineColor() const { return m_lineColor; }
    void setLineColor(const QColor &color) { m_lineColor = color; }

    // The palette's Text and Base colours, which a new category starts with.
    static QColor defaultTextColor();
    static QColor defaultLineColor();

    void readField(const QString &key, const QStringList &tokens, QTextStream &stream) override;
    using PIMRecord::write;
    void write(QTextStream &stream) const override;

private:
    QString m_title;
    bool m_selected = false;
    QColor m_textColor;
    QColor m_lineColor;
};

#endif
