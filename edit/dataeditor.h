#ifndef DATAEDITOR_H
#define DATAEDITOR_H

#include <QByteArray>
#include <QDialog>

class DataManager;
class DataRecord;
class DataScrollView;
class MLSpinBox;
class MLTabWidget;
class QAction;
class QPlainTextEdit;
class ReminderEditor;

// The record editor: the form of one record of the open card, with the card's memo and
// reminder on tabs of their own, and a navigator at the foot that moves through the
// records of the store (not the filtered view), saving the record on screen at every move.
// The record on screen belongs to the dialog until it has been saved.
class DataEditor : public QDialog
{
    Q_OBJECT

public:
    enum Page { RecordPage = 0, MemoPage = 1, ReminderPage = 2 };

    explicit DataEditor(DataManager *manager, QWidget *parent = nullptr);
    ~DataEditor() override;

    // Builds the dialog for record (taken over when it is not in the store), shows page
    // and runs it; on acceptance the widgets are written to the record and it is saved.
    int run(DataRecord *record, int page = RecordPage);

    // The record on screen; null once the last record was removed.
    DataRecord *record() const { return m_record; }
    MLTabWidget *tabs() const { return m_tabs; }
    DataScrollView *form() const { return m_form; }

public Q_SLOTS:
    void accept() override;
    void reject() override;

    void doNew();
    void doClone();
    void doDelete();
    void doBack();
    void doForward();
    void doStart();
    void doEnd();
    void recordSelected(int position);

    void calculateValue();
    void editList();
    void editMultiList();

private:
    void build(int page);
    void buildForm();
    void buildTabs(bool memo, bool reminder);
    QWidget *buildNavigator();
    QAction *addNavigatorAction(QWidget *bar, const QString &name, const QString &icon,
        const QString &text, void (DataEditor::*slot)());
    void showPage(int page);
    // The record as the widgets show it, in its stored form: what a change is measured by.
    QByteArray shownState() const;
    // Whether the user agrees to lose what a rejection would throw away.
    bool mayDiscard() const;

    void load();
    void store();
    void saveRecord();
    // The index of the record on screen in the store; the store's count for one not in it.
    int position() const;
    // Saves the record on screen, then shows the record at index of the store.
    void moveTo(int index);
    void updateNavigator();
    QString captionText() const;
    int fieldOfSender() const;

    DataManager *m_manager;
    DataRecord *m_record = nullptr;
    DataRecord *m_backup = nullptr;
    MLTabWidget *m_tabs = nullptr;
    QPlainTextEdit *m_memo = nullptr;
    ReminderEditor *m_reminder = nullptr;
    DataScrollView *m_form = nullptr;
    MLSpinBox *m_position = nullptr;
    QByteArray m_loadedState;
};

#endif
