#ifndef MLSELECTCOLORACTION_H
#define MLSELECTCOLORACTION_H

#include <QAction>
#include <QColor>

class MLColorPanel;

// A command that shows a colour and lets the user pick another from an MLColorPanel that
// pops up under the button showing it. The kind is the panel's (MLColorPanel::Kind); only
// kind 1 has a state without a colour.
class MLSelectColorAction : public QAction
{
    Q_OBJECT

public:
    MLSelectColorAction(int kind, const QColor &color, QObject *parent = nullptr);

    int kind() const { return m_kind; }
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    // Pops the panel up below widget; it goes when a colour is chosen or the user clicks
    // elsewhere.
    MLColorPanel *popup(QWidget *widget);

Q_SIGNALS:
    void activated(const QColor &color);

private:
    void showPanel();
    void choose(const QColor &color);

    int m_kind;
    QColor m_color;
};

#endif
