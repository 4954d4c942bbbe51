#ifndef REPORTVIEWOPTIONS_H
#define REPORTVIEWOPTIONS_H

#include <QWidget>

class DataManager;
class MLComboBox;
class MLSelectColorAction;
class ReportScrollView;

// The options page of the report view: alignments and colours of its labels, values,
// lines, separator and background, stored at once with every change and shown on a sample
// card.
class ReportViewOptions : public QWidget
{
    Q_OBJECT

public:
    // The sample card's file in the application's data folder.
    static const QString sampleName;

    explicit ReportViewOptions(QWidget *parent = nullptr);
    // Saves the sample, then removes its file.
    ~ReportViewOptions() override;

    // The choosers list "Right", "Left", "New Item", "Center": stored alignment to index
    // and back. "New Item" is a leftover entry; it stands for the centre.
    static int alignIndex(int align);
    static int alignValue(int index);

    ReportScrollView *preview() const { return m_preview; }
    DataManager *sample() const { return m_sample; }
    MLComboBox *labelAlignBox() const { return m_al; }
    MLComboBox *valueAlignBox() const { return m_av; }
    // b1 to b5: labels, values, lines, separator, background.
    MLSelectColorAction *colorAction(int index) const { return m_actions[index]; }

public Q_SLOTS:
    void changed();

private:
    QWidget *createAlignment();
    QWidget *createColors();
    MLComboBox *createAlignBox(int align);
    void createSample();

    MLComboBox *m_al = nullptr;
    MLComboBox *m_av = nullptr;
    MLSelectColorAction *m_actions[5] = {};
    ReportScrollView *m_preview;
    DataManager *m_sample = nullptr;
};

#endif
