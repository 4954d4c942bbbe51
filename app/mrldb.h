#ifndef MRLDB_H
#define MRLDB_H

#include "app/mrlmainwindow.h"

class Config;
class AlertDialog;
class DBManager;
class DataManager;
class DataRecord;
class ListView;
class PIMListView;
class PIMManager;
class PIMRecord;
class QMenu;
class QPlainTextEdit;
class QToolButton;

// The main window: the tool bar and menus of every command, the place of the record list
// and the memo pane under it. The options it keeps are in group "Options" of the
// application's settings file.
class MRLDB : public MRLMainWindow
{
    Q_OBJECT

public:
    // The delay of the chooser or of the end after a failed opening, so that a running
    // dialog or menu closes first.
    static constexpr int deferMilliseconds = 400;
    // Posted to open the current card anew once a running dialog has closed, which is how
    // a change of its view's columns takes effect.
    enum { ReopenCardEvent = 1003 };
    // Posted to fill the filter menu anew once the command that changed the filters ends.
    enum { FilterMenuEvent = 1001 };
    // Posted to apply the sort chosen in the sort menu once the menu has closed.
    enum { SortEvent = 1002 };

    explicit MRLDB(QWidget *parent = nullptr);
    // Writes the options.
    ~MRLDB() override;

    // Where the record list goes; its font is the zoomed list font.
    QWidget *recordListPlace() const { return listPlace; }

    // Takes an opened card (the window owns it from now on) with the title of its entry,
    // binds the record list to it and enables the commands on the card and its records.
    void showCard(DataManager *card, const QString &title);

    // The one road into an open card: closes the open one, asks for the card's password,
    // loads it and shows its records. An empty path opens the first available card. A card
    // without a password opens without any dialog, so tests and benchmarks can drive this.
    void openCard(const QString &path);
    // Saves the open card, if any, and shows none.
    void closeCard();
    DataManager *openedCard() const { return manager; }
    DBManager *cards() const { return cardList; }
    ListView *records() const { return recordList; }

public Q_SLOTS:
    void zoomin() override;
    void zoomout() override;
    void dbNew();
    void dbSelect();
    void doEditCard();
    void doRemoveCard();
    // Writes every record of the open card to a CSV file chosen by the user.
    void doExport();
    void doImport();
    void fieldsEditor();
    void pcLink();
    void sendData();
    void getData();
    void selectionCleared();
    void selected(PIMRecord *record);
    void editDialogIsFree(bool *free);
    void raiseMainWindow();
    void toggleMemo();

    // Commands on the records of the open card.
    void doNew();
    void doEdit();
    void doClone();
    void doDelete();
    void doClearCard();
    // The current record as a report page.
    void doReport();
    // The options dialog; the record list takes its colours anew afterwards.
    void options();
    void editRecord(PIMRecord *record);
    void editTask(DataRecord *record);
    void memoChanged();
    // A tap in a cell edits the value in place; a long press offers more.
    void editRecord(const QPoint &point, PIMRecord *record, int field);
    void popup(const QPoint &point, PIMRecord *record);
    void popup(const QPoint &point, PIMRecord *record, int field);

    // Services of the reminder dialog.
    void freeManager(PIMManager *manager);
    void getTask(DataRecord **result, const QString &uid);
    void setupView(PIMListView *view, DataRecord *record);

    // A document launched from outside: a card opens (entering the card list if new); a
    // text file is offered to the text editor.
    void setDocument(const QString &file);

    // The filter menu: find, new and edited filters, and the choice of the current one.
    void find();
    void newFilter();
    void editFilters();
    // 0 for all records, n for the n-th filter; a negative id is the entry of the current
    // filter past the fifth, which is chosen already.
    void changeFilter(int id);

    // The view menu: "Default" 0, the first views 1 to 5; a negative id is the entry of the
    // current view past the fifth. A change of view reopens the card.
    void setupViews();
    void changeView(int id);
    void newView();
    void editViews();

    // The sort menu: "Unsorted" 0, "Reversed" 1, then the fields from 2 on.
    void setupSorting();
    void changeSorting(int id);

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void createActions();
    void createToolBar();
    QToolButton *addMenuButton(QToolBar *bar, const QString &icon, const QString &tip, QMenu *menu);
    QMenu *createMainMenu();
    void createPanes();

    void createCardList();
    void createAlertDialog();
    void connectCardActions();
    void setCardActionsEnabled(bool enabled);
    void createRecordList();
    void setupFilters();
    QAction *addFilterEntry(const QString &title, int id, bool checked);
    void addViewEntry(const QString &title, int id, bool checked);
    void reopenCard();
    QString saveForTransfer(bool close);
    QString firstAvailableCard() const;
    void setCardSetting(const QString &path);
    QString cardSetting() const;

    void applyZoom(int size);
    void readOptions();
    void writeOptions();
    void setRecordActionsEnabled(bool enabled);

    void connectRecordCommands();
    static bool modalDialogRunning();
    void handTextToEditor(const QString &file);
    // Runs the import dialog, preset to file when one is given, and opens the card made.
    void importFrom(const QString &file);
    // Runs the record editor on record (taken over when not stored) with editing set.
    void runEditor(DataRecord *record, int page);
    DataRecord *currentRecord() const;
    // Edits one value of record in place; true when the record changed and is to be saved.
    bool editValue(const QPoint &point, DataRecord *record, int field);
    bool editNumber(DataRecord *record, int field);
    bool editList(DataRecord *record, int field);
    bool editMultiList(DataRecord *record, int field);
    bool editReminder(const QPoint &point, DataRecord *record);
    bool showImage(DataRecord *record);
    bool isEditableInPlace(const DataRecord *record, int field) const;

    // The desktop frame around the handheld's window: a menu bar over the same commands,
    // status tips, and the window's place kept between runs.
    void createMenuBar();
    void addMenu(const QString &title, const QList<const char *> &names);
    void setDesktopShortcuts();
    void restoreWindowGeometry();
    void writeWindowGeometry(Config &config) const;

    QWidget *listPlace = nullptr;
    ListView *recordList = nullptr;
    QMenu *recordMenu = nullptr;
    QString cardTitle;
    QPlainTextEdit *memoEdit = nullptr;
    DataManager *manager = nullptr;
    DBManager *cardList = nullptr;
    AlertDialog *alertDialog = nullptr;
    QToolButton *filterButton = nullptr;
    QMenu *filterMenu = nullptr;
    QToolButton *viewButton = nullptr;
    QMenu *viewMenu = nullptr;
    QToolButton *sortButton = nullptr;
    QMenu *sortMenu = nullptr;
    int pendingSortColumn = -1;
    bool pendingSortOrder = true;
    bool editing = false;
    // Launched with a document: the document, not the last card or the chooser, decides
    // what the first show opens.
    bool documentAtStart = false;
};

#endif
