#ifndef COLORSWIDGET_H
#define COLORSWIDGET_H

#include <QWidget>

class MLSelectColorAction;
class MRLListView;
class QGridLayout;

// The options page of the record list's row colours: the text and line colours of odd and
// even lines, with a sample list that shows them. The sample is named like the record list,
// so it reads and writes the same settings, at once, with every change.
class ColorsWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ColorsWidget(QWidget *parent = nullptr);

    MRLListView *preview() const { return m_preview; }
    // b1 to b4: odd text, odd line, even text, even line.
    MLSelectColorAction *colorAction(int index) const { return m_actions[index]; }

public Q_SLOTS:
    void colorChanged();

private:
    void fillPreview();
    void addColorRow(QGridLayout *grid, int row, const QString &label, int first);

    MRLListView *m_preview;
    MLSelectColorAction *m_actions[4] = {};
};

#endif
