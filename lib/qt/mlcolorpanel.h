#ifndef MLCOLORPANEL_H
#define MLCOLORPANEL_H

#include <QColor>
#include <QFrame>
#include <QList>

class QGridLayout;
class QToolButton;

// A pop-up grid of colours to pick from. Its kind chooses the colours: 0 text colours,
// 1 text colours and "No Color" (for lines that may be switched off), 2 background colours.
// "Other ..." opens the colour dialog for any colour.
class MLColorPanel : public QFrame
{
    Q_OBJECT

public:
    enum Kind { TextColors = 0, OptionalColors = 1, BackgroundColors = 2 };

    explicit MLColorPanel(int kind, const QColor &current, QWidget *parent = nullptr);

    int kind() const { return m_kind; }
    QColor current() const { return m_current; }
    // The colours of the grid for a kind, row by row.
    static QList<QColor> colors(int kind);
    // A square swatch of color; an invalid colour shows crossed out.
    static QPixmap swatch(const QColor &color, int size);

Q_SIGNALS:
    // The colour chosen; an invalid colour for "No Color".
    void activated(const QColor &color);

private:
    QToolButton *addSwatch(QGridLayout *grid, const QColor &color, int index);
    void choose(const QColor &color);
    void chooseOther();

    int m_kind;
    QColor m_current;
};

#endif
